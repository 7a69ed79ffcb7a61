#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "forms/user.h"
#include "session/session.h"

namespace session {

enum LookUpListTypes : std::int32_t {
  lulProvider,
  lulPhysician1,
  lulPhysician2,
  lulReferInOut,
  lulReferral,
  lulFamilyHead,
  lulEmployee,
  lulInsuranceCo,
  lulEmployer,
  lulGroupPlan,
  lulInsGroup,
  lulRecallMaster,
  lulPharmacy,
  lulCapPlans,
};

enum EmployerStartTab : std::int32_t { estEmployer, estInsurancePlan, estCoverage };

// The texts that stand in place of a record ID.
inline constexpr std::string_view kNew = "NEW";
inline constexpr std::string_view kEmergency = "EMERGENCY";
inline constexpr std::string_view kCancelAndClose = "CANCEL_AND_CLOSE";
inline constexpr std::string_view kAlreadyOpen = "ALREADY_OPEN";
inline constexpr std::string_view kSkipListIfNew = "SKIP LIST IF NEW";

// What a list is asked for, and what it answers.
struct ListRequest {
  std::string title;          // empty: the kind's default
  std::int32_t selected = 0;  // the record to start on
  bool allow_delete = true;
  bool multi_select = false;
};
struct ListChoice {
  std::int32_t id = 0;
  std::string text;  // the row's name column
};

// A kind of short list that the office keeps for its fields.
enum class PickList { SexTitle, FeeSchedule, MedicalAlert };
struct PickedText {
  std::string code;
  std::string text;
};

// The public entry methods as the screens call one another. "NEW" in an ID's place asks for a new record.
class Screens {
 public:
  virtual ~Screens() = default;

  // Nothing when cancelled.
  virtual std::optional<ListChoice> ShowList(LookUpListTypes type, const ListRequest& request) = 0;
  virtual std::optional<PickedText> ShowPickList(PickList list, std::string_view title) = 0;

  // `id` comes back as the saved record's ID.
  virtual void Load_PatInfo_Small(std::string& id, const std::string& typed_name, bool& save_and_book) = 0;
  virtual void PaTable_Edit_Start(std::string_view person_type, std::string& id) = 0;
  virtual void Grp_Plan_Start(std::string& plan_id, std::int32_t carrier_id) = 0;
  virtual void Recall_Master_Start(std::string& recall_id, bool& canceled, bool& data_saved) = 0;
  virtual void Ins_Company_Start(std::string& carrier_id) = 0;
  virtual void Pharmacy_Start(std::string& pharmacy_id) = 0;
};

// The ports through which a screen speaks.
struct ScreenContext {
  Session& session;
  forms::User& user;
  Screens& screens;
};

}  // namespace session
