#pragma once

#include "com/public_class.h"
#include "entry/editing_screen.h"

namespace com {

// The class `EditingScreen` as hosts see it.
class EditingScreenObject final : public PublicClass<IEditingScreen, entry::EditingScreen> {
 public:
  EditingScreenObject();

  COM_PROPERTY(ExtraID, LONG, ExtraID)
  COM_PROPERTY(NewEmployeePasswordID, LONG, NewEmployeePasswordID)

  HRESULT STDMETHODCALLTYPE Edit_AdjustPlan_Info(VARIANT* EmployerID, VARIANT* CarrierID, VARIANT* GroupID,
                                                 VARIANT* TreatmentCode, VARIANT* OfficeFee, VARIANT* AllowedFee,
                                                 VARIANT* PlanCalculationFee, VARIANT* CoveragePercent,
                                                 VARIANT* PlanPayment, VARIANT* ProviderAdjustment,
                                                 VARIANT* PatientPortion, VARIANT* AllowEditPayment,
                                                 VARIANT_BOOL* Accepted) override;
  HRESULT STDMETHODCALLTYPE Edit_PPO_Adjustment(VARIANT_BOOL* Accepted) override;
  HRESULT STDMETHODCALLTYPE Select_Coverage(LONG EmployerID, VARIANT_BOOL MustSelect, LONG HideElID,
                                            LONG* SelectedCoverage) override;
  HRESULT STDMETHODCALLTYPE Edit_Patient_Coverage(LONG PatientID, VARIANT_BOOL* Saved) override;
  HRESULT STDMETHODCALLTYPE Location_Edit_Screen(VARIANT_BOOL* Saved) override;
  HRESULT STDMETHODCALLTYPE PatientLocation_Setup(LONG PatientID, VARIANT_BOOL* Saved) override;
  HRESULT STDMETHODCALLTYPE LoginLocation_Setup(LONG PasswordID, VARIANT_BOOL* Saved) override;
  HRESULT STDMETHODCALLTYPE Show_InsPlan_Screen(LONG EmpID, LONG InsID, LONG GroID, BSTR Title, LONG HelpID) override;
  HRESULT STDMETHODCALLTYPE Employer_Start(VARIANT* Tmp, VARIANT* PatID, VARIANT* FormTag, VARIANT* SubscriberID,
                                           VARIANT* Subscriber_elID, EmployerStartTab StartTab) override;
  HRESULT STDMETHODCALLTYPE Grp_Plan_Start(VARIANT* GroPlaID, LONG InsCoID) override;
  HRESULT STDMETHODCALLTYPE Recall_Master_Start(VARIANT* TmpRecNum, VARIANT* RecallID, VARIANT* Canceled,
                                                VARIANT* DataSaved) override;
  HRESULT STDMETHODCALLTYPE Ins_Company_Start(VARIANT* Ins_Com_ID_Num) override;
  HRESULT STDMETHODCALLTYPE Pharmacy_Start(VARIANT* sPhaID, VARIANT* PhaID) override;
  HRESULT STDMETHODCALLTYPE Load_PatInfo_Small(VARIANT* l_ID, VARIANT* ns_ID, VARIANT* GoToQuickAppoint) override;
  HRESULT STDMETHODCALLTYPE PaTable_Edit_Start(BSTR PersonType, VARIANT* SrchFld) override;
  HRESULT STDMETHODCALLTYPE eReminder_PersonalSetup(LONG PatientID, VARIANT_BOOL* Saved) override;
  HRESULT STDMETHODCALLTYPE eReminder_TemplateSetup(LONG emsRecordType, LONG txtType, VARIANT_BOOL* Saved) override;

 private:
  // Opens a screen whose outcome is the method's value.
  template <typename Screen>
  HRESULT OpenFor(VARIANT_BOOL* outcome, Screen screen);
};

}  // namespace com
