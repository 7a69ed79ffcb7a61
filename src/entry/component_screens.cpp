#include "entry/component_screens.h"

#include "data/literal.h"
#include "data/statements.h"
#include "editing/attempt.h"
#include "forms/text.h"
#include "lookup/look_up.h"
#include "people/patScreen_SM.h"

namespace entry {

std::optional<session::ListChoice> ComponentScreens::ShowList(session::LookUpListTypes type,
                                                              const session::ListRequest& request) {
  lookup::LookUpOptions options;
  options.title = request.title;
  options.selected = request.selected;
  options.narrowing.allow_delete = request.allow_delete;
  options.multi_select = request.multi_select;
  return lookup::ShowLookUpList(context_, type, options).choice;
}

std::optional<session::PickedText> ComponentScreens::ShowPickList(session::PickList list, std::string_view title) {
  return lookup::ShowPickList(context_, list, title);
}

void ComponentScreens::Load_PatInfo_Small(std::string& id, const std::string& typed_name, bool& save_and_book) {
  people::patScreen_SM screen(context_);
  screen.Choose(id);
  screen.TypedName = typed_name;
  screen.ShowSaveNBookAppt = save_and_book;
  context_.user.Show(screen);
  save_and_book = screen.ShowSaveNBookAppt;
  if (screen.Saved) {
    id = std::to_string(screen.pID);
  }
}

void ComponentScreens::PaTable_Edit_Start(std::string_view person_type, std::string& id) {
  const std::string key = forms::ToUpper(person_type);
  if (key == "PTYPEMP") {
    if (forms::EqualsIgnoringCase(id, session::kNew) && new_employee_login_ != 0 && !AcceptLogin()) {
      id = session::kCancelAndClose;
      return;
    }
    TellNotBuilt("EmployeeFrm", "employees");
  } else if (key == "PTYPPAT") {
    TellNotBuilt("FamScreen", "family heads and members");
  } else if (key == "PTYPDOC" || key == "PTYPPHY1" || key == "PTYPPHY2" || key == "PTYPPHYREFOUT" || key == "PTYPREF") {
    TellNotBuilt("docScreen", "providers, referrals and physicians");
  }
}

bool ComponentScreens::AcceptLogin() {
  std::string name;
  const data::Statements statements(context_.session);
  const bool read = editing::Attempt(context_.user, [&] {
    name = session::ToText(
        statements.SelectValue("SELECT PWMUseNam FROM PWMTable WHERE PWMID=" + data::Literal(new_employee_login_) +
                               statements.Office(" and (OfficeID = ", ") ")));
  });
  return read && context_.user.Ask({.text = "New Employees entered through the Setup Login Name screen will be "
                                            "automatically be associated with the login name and rights selected on "
                                            "that screen.\r\nIf you do not want to use [" +
                                            name +
                                            "] as the login name for this employee, please click Cancel. Close the "
                                            "Setup Login Name screen and enter this new employee by selecting "
                                            "Employee List from the GoTo menu of the Patient Look-Up-List instead.",
                                    .title = "New Employee",
                                    .buttons = forms::kOkCancel,
                                    .icon = forms::Icon::Information}) == forms::Answer::OK;
}

void ComponentScreens::Grp_Plan_Start(std::string& /*plan_id*/, std::int32_t /*carrier_id*/) {
  TellNotBuilt("GrpPlaScreen", "group plans");
}

void ComponentScreens::Recall_Master_Start(std::string& /*recall_id*/, bool& canceled, bool& data_saved) {
  TellNotBuilt("RecallSetupScreen", "recalls");
  canceled = true;
  data_saved = false;
}

void ComponentScreens::Ins_Company_Start(std::string& /*carrier_id*/) {
  TellNotBuilt("insScreen", "insurance companies");
}

void ComponentScreens::Pharmacy_Start(std::string& /*pharmacy_id*/) {
  TellNotBuilt("insScreen", "pharmacies");
}

void ComponentScreens::TellNotBuilt(std::string_view form, std::string_view what) {
  context_.user.Tell("The screen for " + std::string(what) + " (" + std::string(form) +
                         ") is not part of this version yet. Nothing was changed.",
                     std::string(forms::kSuiteTitle), forms::Icon::Information);
}

}  // namespace entry
