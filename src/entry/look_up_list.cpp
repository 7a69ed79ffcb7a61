#include "entry/look_up_list.h"

#include <utility>

#include "entry/component_screens.h"
#include "entry/record_id.h"
#include "lookup/look_up.h"

namespace entry {
namespace {

bool IsInsuranceList(std::int32_t type) {
  return type == session::lulInsuranceCo || type == session::lulGroupPlan || type == session::lulInsGroup ||
         type == session::lulCapPlans;
}

// Empties a text when a call ends, however it ends.
class Clearing {
 public:
  explicit Clearing(std::string& text) : text_(text) {}
  Clearing(const Clearing&) = delete;
  Clearing& operator=(const Clearing&) = delete;
  ~Clearing() { text_.clear(); }

 private:
  std::string& text_;
};

}  // namespace

void LookUpList::ShowList(bool InsLLCanMultiSel, HostObject fOwner) {
  const Clearing after(ListTitle);
  const std::shared_ptr<session::Session> session = PV();
  if (session == nullptr) {
    user_.Tell("The host has not handed over its session (PV).", std::string(forms::kSuiteTitle),
               forms::Icon::Critical);
    return;
  }
  RegisterMainForm(StartForm);
  if (fOwner != nullptr) {
    frmOwner = std::move(fOwner);
  }
  lookup::LookUpOptions options;
  options.title = ListTitle;
  options.selected = SelectedID;
  options.narrowing.allow_delete = AllowDelete;
  options.narrowing.group_plan_company = GroupPlanCompanyID;
  options.narrowing.family_head_including = FamHeadIncPatID;
  options.show_mode = ShowMode;
  options.multi_select = MultiSel || (InsLLCanMultiSel && IsInsuranceList(ListType));
  options.no_double_click = No_Double_Click;
  options.show_facility_options = ShowFacilityOptions;
  options.show_patient_buttons = ShowPatientButtons;
  options.skip_list_if_new = Skip_List_IF_New;
  options.events = Events;
  options.new_employee_login = NewEmployeePasswordID;
  const ComponentScreens screens(*session, user_);
  const session::ListOutcome outcome = lookup::ShowLookUpList(screens.Context(), ListType, options);
  if (outcome.Chosen()) {
    SelectedID = outcome.id;
    Select_String = outcome.text;
  } else if (outcome.end == session::ListOutcome::End::New) {
    Select_String = kNew;
  }
}

}  // namespace entry
