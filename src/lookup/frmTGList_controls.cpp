#include "forms/text.h"
#include "lookup/frmTGList.h"

namespace lookup {
namespace {

forms::Form::NamedProperty Text(std::string& value) {
  return {[&value] { return value; }, [&value](const std::string& text) { value = text; }};
}

forms::Form::NamedProperty Text(forms::Label& label) {
  return {[&label] { return label.Caption.get(); }, [&label](const std::string& text) { label.Caption = text; }};
}

forms::Form::NamedProperty Number(std::int32_t& value) {
  return {[&value] { return std::to_string(value); },
          [&value](const std::string& text) { value = session::ToId(text); }};
}

forms::Form::NamedProperty Flag(bool& value) {
  return {[&value] { return value ? "True" : "False"; },
          [&value](const std::string& text) { value = forms::IsOn(text); }};
}

}  // namespace

void frmTGList::RegisterControls() {
  Add("MnuFileSel", MnuFileSel);
  Add("MnuFileSort", MnuFileSort);
  Add("MnuFileResDef", MnuFileResDef);
  Add("MnuFileExit", MnuFileExit);
  Add("ToolStrip", ToolStrip);
  Add("DotNetGrid", DotNetGrid);
  Add("optFiltLeft", optFiltLeft);
  Add("optFiltMid", optFiltMid);
  Add("chkAutoClearFilter", chkAutoClearFilter);
  Add("RowLabel", RowLabel);
  Add("SQLLabel", SQLLabel);
  Add("IDFld", IDFld);
  Add("NamFld", NamFld);
  Add("Timer1", Timer1);
  Add("DialogButtons1", DialogButtons1);
}

void frmTGList::RegisterProperties() {
  Properties["SQL"] = {[this] { return sql_; }, [this](const std::string& text) { SetSQL(text); }};
  Properties["Caption"] = {[this] { return Caption.get(); }, [this](const std::string& text) { Caption = text; }};
  Properties["SortBy"] = Text(SortBy);
  Properties["Title"] = Text(Title);
  Properties["ListName"] = Text(ListName);
  Properties["LayoutKey"] = Text(LayoutKey);
  Properties["IDFld"] = Text(IDFld);
  Properties["NamFld"] = Text(NamFld);
  Properties["Request"] = Text(Request);
  Properties["Result"] = Text(Result);
  Properties["Select_String"] = Text(Select_String);
  Properties["Whereto"] = Text(Whereto);
  Properties["Designation_String"] = Text(Designation_String);
  Properties["StartingID"] = Number(StartingID);
  Properties["ShowMode"] = Number(ShowMode);
  Properties["AllowEdit"] = Flag(AllowEdit);
  Properties["AllowDelete"] = Flag(AllowDelete);
  Properties["MultiSelect"] = Flag(MultiSelect);
  Properties["ShowFacilityOptions"] = Flag(ShowFacilityOptions);
  Properties["No_Double_Click"] = Flag(No_Double_Click);
  Properties["ShowPatientButtons"] = Flag(ShowPatientButtons);
}

}  // namespace lookup
