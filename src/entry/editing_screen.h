#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "entry/global_slots.h"
#include "forms/user.h"
#include "session/plan_adjustment.h"
#include "session/screens.h"

namespace entry {

// The editing screens' public class: every method opens one modal screen and returns when it closes. A record ID is
// a number or "NEW", which an empty text is too; the ID that comes back is the saved record's, and stays as given when
// nothing was saved. Every method tells the person, and changes nothing, while `PV` is not assigned.
class EditingScreen : public IGlobal, public ClassPrinter<EditingScreen> {
 public:
  explicit EditingScreen(forms::User& user) : user_(user) {}

  std::int32_t ExtraID = 0;
  HostObject frmOwner;
  HostObject StartForm;
  // The login that a new employee is entered for; 0 for none.
  std::int32_t NewEmployeePasswordID = 0;

  // True when the split was accepted, which is then in `adjustment`.
  bool Edit_AdjustPlan_Info(session::PlanAdjustment& adjustment);
  bool Edit_PPO_Adjustment();
  std::int32_t Select_Coverage(std::int32_t employer_id, bool must_select, std::int32_t hide_el_id);
  bool Edit_Patient_Coverage(std::int32_t patient_id);
  bool Location_Edit_Screen();
  bool PatientLocation_Setup(std::int32_t patient_id);
  bool LoginLocation_Setup(std::int32_t password_id);
  void Show_InsPlan_Screen(std::int32_t employer_id, std::int32_t carrier_id, std::int32_t group_id,
                           const std::string& title, std::int32_t help_id);
  // Kept for the hosts that call it; does nothing.
  void Employer_Start(std::string& tmp, std::string& patient_id, std::string& form_tag, std::string& subscriber_id,
                      std::string& subscriber_el_id, session::EmployerStartTab start_tab);
  void Grp_Plan_Start(std::string& plan_id, std::int32_t carrier_id);
  void Recall_Master_Start(std::string& temporary_number, std::string& recall_id, bool& canceled, bool& data_saved);
  // No ID is a new record, and so is 0.
  void Ins_Company_Start(std::string& carrier_id);
  // Of the two IDs the one that is given is opened, `pharmacy_id` before the other, but "NEW" before both. OK leaves
  // the pharmacy's in `pharmacy_id`, whether anything was changed or not.
  void Pharmacy_Start(const std::string& typed_id, std::string& pharmacy_id);
  // `id` is "NEW", "EMERGENCY" or a patient's; `typed_name` is what was typed at the name prompt. `save_and_book`
  // offers the choice on the way in and tells it on the way out.
  void Load_PatInfo_Small(std::string& id, const std::string& typed_name, bool& save_and_book);
  // `id` comes back as the saved record's ID, "CANCEL_AND_CLOSE" for a new one that was not saved, or "ALREADY_OPEN",
  // of which the person is told nothing.
  void PaTable_Edit_Start(const std::string& person_type, std::string& id);
  bool eReminder_PersonalSetup(std::int32_t patient_id);
  bool eReminder_TemplateSetup(std::int32_t kind, std::int32_t method);

 private:
  // The session that a screen keeps while it is open, whatever the host assigns meanwhile. Tells the person when none
  // was handed over.
  std::shared_ptr<session::Session> BeginCall();
  // `id` tells what to open, and becomes a saved record's. Nothing without a session, and for an `id` that is none,
  // which the person is told as it was typed.
  std::optional<session::Outcome> EditById(session::Opening opening, std::string& id);
  void EditGiven(const session::Opening& opening, const std::string& given, std::string& saved);

  forms::User& user_;
};

}  // namespace entry
