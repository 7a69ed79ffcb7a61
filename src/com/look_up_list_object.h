#pragma once

#include "com/public_class.h"
#include "entry/look_up_list.h"

namespace com {

// The class `LookUpList` as hosts see it.
class LookUpListObject final : public PublicClass<ILookUpList, entry::LookUpList> {
 public:
  LookUpListObject();

  COM_PROPERTY(ListType, LookUpListTypes, ListType)
  COM_PROPERTY(Skip_List_IF_New, VARIANT_BOOL, Options.skip_if_new)
  COM_PROPERTY(ShowMode, LONG, Options.show_mode)
  COM_PROPERTY(Include_Ins, VARIANT_BOOL, Options.include_insurance)
  COM_PROPERTY(InitField, BSTR, Options.initial_field)
  COM_PROPERTY(MultiSel, VARIANT_BOOL, Options.multi_select)
  COM_PROPERTY(No_Double_Click, VARIANT_BOOL, Options.no_double_click)
  COM_PROPERTY(bSelectMode, VARIANT_BOOL, Options.select_mode)
  COM_PROPERTY(ShowFacilityOptions, VARIANT_BOOL, Options.show_facility_options)
  COM_PROPERTY(ListTitle, BSTR, Options.title)
  COM_PROPERTY(SelectedID, LONG, Options.selected)
  COM_PROPERTY(Select_String, BSTR, Select_String)
  COM_PROPERTY(SelectedIDs, BSTR, SelectedIDs)
  COM_PROPERTY(ShowPatientButtons, VARIANT_BOOL, Options.show_patient_buttons)
  COM_PROPERTY(GroupPlanCompanyID, LONG, Options.group_plan_company)
  COM_PROPERTY(EmployerPatientID, LONG, Options.employer_patient)
  COM_PROPERTY(FamHeadIncPatID, LONG, Options.family_head_including)
  COM_PROPERTY(NewEmployeePasswordID, LONG, Options.new_employee_login)
  COM_PROPERTY(AllowDelete, VARIANT_BOOL, Options.allow_delete)

  HRESULT STDMETHODCALLTYPE ShowList(VARIANT_BOOL InsLLCanMultiSel, VARIANT fOwner) override;

 private:
  // Raises the list window's events to the host.
  void ForwardEvents();
};

}  // namespace com
