#include "entry/editing_screen.h"

namespace entry {

void EditingScreen::Open(const std::function<void(ComponentScreens&)>& screen) {
  // Kept while the screen is open, whatever the host assigns meanwhile.
  const std::shared_ptr<session::Session> session = PV();
  if (session == nullptr) {
    user_.Tell("The host has not handed over its session (PV).", std::string(forms::kSuiteTitle),
               forms::Icon::Critical);
    return;
  }
  RegisterMainForm(StartForm);
  ComponentScreens screens(*session, user_, NewEmployeePasswordID);
  screen(screens);
}

bool EditingScreen::OpenNotBuilt(std::string_view form, std::string_view what) {
  Open([&](ComponentScreens& screens) { screens.TellNotBuilt(form, what); });
  return false;
}

bool EditingScreen::Edit_AdjustPlan_Info(PlanAdjustment& /*adjustment*/) {
  return OpenNotBuilt("frmPPOAdjust", "plan adjustments");
}

bool EditingScreen::Edit_PPO_Adjustment() {
  return OpenNotBuilt("frmPPOAdjust", "plan adjustments");
}

std::int32_t EditingScreen::Select_Coverage(std::int32_t /*employer_id*/, bool /*must_select*/,
                                            std::int32_t /*hide_el_id*/) {
  OpenNotBuilt("frmSelectCoverage", "coverage selection");
  return 0;
}

bool EditingScreen::Edit_Patient_Coverage(std::int32_t /*patient_id*/) {
  return OpenNotBuilt("frmEditCoverage", "coverages");
}

bool EditingScreen::Location_Edit_Screen() {
  return OpenNotBuilt("frmOfficeLocation", "office locations");
}

bool EditingScreen::PatientLocation_Setup(std::int32_t /*patient_id*/) {
  return OpenNotBuilt("frmPatientLocation", "a patient's locations");
}

bool EditingScreen::LoginLocation_Setup(std::int32_t /*password_id*/) {
  return OpenNotBuilt("frmPatientLocation", "a login's locations");
}

void EditingScreen::Show_InsPlan_Screen(std::int32_t /*employer_id*/, std::int32_t /*carrier_id*/,
                                        std::int32_t /*group_id*/, const std::string& /*title*/,
                                        std::int32_t /*help_id*/) {
  OpenNotBuilt("InsPln_Frm", "plan details");
}

void EditingScreen::Employer_Start(std::string& /*tmp*/, std::string& /*patient_id*/, std::string& /*form_tag*/,
                                   std::string& /*subscriber_id*/, std::string& /*subscriber_el_id*/,
                                   session::EmployerStartTab /*start_tab*/) {}

void EditingScreen::Grp_Plan_Start(std::string& plan_id, std::int32_t carrier_id) {
  Open([&](ComponentScreens& screens) { screens.Grp_Plan_Start(plan_id, carrier_id); });
}

void EditingScreen::Recall_Master_Start(std::string& /*temporary_number*/, std::string& recall_id, bool& canceled,
                                        bool& data_saved) {
  Open([&](ComponentScreens& screens) { screens.Recall_Master_Start(recall_id, canceled, data_saved); });
}

void EditingScreen::Ins_Company_Start(std::string& carrier_id) {
  Open([&](ComponentScreens& screens) { screens.Ins_Company_Start(carrier_id); });
}

void EditingScreen::Pharmacy_Start(std::string& /*typed_id*/, std::string& pharmacy_id) {
  Open([&](ComponentScreens& screens) { screens.Pharmacy_Start(pharmacy_id); });
}

void EditingScreen::Load_PatInfo_Small(std::string& id, const std::string& typed_name, bool& save_and_book) {
  Open([&](ComponentScreens& screens) { screens.Load_PatInfo_Small(id, typed_name, save_and_book); });
}

void EditingScreen::PaTable_Edit_Start(const std::string& person_type, std::string& id) {
  Open([&](ComponentScreens& screens) { screens.PaTable_Edit_Start(person_type, id); });
}

bool EditingScreen::eReminder_PersonalSetup(std::int32_t /*patient_id*/) {
  return OpenNotBuilt("eRmdrPersonalSetup", "a patient's reminder settings");
}

}  // namespace entry
