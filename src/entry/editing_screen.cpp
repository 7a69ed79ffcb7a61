#include "entry/editing_screen.h"

#include "editing/rules.h"
#include "entry/component_screens.h"
#include "entry/form_catalog.h"
#include "entry/record_id.h"
#include "forms/text.h"

namespace entry {

using session::Outcome;
using session::RecordKind;

namespace {

bool IsNew(std::string_view id) {
  return forms::EqualsIgnoringCase(forms::Trim(id), kNew);
}

bool IsGiven(std::string_view id) {
  id = forms::Trim(id);
  return !id.empty() && id != "0";
}

}  // namespace

std::shared_ptr<session::Session> EditingScreen::BeginCall() {
  std::shared_ptr<session::Session> session = PV();
  if (session == nullptr) {
    user_.Tell("The host has not handed over its session (PV).", std::string(forms::kSuiteTitle),
               forms::Icon::Critical);
    return nullptr;
  }
  RegisterMainForm(StartForm);
  return session;
}

std::optional<Outcome> EditingScreen::EditById(session::Opening opening, std::string& id) {
  const auto session = BeginCall();
  if (session == nullptr) {
    return std::nullopt;
  }
  if (!ReadId(id, opening)) {
    user_.Tell(editing::Rules::ToldBack(id) + " is neither \"NEW\" nor the number of a record.",
               std::string(forms::kSuiteTitle), forms::Icon::Information);
    return std::nullopt;
  }
  const Outcome outcome = ComponentScreens(*session, user_).Edit(opening);
  if (outcome.Saved()) {
    id = std::to_string(outcome.id);
  }
  return outcome;
}

bool EditingScreen::Edit_AdjustPlan_Info(session::PlanAdjustment& adjustment) {
  const auto session = BeginCall();
  return session != nullptr && ComponentScreens(*session, user_).AdjustPlan(adjustment);
}

bool EditingScreen::Edit_PPO_Adjustment() {
  session::PlanAdjustment calculator;
  return Edit_AdjustPlan_Info(calculator);
}

std::int32_t EditingScreen::Select_Coverage(std::int32_t employer_id, bool must_select, std::int32_t hide_el_id) {
  const auto session = BeginCall();
  return session == nullptr
             ? 0
             : ComponentScreens(*session, user_)
                   .SelectCoverage({.employer = employer_id, .hidden = hide_el_id, .must_select = must_select});
}

bool EditingScreen::Edit_Patient_Coverage(std::int32_t patient_id) {
  const auto session = BeginCall();
  return session != nullptr && ComponentScreens(*session, user_).EditPatientCoverage(patient_id);
}

bool EditingScreen::Location_Edit_Screen() {
  const auto session = BeginCall();
  return session != nullptr && ComponentScreens(*session, user_).EditOfficeLocations();
}

bool EditingScreen::PatientLocation_Setup(std::int32_t patient_id) {
  const auto session = BeginCall();
  return session != nullptr && ComponentScreens(*session, user_).EditPatientLocations(patient_id);
}

bool EditingScreen::LoginLocation_Setup(std::int32_t password_id) {
  const auto session = BeginCall();
  return session != nullptr && ComponentScreens(*session, user_).EditLoginLocations(password_id);
}

void EditingScreen::Show_InsPlan_Screen(std::int32_t employer_id, std::int32_t carrier_id, std::int32_t group_id,
                                        const std::string& title, std::int32_t help_id) {
  if (const auto session = BeginCall()) {
    ComponentScreens(*session, user_)
        .ShowPlanDetails(
            {.employer = employer_id, .carrier = carrier_id, .plan = group_id, .title = title, .help = help_id});
  }
}

void EditingScreen::Employer_Start(std::string& /*tmp*/, std::string& /*patient_id*/, std::string& /*form_tag*/,
                                   std::string& /*subscriber_id*/, std::string& /*subscriber_el_id*/,
                                   session::EmployerStartTab /*start_tab*/) {}

void EditingScreen::Grp_Plan_Start(std::string& plan_id, std::int32_t carrier_id) {
  EditGiven({.kind = RecordKind::GroupPlan, .carrier = carrier_id}, plan_id, plan_id);
}

void EditingScreen::Recall_Master_Start(std::string& temporary_number, std::string& recall_id, bool& canceled,
                                        bool& data_saved) {
  if (const auto outcome = EditById({.kind = RecordKind::RecallMaster}, recall_id)) {
    data_saved = outcome->Saved();
    canceled = !data_saved;
    if (data_saved) {
      temporary_number = recall_id;
    }
  }
}

void EditingScreen::Ins_Company_Start(std::string& carrier_id) {
  EditGiven({.kind = RecordKind::Carrier}, carrier_id, carrier_id);
}

void EditingScreen::Pharmacy_Start(const std::string& typed_id, std::string& pharmacy_id) {
  const bool typed = IsNew(typed_id) || !IsGiven(pharmacy_id);  // a new one is none that the other variable still names
  EditGiven({.kind = RecordKind::Pharmacy}, typed ? typed_id : pharmacy_id, pharmacy_id);
}

void EditingScreen::EditGiven(const session::Opening& opening, const std::string& given, std::string& saved) {
  std::string id = IsGiven(given) ? given : std::string(kNew);
  const auto outcome = EditById(opening, id);
  if (outcome && (outcome->Saved() || outcome->end == Outcome::End::Accepted)) {
    saved = id;
  }
}

void EditingScreen::Load_PatInfo_Small(std::string& id, const std::string& typed_name, bool& save_and_book) {
  if (const auto outcome =
          EditById({.kind = RecordKind::Patient, .typed_name = typed_name, .may_book = save_and_book}, id)) {
    save_and_book = outcome->save_and_book;
  }
}

void EditingScreen::PaTable_Edit_Start(const std::string& person_type, std::string& id) {
  const auto kind = PersonKind(person_type);
  if (!kind) {
    if (BeginCall() != nullptr) {
      user_.Tell(editing::Rules::ToldBack(person_type) + " is no type of person.", std::string(forms::kSuiteTitle),
                 forms::Icon::Information);
    }
    return;
  }
  if (OpenScreenOf(*kind) != nullptr) {  // the host hears of it, and has its own way to say so
    id = IdText(Outcome{.end = Outcome::End::AlreadyOpen}).value();
    return;
  }
  session::Opening opening{.kind = *kind, .new_employee_login = NewEmployeePasswordID, .owner = frmOwner};
  const bool adds = ReadId(id, opening) && opening.IsNew();
  const Outcome outcome = EditById(opening, id).value_or(Outcome{});
  if (adds || outcome.end != Outcome::End::Cancelled) {
    id = IdText(outcome).value_or(id);
  }
}

bool EditingScreen::eReminder_PersonalSetup(std::int32_t patient_id) {
  const auto session = BeginCall();
  return session != nullptr && ComponentScreens(*session, user_).EditPatientReminders(patient_id);
}

bool EditingScreen::eReminder_TemplateSetup(std::int32_t kind, std::int32_t method) {
  const auto session = BeginCall();
  return session != nullptr && ComponentScreens(*session, user_).EditTemplates(kind, method);
}

}  // namespace entry
