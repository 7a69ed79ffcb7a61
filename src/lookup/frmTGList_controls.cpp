#include "forms/text.h"
#include "lookup/frmTGList.h"

namespace lookup {
namespace {

constexpr std::string_view kSkipListIfNew = "SKIP LIST IF NEW";

using Property = forms::Form::NamedProperty;

Property Named(std::string& value) {
  return {[&value] { return value; }, [&value](const std::string& text) { value = text; }};
}

Property Named(forms::Label& label) {
  return {[&label] { return label.Caption.get(); }, [&label](const std::string& text) { label.Caption = text; }};
}

Property Named(data::Sql& value) {
  return {[&value] { return value.Text(); }, [&value](const std::string& text) { value = data::Sql::OfHost(text); }};
}

Property Named(std::int32_t& value) {
  return {[&value] { return std::to_string(value); },
          [&value](const std::string& text) { value = session::ToId(text); }};
}

Property Named(bool& value) {
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
  Add("MnuFileExport", MnuFileExport);
  Add("MnuFileResDef", MnuFileResDef);
  Add("MnuFileExit", MnuFileExit);
  Add("MnuFilterCell", MnuFilterCell);
  Add("ToolStrip", ToolStrip);
  Add("pnlFacility", pnlFacility);
  Add("lblFacility", lblFacility);
  Add("cboFacility", cboFacility);
  cboFacility.Heading = &lblFacility;
  for (forms::Control* part :
       {static_cast<forms::Control*>(&lblFacility), static_cast<forms::Control*>(&cboFacility)}) {
    part->Container = &pnlFacility;
  }
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
  Properties["SortBy"] = Named(SortBy);
  Properties["ListName"] = Named(ListName);
  Properties["LayoutKey"] = Named(LayoutKey);
  Properties["IDFld"] = Named(IDFld);
  Properties["NamFld"] = Named(NamFld);
  Properties["AllowEdit"] = Named(AllowEdit);
  session::VisitOptions(Options, [this](const char* name, auto& option) { Properties[name] = Named(option); });
  // What the window itself calls them.
  Properties["Title"] = Named(Options.title);
  Properties["StartingID"] = Named(Options.selected);
  Properties["MultiSelect"] = Named(Options.multi_select);
  Properties["Request"] = {[this] { return Options.skip_if_new ? std::string(kSkipListIfNew) : std::string(); },
                           [this](const std::string& text) { Options.skip_if_new = text.starts_with(kSkipListIfNew); }};
  Properties["Result"] = {[this] { return ResultText(); }, nullptr};
  Properties["Select_String"] = {[this] { return Result.text; }, nullptr};
  Properties["Whereto"] = Named(Whereto);
  Properties["Designation_String"] = Named(Designation_String);
}

}  // namespace lookup
