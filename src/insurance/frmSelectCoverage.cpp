#include "insurance/frmSelectCoverage.h"

#include "data/shared_record_texts.h"
#include "forms/text.h"

namespace insurance {

frmSelectCoverage::frmSelectCoverage(const session::ScreenContext& context)
    : Form("frmSelectCoverage"), Rules(context), ucSelCoverage1(context) {
  Caption = "Select Insurance Plan for this Patient";
  Add("lblEmployer", lblEmployer);
  Add("ucSelCoverage1", ucSelCoverage1);
  Add("DialogButtons1", DialogButtons1);
  DialogButtons1.Help.Visible = false;
  const auto number = [](std::int32_t& property) {
    return NamedProperty{[&property] { return std::to_string(property); },
                         [&property](const std::string& text) { property = session::ToId(session::Value(text)); }};
  };
  const auto flag = [](bool& property) {
    return NamedProperty{[&property] { return std::string(property ? "True" : "False"); },
                         [&property](const std::string& text) { property = forms::IsOn(text); }};
  };
  Properties["EmployerID"] = number(EmployerID);
  Properties["HideElID"] = number(HideElID);
  Properties["MustMakeSelection"] = flag(MustMakeSelection);
  Properties["SelectedCoverage"] = number(SelectedCoverage);
  Properties["SubscriberID"] = number(ucSelCoverage1.SubscriberID);
  Properties["PatientID"] = number(ucSelCoverage1.PatientID);
  Properties["Subscriber_elID"] = number(ucSelCoverage1.Subscriber_elID);
  Properties["ShowNone"] = flag(ucSelCoverage1.ShowNone);

  ucSelCoverage1.Accepted = [this] { Choose(); };
  ucSelCoverage1.Closed = [this] { DoClose(); };
  ucSelCoverage1.BeforeWriting = [this] { HoldEmployer(); };
  DialogButtons1.OK.Click = [this] { ucSelCoverage1.Accept(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
}

void frmSelectCoverage::OnLoad() {
  if (!Attempt([this] { Read(); })) {
    Close();
  }
}

void frmSelectCoverage::Read() {
  const forms::WaitText wait(context_.user, "  Loading Insurance Plans - Please Wait  ");
  const auto employer = data::NameOf(context_.session, data::SharedRecord::Employer, EmployerID);
  if (EmployerID == 0 || !employer) {
    throw editing::Refusal("Employer " + std::to_string(EmployerID) + " was not found in the database.");
  }
  lblEmployer.Caption = "Employer : " + *employer;
  ucSelCoverage1.EmployerID = EmployerID;
  ucSelCoverage1.HideElID = HideElID;
  ucSelCoverage1.Load_Information();
}

void frmSelectCoverage::Choose() {
  ucSelCoverage1.Save();
  SelectedCoverage = ucSelCoverage1.Selected_elID();
  Close();
}

// Choosing a plan changes nothing of the employer.
void frmSelectCoverage::HoldEmployer() {
  if (!hold_ || hold_->Holder()) {
    hold_.emplace(context_.session, "EMPTABLE", EmployerID);
  }
  hold_->Require();
}

// Who has nothing to choose from is not kept.
bool frmSelectCoverage::QueryClose() {
  if (!MustMakeSelection || ucSelCoverage1.TDBG.RowCount() == 0) {
    return true;
  }
  Tell("Please select an insurance plan.", forms::Icon::Information);
  ucSelCoverage1.TDBG.SetFocus();
  return false;
}

}  // namespace insurance
