#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "data/contact_orders.h"
#include "data/reminder_notes.h"
#include "editing/editing_form.h"
#include "editing/record_hold.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/rich_text_box.h"
#include "recall/ExcludedContact.h"
#include "recall/cltContactSlection.h"

namespace recall {

// How reminders reach one patient: by which methods, in which order, for each kind of reminder and for each stage of
// his recalls; where, and what the practice notes about it.
class eRmdrPersonalSetup : public editing::EditingForm {
 public:
  explicit eRmdrPersonalSetup(const session::ScreenContext& context);

  std::int32_t PatientID = 0;
  // Something was changed and is not saved yet.
  bool ChangeMade = false;

  forms::TabStrip tabKinds;
  forms::Panel stRecall;
  forms::Panel stReminder;
  forms::Panel stConfirm;
  forms::Panel stBirthday;
  ExcludedContact ecRecall{data::ReminderKind::Recall};
  ExcludedContact ecReminder{data::ReminderKind::Appointment};
  ExcludedContact ecConfirm{data::ReminderKind::Confirmation};
  ExcludedContact ecBirthday{data::ReminderKind::Birthday};

  // The orders of single recalls; not seen for a patient without any.
  forms::Panel pnlStage;
  forms::Label lblStage;
  forms::ComboBox cboStage;
  cltContactSlection csStage{"Availa&ble methods", "Contact or&der, first one first"};

  forms::Panel stInfo;
  forms::Label lblInfo;
  forms::Button cmdContact;
  forms::Panel stNotes;
  forms::Label lblNotes;
  forms::RichTextBox qe;
  forms::CheckBox chkApplyToFamily;
  forms::DialogButtons db;

 protected:
  void Read() override;
  bool Differs() const override { return ChangeMade; }
  bool Agreed() override;

 private:
  // A stage of a recall with the order that the person gives it. What no recall reminder may use stays in the order
  // until that is stored, and is not shown.
  struct Stage {
    data::ContactOrderOf of;
    std::vector<std::int32_t> stored;
    std::vector<std::int32_t> order = stored;
  };

  void Register();
  void RegisterPages();
  void Wire();
  std::array<ExcludedContact*, 4> Kinds() { return {&ecRecall, &ecReminder, &ecConfirm, &ecBirthday}; }
  std::array<const ExcludedContact*, 4> Kinds() const { return {&ecRecall, &ecReminder, &ecConfirm, &ecBirthday}; }

  // Empty when there is no such patient.
  std::string NameOf(std::int32_t patient) const;
  std::vector<std::int32_t> ReadFamily() const;
  void ShowFamily();
  void ShowKinds();
  void ShowStages();
  void ShowStage();
  Stage* ShownStage();

  void TakeStageOrder();
  void qe_Change();
  void chkApplyToFamily_Click();
  void cmdContact_Click();

  bool ForFamily() const { return chkApplyToFamily.Value == forms::CheckState::On; }
  // Without the methods that no recall reminder may use.
  std::vector<std::int32_t> Allowed(const Stage& stage) const;
  bool IsDue(const Stage& stage) const { return Allowed(stage) != stage.stored; }
  // The patient has something that the others of the family would get.
  bool HasOwn() const;
  bool Writes(const ExcludedContact& kind) const;
  void Write();
  std::list<editing::RecordHold> HoldFamily();
  void RequireKinds();
  void WriteChanged() const;
  void WriteOwn(std::int32_t member) const;
  void WriteKind(std::int32_t patient, const ExcludedContact& kind) const;
  void Clear();

  data::ContactOrders orders_;
  data::ReminderNotes notes_;
  std::vector<Stage> stages_;
  std::vector<std::int32_t> family_;  // all of it, the patient among them
  std::string note_;                  // as it was read, or last agreed to
  bool note_changed_ = false;
};

}  // namespace recall
