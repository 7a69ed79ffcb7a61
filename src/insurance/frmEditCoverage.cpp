#include "insurance/frmEditCoverage.h"

#include "data/coverages.h"
#include "data/literal.h"
#include "data/old_balances.h"
#include "forms/text.h"
#include "insurance/amounts.h"

namespace insurance {
namespace {

constexpr std::string_view kRight = "Change-Ins-Plan-Detail";

struct Column {
  data::Words name;
  const char* caption = nullptr;
};
// In the order of `txtBenefit`.
constexpr std::array kColumns = {Column{"CovRemBal", "Remaining &balance"},
                                 Column{"CovRemDed", "Remaining &deductible"}, Column{"CovYTD", "&Used year to date"},
                                 Column{"CovLastRenewalYear", "&Year last renewed"}};

}  // namespace

frmEditCoverage::frmEditCoverage(const session::ScreenContext& context)
    : EditingForm("frmEditCoverage", context),
      ucEditCoverage1(context),
      Benefits(context.session, "CovTable", "CovID") {
  for (std::size_t i = 0; i < txtBenefit.size(); ++i) {
    Benefits.Bind(txtBenefit.at(i), kColumns.at(i).name, i == kYear ? data::kPlain : data::kCurrency);
  }
  Register();
  Wire();
}

void frmEditCoverage::Register() {
  Add("ucEditCoverage1", ucEditCoverage1);
  Add("fraBenefits", fraBenefits);
  Add("lblBenefit", lblBenefit);
  Add("txtBenefit", txtBenefit);
  for (std::size_t i = 0; i < txtBenefit.size(); ++i) {
    lblBenefit.at(i).Caption = kColumns.at(i).caption;
    txtBenefit.at(i).Heading = &lblBenefit.at(i);
    lblBenefit.at(i).Container = txtBenefit.at(i).Container = &fraBenefits;
  }
  fraBenefits.Enabled = false;
  SetDefaultButton(&ucEditCoverage1.TB["OKAY"]);
  SetCancelButton(&ucEditCoverage1.TB["CLOSE"]);
  Reads({&ucEditCoverage1, &fraBenefits});
  Properties["PatientID"] = {[this] { return std::to_string(PatientID); },
                             [this](const std::string& text) { PatientID = session::ToId(session::Value(text)); }};
}

void frmEditCoverage::Wire() {
  for (const Benefit which : {kBalance, kDeductible, kYearToDate}) {
    txtBenefit.at(which).Leave = [this, which] { TakeAmount(which); };
  }
  txtBenefit[kYear].Leave = [this] { TakeYear(); };
  ucEditCoverage1.BeforeWriting = [this] { RequireHold(); };
  ucEditCoverage1.MayLeave = [this] {
    const bool may = !Unsaved() || QueryClose();
    if (may && Benefits.Changed()) {  // given up
      ShowBenefits();
    }
    return may;
  };
  ucEditCoverage1.Highlighted = [this] { Highlighted(); };
  ucEditCoverage1.Changed = [this] { Saved = true; };
  ucEditCoverage1.Closing = [this](const std::string& key) {
    if (key != "OKAY") {
      DoClose();
    } else if (!Unsaved() || Save()) {
      Close();
    }
  };
  Edits(Benefits);
  OnSave([this] { return Benefits.Changed(); }, [this] { Benefits.Update(); });
}

void frmEditCoverage::Read() {
  Caption = "Insurance Coverage";
  if (PatientID != 0) {
    Hold("PATABLE", PatientID);
  }
  if (!context_.session.HasRight(kRight)) {
    for (forms::TextBox& box : txtBenefit) {
      LookOnly(box, [this] { return MayModify() && HasRight(kRight, "insurance plan details"); });
    }
  }
  if (PatientID == 0 || !ReadPatient()) {
    Tell("Patient " + std::to_string(PatientID) + " was not found in the database.", forms::Icon::Information);
    Close();
  }
}

bool frmEditCoverage::ReadPatient() {
  const auto patient = statements_.Select("SELECT " + data::OldBalanceColumns() +
                                          " FROM PATable WHERE pID=" + data::Literal(PatientID) + statements_.Office());
  if (patient->Eof()) {
    return false;
  }
  if (!ReadOnly() && data::HasOldBalances(*patient)) {
    Saved = data::CarryOldBalances(context_.session, PatientID);
  }
  ucEditCoverage1.PatientID = PatientID;
  ucEditCoverage1.Show();
  return true;
}

// A plan that is being linked is left before the screen is.
bool frmEditCoverage::OnKey(forms::Key key) {
  if (key == forms::Key::Esc && ucEditCoverage1.Link.Started()) {
    ucEditCoverage1.Link.Stop();
    return true;
  }
  return EditingForm::OnKey(key);
}

bool frmEditCoverage::Check() {
  return Readable(Benefits) && Attempt([this] { RequireLive(); });
}

// It may end while a question stands: plans are changed without the patient's record.
bool frmEditCoverage::Agreed() {
  RequireLive();
  return true;
}

void frmEditCoverage::RequireLive() const {
  if (Benefits.Changed() && !data::Coverages(context_.session).Live(Benefits.Id())) {
    throw editing::Refusal(
        "This insurance coverage has been changed elsewhere meanwhile. Your entries are still on the screen; nothing "
        "was saved.");
  }
}

// Amounts that are not saved yet stay, with the coverage that they are of.
void frmEditCoverage::Highlighted() {
  const std::int32_t shown = Benefits.Id();
  if (Unsaved() && !ucEditCoverage1.Lists(shown)) {
    ShowBenefits();
    Tell(
        "This insurance coverage has been changed elsewhere meanwhile. What was typed about its benefits was not "
        "saved.",
        forms::Icon::Exclamation);
    return;
  }
  if (ucEditCoverage1.CoverageID() == shown || (Unsaved() && !QueryClose() && ucEditCoverage1.Highlight(shown))) {
    return;
  }
  ShowBenefits();
}

void frmEditCoverage::ShowBenefits() {
  const std::int32_t coverage = ucEditCoverage1.CoverageID();
  fraBenefits.Enabled = Benefits.Read(coverage) && coverage != 0;
}

void frmEditCoverage::TakeAmount(Benefit which) {
  forms::TextBox& box = txtBenefit.at(which);
  if (box.Text->empty() || !Benefits.Changed(box)) {
    return;
  }
  if (const auto amount = ReadAmount(context_.user, box.SpokenName(), box.Text.get())) {
    box.Text = forms::FormatCurrency(*amount);
  } else {
    box.SetFocus();
  }
}

void frmEditCoverage::TakeYear() {
  forms::TextBox& box = txtBenefit[kYear];
  const std::int32_t year = session::ToId(session::Value(box.Text.get()));
  if (!box.Text->empty() && Benefits.Changed(box) && !data::IsBenefitYear(year)) {
    Tell(ToldBack(box.Text.get()) + " is not a year.", forms::Icon::Information);
    box.SetFocus();
  }
}

}  // namespace insurance
