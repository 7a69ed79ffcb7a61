#include "com/editing_screen_object.h"

#include <array>

#include "com/arguments.h"

namespace com {

using automation::FromBstr;

EditingScreenObject::EditingScreenObject() : PublicClass(__uuidof(::EditingScreen), __uuidof(DEditingScreenEvents)) {}

template <typename Screen>
HRESULT EditingScreenObject::OpenFor(VARIANT_BOOL* outcome, Screen screen) {
  if (outcome == nullptr) {
    return E_POINTER;
  }
  *outcome = VARIANT_FALSE;
  return Open([&] { Get(outcome, screen()); });
}

HRESULT EditingScreenObject::Edit_AdjustPlan_Info(VARIANT* EmployerID, VARIANT* CarrierID, VARIANT* GroupID,
                                                  VARIANT* TreatmentCode, VARIANT* OfficeFee, VARIANT* AllowedFee,
                                                  VARIANT* PlanCalculationFee, VARIANT* CoveragePercent,
                                                  VARIANT* PlanPayment, VARIANT* ProviderAdjustment,
                                                  VARIANT* PatientPortion, VARIANT* AllowEditPayment,
                                                  VARIANT_BOOL* Accepted) {
  return OpenFor(Accepted, [&] {
    const std::array arguments = {
        EmployerID,         CarrierID,       GroupID,     TreatmentCode,      OfficeFee,      AllowedFee,
        PlanCalculationFee, CoveragePercent, PlanPayment, ProviderAdjustment, PatientPortion, AllowEditPayment};
    session::PlanAdjustment given;
    std::size_t argument = 0;
    VisitArguments([&](const char*, auto& value) { Take(arguments.at(argument++), value); }, given);
    session::PlanAdjustment plan = given;
    const bool accepted = Screens().Edit_AdjustPlan_Info(plan);
    argument = 0;
    VisitArguments(
        [&](const char*, const auto& before, const auto& now) { Return(arguments.at(argument++), before, now); }, given,
        plan);
    return accepted;
  });
}

HRESULT EditingScreenObject::Edit_PPO_Adjustment(VARIANT_BOOL* Accepted) {
  return OpenFor(Accepted, [&] { return Screens().Edit_PPO_Adjustment(); });
}

HRESULT EditingScreenObject::Select_Coverage(LONG EmployerID, VARIANT_BOOL MustSelect, LONG HideElID,
                                             LONG* SelectedCoverage) {
  if (SelectedCoverage == nullptr) {
    return E_POINTER;
  }
  *SelectedCoverage = 0;
  return Open(
      [&] { *SelectedCoverage = Screens().Select_Coverage(EmployerID, MustSelect != VARIANT_FALSE, HideElID); });
}

HRESULT EditingScreenObject::Edit_Patient_Coverage(LONG PatientID, VARIANT_BOOL* Saved) {
  return OpenFor(Saved, [&] { return Screens().Edit_Patient_Coverage(PatientID); });
}

HRESULT EditingScreenObject::Location_Edit_Screen(VARIANT_BOOL* Saved) {
  return OpenFor(Saved, [&] { return Screens().Location_Edit_Screen(); });
}

HRESULT EditingScreenObject::PatientLocation_Setup(LONG PatientID, VARIANT_BOOL* Saved) {
  return OpenFor(Saved, [&] { return Screens().PatientLocation_Setup(PatientID); });
}

HRESULT EditingScreenObject::LoginLocation_Setup(LONG PasswordID, VARIANT_BOOL* Saved) {
  return OpenFor(Saved, [&] { return Screens().LoginLocation_Setup(PasswordID); });
}

HRESULT EditingScreenObject::Show_InsPlan_Screen(LONG EmpID, LONG InsID, LONG GroID, BSTR Title, LONG HelpID) {
  return Open([&] { Screens().Show_InsPlan_Screen(EmpID, InsID, GroID, FromBstr(Title), HelpID); });
}

HRESULT EditingScreenObject::Employer_Start(VARIANT* /*Tmp*/, VARIANT* /*PatID*/, VARIANT* /*FormTag*/,
                                            VARIANT* /*SubscriberID*/, VARIANT* /*Subscriber_elID*/,
                                            EmployerStartTab /*StartTab*/) {
  return S_OK;
}

HRESULT EditingScreenObject::Grp_Plan_Start(VARIANT* GroPlaID, LONG InsCoID) {
  return Open([&] {
    IdArgument plan(GroPlaID);
    Screens().Grp_Plan_Start(plan.Text(), InsCoID);
    plan.Return();
  });
}

HRESULT EditingScreenObject::Recall_Master_Start(VARIANT* TmpRecNum, VARIANT* RecallID, VARIANT* Canceled,
                                                 VARIANT* DataSaved) {
  return Open([&] {
    IdArgument temporary_number(TmpRecNum);
    IdArgument recall(RecallID);
    const bool was_canceled = BoolOf(Canceled);
    const bool was_saved = BoolOf(DataSaved);
    bool canceled = was_canceled;
    bool data_saved = was_saved;
    Screens().Recall_Master_Start(temporary_number.Text(), recall.Text(), canceled, data_saved);
    temporary_number.Return();
    recall.Return();
    Return(Canceled, was_canceled, canceled);
    Return(DataSaved, was_saved, data_saved);
  });
}

HRESULT EditingScreenObject::Ins_Company_Start(VARIANT* Ins_Com_ID_Num) {
  return Open([&] {
    IdArgument carrier(Ins_Com_ID_Num);
    Screens().Ins_Company_Start(carrier.Text());
    carrier.Return();
  });
}

HRESULT EditingScreenObject::Pharmacy_Start(VARIANT* sPhaID, VARIANT* PhaID) {
  return Open([&] {
    std::string typed_id = TextOf(sPhaID);
    IdArgument pharmacy(PhaID);
    Screens().Pharmacy_Start(typed_id, pharmacy.Text());
    pharmacy.Return();
  });
}

HRESULT EditingScreenObject::Load_PatInfo_Small(VARIANT* l_ID, VARIANT* ns_ID, VARIANT* GoToQuickAppoint) {
  return Open([&] {
    IdArgument patient(l_ID);
    const bool offered = BoolOf(GoToQuickAppoint);
    bool save_and_book = offered;
    Screens().Load_PatInfo_Small(patient.Text(), TextOf(ns_ID), save_and_book);
    patient.Return();
    Return(GoToQuickAppoint, offered, save_and_book);
  });
}

HRESULT EditingScreenObject::PaTable_Edit_Start(BSTR PersonType, VARIANT* SrchFld) {
  return Open([&] {
    IdArgument person(SrchFld);
    Screens().PaTable_Edit_Start(FromBstr(PersonType), person.Text());
    person.Return();
  });
}

HRESULT EditingScreenObject::eReminder_PersonalSetup(LONG PatientID, VARIANT_BOOL* Saved) {
  return OpenFor(Saved, [&] { return Screens().eReminder_PersonalSetup(PatientID); });
}

HRESULT EditingScreenObject::eReminder_TemplateSetup(LONG emsRecordType, LONG txtType, VARIANT_BOOL* Saved) {
  return OpenFor(Saved, [&] { return Screens().eReminder_TemplateSetup(emsRecordType, txtType); });
}

}  // namespace com
