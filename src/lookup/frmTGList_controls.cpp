#include "forms/text.h"
#include "lookup/frmTGList.h"

namespace lookup {
namespace {

constexpr std::string_view kSkipListIfNew = "SKIP LIST IF NEW";

forms::Form::NamedProperty Text(std::string& value) {
  return {[&value] { return value; }, [&value](const std::string& text) { value = text; }};
}

forms::Form::NamedProperty Text(forms::Label& label) {
  return {[&label] { return label.Caption.get(); }, [&label](const std::string& text) { label.Caption = text; }};
}

forms::Form::NamedProperty Text(data::Sql& value) {
  return {[&value] { return value.Text(); }, [&value](const std::string& text) { value = data::Sql::OfHost(text); }};
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

std::string frmTGList::ResultText() const {
  switch (Result.end) {
    case session::ListOutcome::End::Chosen:
      return Chosen(IDFld.Caption.get());
    case session::ListOutcome::End::New:
      return "NEW";
    case session::ListOutcome::End::Cancelled:
      break;
  }
  return "CANCEL_AND_CLOSE";
}

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
  Properties["SQL"] = {[this] { return sql_.Text(); },
                       [this](const std::string& text) { SetSQL(data::Sql::OfHost(text)); }};
  Properties["Caption"] = {[this] { return Caption.get(); }, [this](const std::string& text) { Caption = text; }};
  Properties["SortBy"] = Text(SortBy);
  Properties["Title"] = Text(Title);
  Properties["ListName"] = Text(ListName);
  Properties["LayoutKey"] = Text(LayoutKey);
  Properties["IDFld"] = Text(IDFld);
  Properties["NamFld"] = Text(NamFld);
  Properties["Request"] = {[this] { return SkipIfNew ? std::string(kSkipListIfNew) : std::string(); },
                           [this](const std::string& text) { SkipIfNew = text.starts_with(kSkipListIfNew); }};
  Properties["Result"] = {[this] { return ResultText(); }, nullptr};
  Properties["Select_String"] = {[this] { return Result.text; }, nullptr};
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
