#include "entry/component_screens.h"

#include "data/literal.h"
#include "data/statements.h"
#include "editing/rules.h"
#include "entry/editing_screen.h"
#include "entry/form_catalog.h"
#include "insurance/InsPln_Frm.h"
#include "insurance/frmEditCoverage.h"
#include "insurance/frmPPOAdjust.h"
#include "insurance/frmSelectCoverage.h"
#include "locations/frmOfficeLocation.h"
#include "locations/frmPatientLocation.h"
#include "lookup/frmSearchWindow.h"
#include "lookup/look_up.h"
#include "recall/eRmdrPersonalSetup.h"
#include "recall/frmEDMsg.h"

namespace entry {

session::Outcome ComponentScreens::Edit(const session::Opening& opening) {
  if (const forms::Form* open = OpenScreenOf(opening.kind)) {
    TellAlreadyOpen(context_.user, *open);
    return {.end = session::Outcome::End::AlreadyOpen};
  }
  if (opening.kind == session::RecordKind::Employee && opening.IsNew() && opening.new_employee_login != 0 &&
      !AcceptLogin(opening.new_employee_login)) {
    return {};
  }
  return EditRecord(context_, opening);
}

session::ListOutcome ComponentScreens::ShowList(session::LookUpListTypes type, const session::ListOptions& options) {
  session::ListOptions printed = options;
  printed.printer = EditingScreen::GetPrinter().name;
  return lookup::ShowLookUpList(context_, type, printed);
}

session::ListOutcome ComponentScreens::ShowPayers(const session::ListOptions& options) {
  return lookup::ShowPayerList(context_, options);
}

std::vector<std::string> ComponentScreens::ChooseServiceCodes() {
  return lookup::ChooseServiceCodes(context_);
}

session::SearchOutcome ComponentScreens::Search(const session::SearchRequest& request) {
  return lookup::Search(context_, request);
}

std::int32_t ComponentScreens::SelectCoverage(const session::CoverageChoice& choice) {
  insurance::frmSelectCoverage screen(context_);
  screen.EmployerID = choice.employer;
  screen.HideElID = choice.hidden;
  screen.MustMakeSelection = choice.must_select;
  screen.ucSelCoverage1.ShowNone = choice.offers_none;
  screen.ucSelCoverage1.Subscriber_elID = choice.current;
  screen.ucSelCoverage1.SubscriberID = choice.subscriber;
  screen.ucSelCoverage1.PatientID = choice.patient;
  context_.user.Show(screen);
  return screen.SelectedCoverage;
}

void ComponentScreens::ShowPlanDetails(const session::PlanDetailsRequest& request) {
  insurance::InsPln_Frm screen(context_);
  screen.ucPlanDetails1.EmployerID = request.employer;
  screen.ucPlanDetails1.CarrierID = request.carrier;
  screen.ucPlanDetails1.GroupID = request.plan;
  screen.Title = request.title;
  screen.HelpID = request.help;
  context_.user.Show(screen);
}

std::optional<session::PickedText> ComponentScreens::ShowPickList(session::PickList list, std::string_view title) {
  return lookup::ShowPickList(context_, list, title);
}

bool ComponentScreens::EditLoginLocations(std::int32_t login) {
  locations::frmPatientLocation screen(context_);
  screen.PasswordID = login;
  context_.user.Show(screen);
  return screen.Saved;
}

bool ComponentScreens::AdjustPlan(session::PlanAdjustment& plan) {
  insurance::frmPPOAdjust screen(context_);
  screen.Plan = plan;
  context_.user.Show(screen);
  plan = screen.Plan;
  return !screen.Canceled;
}

bool ComponentScreens::EditPatientLocations(std::int32_t patient) {
  locations::frmPatientLocation screen(context_);
  screen.PatientID = patient;
  context_.user.Show(screen);
  return screen.Saved;
}

bool ComponentScreens::EditPatientCoverage(std::int32_t patient) {
  insurance::frmEditCoverage screen(context_);
  screen.PatientID = patient;
  context_.user.Show(screen);
  return screen.Saved;
}

bool ComponentScreens::EditOfficeLocations() {
  locations::frmOfficeLocation screen(context_);
  context_.user.Show(screen);
  return screen.Saved;
}

bool ComponentScreens::EditPatientReminders(std::int32_t patient) {
  recall::eRmdrPersonalSetup screen(context_);
  screen.PatientID = patient;
  context_.user.Show(screen);
  return screen.Saved;
}

bool ComponentScreens::EditTemplates(std::int32_t kind, std::int32_t method) {
  recall::frmEDMsg screen(context_);
  screen.emsRecordType = static_cast<data::ReminderKind>(kind);
  screen.txtType = static_cast<data::ContactMethod>(method);
  context_.user.Show(screen);
  return screen.Saved;
}

bool ComponentScreens::AcceptLogin(std::int32_t login) {
  std::string name;
  const data::Statements statements(context_.session);
  const bool read = editing::Rules(context_).Attempt([&] {
    const auto row = statements.Select("SELECT PWMUseNam FROM PWMTable WHERE PWMID=" + data::Literal(login) +
                                       statements.Office(" and (OfficeID = ", ") "));
    if (row->Eof()) {
      throw editing::Refusal("Login " + std::to_string(login) + " was not found in the database.");
    }
    name = session::ToText((*row)["PWMUseNam"]);
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

}  // namespace entry
