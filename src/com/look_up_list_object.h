#pragma once

#include "com/public_class.h"
#include "entry/look_up_list.h"

namespace com {

// The class `LookUpList` as hosts see it.
class LookUpListObject final : public PublicClass<ILookUpList, entry::LookUpList> {
 public:
  LookUpListObject();

  HRESULT STDMETHODCALLTYPE get_ListType(LookUpListTypes* value) override { return Get(value, Screens().ListType); }
  HRESULT STDMETHODCALLTYPE put_ListType(LookUpListTypes value) override { return Put(Screens().ListType, value); }
  HRESULT STDMETHODCALLTYPE get_Skip_List_IF_New(VARIANT_BOOL* value) override {
    return Get(value, Screens().Skip_List_IF_New);
  }
  HRESULT STDMETHODCALLTYPE put_Skip_List_IF_New(VARIANT_BOOL value) override {
    return Put(Screens().Skip_List_IF_New, value);
  }
  HRESULT STDMETHODCALLTYPE get_ShowMode(LONG* value) override { return Get(value, Screens().ShowMode); }
  HRESULT STDMETHODCALLTYPE put_ShowMode(LONG value) override { return Put(Screens().ShowMode, value); }
  HRESULT STDMETHODCALLTYPE get_Include_Ins(VARIANT_BOOL* value) override { return Get(value, Screens().Include_Ins); }
  HRESULT STDMETHODCALLTYPE put_Include_Ins(VARIANT_BOOL value) override { return Put(Screens().Include_Ins, value); }
  HRESULT STDMETHODCALLTYPE get_InitField(BSTR* value) override { return Get(value, Screens().InitField); }
  HRESULT STDMETHODCALLTYPE put_InitField(BSTR value) override { return Put(Screens().InitField, value); }
  HRESULT STDMETHODCALLTYPE get_MultiSel(VARIANT_BOOL* value) override { return Get(value, Screens().MultiSel); }
  HRESULT STDMETHODCALLTYPE put_MultiSel(VARIANT_BOOL value) override { return Put(Screens().MultiSel, value); }
  HRESULT STDMETHODCALLTYPE get_No_Double_Click(VARIANT_BOOL* value) override {
    return Get(value, Screens().No_Double_Click);
  }
  HRESULT STDMETHODCALLTYPE put_No_Double_Click(VARIANT_BOOL value) override {
    return Put(Screens().No_Double_Click, value);
  }
  HRESULT STDMETHODCALLTYPE get_bSelectMode(VARIANT_BOOL* value) override { return Get(value, Screens().bSelectMode); }
  HRESULT STDMETHODCALLTYPE put_bSelectMode(VARIANT_BOOL value) override { return Put(Screens().bSelectMode, value); }
  HRESULT STDMETHODCALLTYPE get_ShowFacilityOptions(VARIANT_BOOL* value) override {
    return Get(value, Screens().ShowFacilityOptions);
  }
  HRESULT STDMETHODCALLTYPE put_ShowFacilityOptions(VARIANT_BOOL value) override {
    return Put(Screens().ShowFacilityOptions, value);
  }
  HRESULT STDMETHODCALLTYPE get_ListTitle(BSTR* value) override { return Get(value, Screens().ListTitle); }
  HRESULT STDMETHODCALLTYPE put_ListTitle(BSTR value) override { return Put(Screens().ListTitle, value); }
  HRESULT STDMETHODCALLTYPE get_SelectedID(LONG* value) override { return Get(value, Screens().SelectedID); }
  HRESULT STDMETHODCALLTYPE put_SelectedID(LONG value) override { return Put(Screens().SelectedID, value); }
  HRESULT STDMETHODCALLTYPE get_Select_String(BSTR* value) override { return Get(value, Screens().Select_String); }
  HRESULT STDMETHODCALLTYPE put_Select_String(BSTR value) override { return Put(Screens().Select_String, value); }
  HRESULT STDMETHODCALLTYPE get_ShowPatientButtons(VARIANT_BOOL* value) override {
    return Get(value, Screens().ShowPatientButtons);
  }
  HRESULT STDMETHODCALLTYPE put_ShowPatientButtons(VARIANT_BOOL value) override {
    return Put(Screens().ShowPatientButtons, value);
  }
  HRESULT STDMETHODCALLTYPE get_GroupPlanCompanyID(LONG* value) override {
    return Get(value, Screens().GroupPlanCompanyID);
  }
  HRESULT STDMETHODCALLTYPE put_GroupPlanCompanyID(LONG value) override {
    return Put(Screens().GroupPlanCompanyID, value);
  }
  HRESULT STDMETHODCALLTYPE get_EmployerPatientID(LONG* value) override {
    return Get(value, Screens().EmployerPatientID);
  }
  HRESULT STDMETHODCALLTYPE put_EmployerPatientID(LONG value) override {
    return Put(Screens().EmployerPatientID, value);
  }
  HRESULT STDMETHODCALLTYPE get_FamHeadIncPatID(LONG* value) override { return Get(value, Screens().FamHeadIncPatID); }
  HRESULT STDMETHODCALLTYPE put_FamHeadIncPatID(LONG value) override { return Put(Screens().FamHeadIncPatID, value); }
  HRESULT STDMETHODCALLTYPE get_NewEmployeePasswordID(LONG* value) override {
    return Get(value, Screens().NewEmployeePasswordID);
  }
  HRESULT STDMETHODCALLTYPE put_NewEmployeePasswordID(LONG value) override {
    return Put(Screens().NewEmployeePasswordID, value);
  }
  HRESULT STDMETHODCALLTYPE get_AllowDelete(VARIANT_BOOL* value) override { return Get(value, Screens().AllowDelete); }
  HRESULT STDMETHODCALLTYPE put_AllowDelete(VARIANT_BOOL value) override { return Put(Screens().AllowDelete, value); }

  HRESULT STDMETHODCALLTYPE ShowList(VARIANT_BOOL InsLLCanMultiSel, VARIANT fOwner) override;

 private:
  template <typename T>
  static HRESULT Put(std::int32_t& to, T value) {
    to = static_cast<std::int32_t>(value);
    return S_OK;
  }
  static HRESULT Put(bool& to, VARIANT_BOOL value) {
    to = value != VARIANT_FALSE;
    return S_OK;
  }
  HRESULT Put(std::string& to, BSTR value);

  // Raises the list window's events to the host.
  void ForwardEvents();
};

}  // namespace com
