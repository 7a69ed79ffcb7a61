#include "insurance/frmPPOAdjust.h"

#include <algorithm>
#include <cmath>

#include "data/literal.h"
#include "data/plan_details.h"
#include "data/shared_record_texts.h"
#include "forms/text.h"
#include "insurance/amounts.h"
#include "session/argument_text.h"

namespace insurance {
namespace {

using forms::Currency;
using session::RecordKind;

constexpr std::array kCaptions = {"&Employer",     "&Insurance Company",   "&Group Number",         "&Service Code",
                                  "O&ffice Fee",   "&Allowed Fee",         "Plan Ca&lculation Fee", "Co&verage Percent",
                                  "&Plan Payment", "Provider Ad&justment", "Patient Por&tion"};
static_assert(kCaptions.size() == frmPPOAdjust::kDetails);

// What a person may type; the payment only where the caller says so.
constexpr std::array kInputs = {frmPPOAdjust::kOfficeFee, frmPPOAdjust::kAllowedFee, frmPPOAdjust::kPlanCalculationFee,
                                frmPPOAdjust::kCoveragePercent, frmPPOAdjust::kPlanPayment};

bool IsNoCharge(std::size_t detail, std::string_view text) {
  return detail == frmPPOAdjust::kAllowedFee && forms::EqualsIgnoringCase(forms::Trim(text), "N/C");
}

bool IsBlank(const forms::TextBox& box) {
  return forms::Trim(box.Text.get()).empty();
}

// An amount in cents, as it is shown; `blank` for an empty field.
std::optional<Currency> AmountIn(const forms::TextBox& box, Currency blank = {}) {
  if (IsBlank(box)) {
    return blank;
  }
  const auto amount = AmountOf(box.Text.get());
  return amount ? std::optional(amount->RoundedToCents()) : std::nullopt;
}

std::string ShownFee(Currency fee) {
  return fee < Currency() ? std::string() : forms::FormatCurrency(fee);
}

std::string ShownPercent(double percent) {
  return forms::FormatPercent(percent / 100);
}

}  // namespace

frmPPOAdjust::frmPPOAdjust(const session::ScreenContext& context) : Form("frmPPOAdjust"), Rules(context) {
  Caption = "PPO Adjustment";
  VisitArguments(
      [this](const char* name, auto& value) {
        Properties[name] = {[&value] { return session::TextOf(value); },
                            [&value](const std::string& text) { session::ReadText(text, value); }};
      },
      Plan);
  Properties["Canceled"] = {[this] { return session::TextOf(Canceled); }, nullptr};
  Register();
  Wire();
}

void frmPPOAdjust::Register() {
  for (std::size_t detail = 0; detail < kDetails; ++detail) {
    const std::string place = "(" + std::to_string(detail) + ")";
    Add("lblDetails" + place, lblDetails.at(detail));
    Add("txtDetails" + place, txtDetails.at(detail));
    lblDetails.at(detail).Caption = kCaptions.at(detail);
    txtDetails.at(detail).Heading = &lblDetails.at(detail);
    txtDetails.at(detail).ReadOnly = std::ranges::find(kInputs, detail) == kInputs.end();
  }
  const auto add_icon = [this](const char* name, forms::PictureBox& icon, const char* caption, const char* tip) {
    Add(name, icon);
    icon.Caption = caption;
    icon.ToolTip = tip;
    icon.AccessibleName = tip;
    icon.Picture = "ICO/Large/Edit_32.png";
  };
  add_icon("ImaEditEmp", ImaEditEmp, "Edit Employe&r", "Edit the employer");
  add_icon("ImaEditInsCo", ImaEditInsCo, "Edit I&nsurance Company", "Edit the insurance company");
  add_icon("ImaEditPlan", ImaEditPlan, "E&dit Group Plan", "Edit the group plan");
  Add("picHelp", picHelp);
  Add("lblInfoTitle", lblInfoTitle);
  Add("lblInfoText", lblInfoText);
  lblInfoTitle.Container = lblInfoText.Container = &picHelp;
  Add("cmdOK", cmdOK);
  Add("cmdClose", cmdClose);
  cmdOK.Caption = "&OK";
  cmdClose.Caption = "&Close";
  cmdClose.CausesValidation = false;
  SetDefaultButton(&cmdOK);
  SetCancelButton(&cmdClose);
  ShowGeneralHelp();
  Reads({&txtDetails[kEmployer], &ImaEditEmp, &txtDetails[kCarrier], &ImaEditInsCo, &txtDetails[kGroupNumber],
         &ImaEditPlan});
}

void frmPPOAdjust::Wire() {
  for (const std::size_t detail : kInputs) {
    txtDetails.at(detail).Change = [this, detail] {
      payment_typed_ = payment_typed_ || detail == kPlanPayment;
      Calculate();
    };
    txtDetails.at(detail).Leave = [this, detail] { Leave(detail); };
  }
  ImaEditEmp.Click = [this] { Edit(RecordKind::Employer, Plan.employer_id); };
  ImaEditInsCo.Click = [this] { Edit(RecordKind::Carrier, Plan.carrier_id); };
  ImaEditPlan.Click = [this] { Edit(RecordKind::GroupPlan, Plan.group_id); };
  cmdOK.Click = [this] {
    if (Accept()) {
      Close();
    }
  };
  cmdClose.Click = [this] { DoClose(); };
}

void frmPPOAdjust::OnLoad() {
  const bool read = Attempt([this] {
    const forms::WaitText wait(context_.user, "  Loading Editing Screen - Please Wait  ");
    ShowNames();
    TakeServiceFee();
  });
  if (!read) {
    Close();
    return;
  }
  ShowPlan();
  txtDetails[kOfficeFee].SetFocus();
  std::ranges::all_of(kInputs, [this](std::size_t detail) { return Readable(detail); });
}

void frmPPOAdjust::ShowNames() {
  const auto show = [](const std::optional<std::string>& name, forms::TextBox& box, forms::PictureBox& icon) {
    box.Text = name.value_or(std::string());
    icon.Visible = name.has_value();
  };
  const auto name_of = [this](data::SharedRecord kind, std::int32_t id) {
    return id == 0 ? std::nullopt : data::NameOf(context_.session, kind, id);
  };
  show(name_of(data::SharedRecord::Employer, Plan.employer_id), txtDetails[kEmployer], ImaEditEmp);
  show(name_of(data::SharedRecord::Carrier, Plan.carrier_id), txtDetails[kCarrier], ImaEditInsCo);
  const auto plan = Plan.group_id == 0 ? std::nullopt : data::ReadGroupPlan(context_.session, Plan.group_id);
  show(plan ? std::optional(plan->key.group_number) : std::nullopt, txtDetails[kGroupNumber], ImaEditPlan);
  txtDetails[kServiceCode].Text = Plan.treatment_code;
}

void frmPPOAdjust::TakeServiceFee() {
  office_fee_ = Plan.office_fee;
  if (Plan.treatment_code.empty() || !office_fee_.IsZero()) {
    return;
  }
  const auto service = statements_.Select(
      "Select * from SevCodTable WHERE SevCodCod=" + data::Literal(Plan.treatment_code) + statements_.Office());
  if (!service->Eof()) {
    session::ReadText(session::ToText((*service)["sevcodFee"]), office_fee_);
  }
}

void frmPPOAdjust::Edit(RecordKind kind, std::int32_t id) {
  context_.screens.Edit(session::Opening::Existing(kind, id));
  ShowNames();
}

void frmPPOAdjust::ShowPlan() {
  txtDetails[kOfficeFee].Text = office_fee_.IsZero() ? std::string() : ShownFee(office_fee_);
  txtDetails[kAllowedFee].Text = ShownFee(Plan.allowed_fee);
  txtDetails[kPlanCalculationFee].Text = ShownFee(Plan.plan_calculation_fee);
  txtDetails[kCoveragePercent].Text = ShownPercent(std::fmin(std::fmax(Plan.coverage_percent, 0), 100));
  txtDetails[kPlanPayment].ReadOnly = !Plan.allow_edit_payment;
  payment_typed_ = Plan.allow_edit_payment && Plan.plan_payment.RoundedToCents() > Currency();
  if (payment_typed_) {
    txtDetails[kPlanPayment].Text = forms::FormatCurrency(Plan.plan_payment);
  }
  Calculate();
  for (const std::size_t detail : kInputs) {
    read_.at(detail) = Typed(detail);
  }
}

std::optional<PpoFees> frmPPOAdjust::Fees() const {
  const auto& allowed_box = txtDetails[kAllowedFee];
  const auto office = AmountIn(txtDetails[kOfficeFee]);
  const auto allowed =
      IsNoCharge(kAllowedFee, allowed_box.Text.get()) ? Currency() : AmountIn(allowed_box, session::kNoFee);
  const auto calculation = AmountIn(txtDetails[kPlanCalculationFee], session::kNoFee);
  const auto percent = PercentOf(txtDetails[kCoveragePercent].Text.get());
  const auto payment = payment_typed_ ? AmountIn(txtDetails[kPlanPayment]) : Currency();
  if (!office || !allowed || !calculation || !percent || !payment) {
    return std::nullopt;
  }
  return PpoFees{.office = *office,
                 .allowed = *allowed,
                 .calculation = *calculation,
                 .percent = *percent,
                 .typed_payment = payment->IsZero() ? std::nullopt : payment};
}

void frmPPOAdjust::Calculate() {
  const auto fees = Fees();
  const auto show = [split = fees ? std::optional(SplitFee(*fees)) : std::nullopt](forms::TextBox& box,
                                                                                   Currency PpoSplit::*part) {
    box.Text = split ? forms::FormatCurrency((*split).*part) : std::string();
  };
  if (!payment_typed_) {
    show(txtDetails[kPlanPayment], &PpoSplit::plan_payment);
  }
  show(txtDetails[kProviderAdjustment], &PpoSplit::provider_adjustment);
  show(txtDetails[kPatientPortion], &PpoSplit::patient_portion);
}

std::string frmPPOAdjust::Typed(std::size_t detail) const {
  const std::string& text = txtDetails.at(detail).Text.get();
  if (detail == kPlanPayment && !payment_typed_) {
    return {};
  }
  if (detail == kCoveragePercent) {
    const auto percent = PercentOf(text);
    return percent ? ShownPercent(*percent) : text;
  }
  if (IsNoCharge(detail, text)) {
    return forms::FormatCurrency({});
  }
  const auto amount = AmountOf(text);
  return amount ? forms::FormatCurrency(*amount) : text;
}

bool frmPPOAdjust::Readable(std::size_t detail) {
  forms::TextBox& box = txtDetails.at(detail);
  const std::string& text = box.Text.get();
  const std::string label = LabelOf(detail);
  const bool readable = IsBlank(box) || IsNoCharge(detail, text) ||
                        (detail == kCoveragePercent ? ReadPercent(context_.user, label, text).has_value()
                                                    : ReadAmount(context_.user, label, text).has_value());
  if (!readable) {
    box.SetFocus();
  }
  return readable;
}

void frmPPOAdjust::Leave(std::size_t detail) {
  if (!Readable(detail)) {
    return;
  }
  forms::TextBox& box = txtDetails.at(detail);
  if (detail == kPlanPayment) {
    payment_typed_ = payment_typed_ && !AmountIn(box).value_or(Currency()).IsZero();
  }
  box.Text = IsBlank(box) && detail != kCoveragePercent ? std::string() : Typed(detail);
  Calculate();
}

bool frmPPOAdjust::Accept() {
  if (!Settle() || !std::ranges::all_of(kInputs, [this](std::size_t detail) { return Readable(detail); })) {
    return false;
  }
  const auto fees = Fees();
  const PpoSplit split = SplitFee(fees.value());
  // One that was not given, and is not now, stays as it was.
  const auto take = [this](Currency& fee, Currency read, Detail detail) {
    fee = fee < Currency() && IsBlank(txtDetails.at(detail)) ? fee : read;
  };
  take(Plan.office_fee, fees->office, kOfficeFee);
  take(Plan.allowed_fee, fees->allowed, kAllowedFee);
  take(Plan.plan_calculation_fee, fees->calculation, kPlanCalculationFee);
  Plan.coverage_percent = fees->percent;
  Plan.plan_payment = split.plan_payment;
  Plan.provider_adjustment = split.provider_adjustment;
  Plan.patient_portion = split.patient_portion;
  Canceled = false;
  return true;
}

bool frmPPOAdjust::QueryClose() {
  if (std::ranges::all_of(kInputs, [this](std::size_t detail) { return Typed(detail) == read_.at(detail); })) {
    return true;
  }
  const forms::Answer answer = context_.user.Ask({.text = "Do you want to save changes?",
                                                  .title = "Save Changes",
                                                  .buttons = forms::kYesNoCancel,
                                                  .icon = forms::Icon::Question});
  return answer == forms::Answer::No || (answer == forms::Answer::Yes && Accept());
}

void frmPPOAdjust::OnFocus(forms::Control* control) {
  const auto field = std::ranges::find_if(txtDetails, [&](const forms::TextBox& box) { return &box == control; });
  if (field != txtDetails.end()) {
    const auto detail = static_cast<std::size_t>(field - txtDetails.begin());
    lblInfoTitle.Caption = LabelOf(detail);
    lblInfoText.Caption = HelpOn(detail);
  } else if (control != nullptr) {
    ShowGeneralHelp();
  }
}

void frmPPOAdjust::ShowGeneralHelp() {
  lblInfoTitle.Caption = "Help";
  lblInfoText.Caption =
      "The text in this area automatically changes to the appropriate information as the cursor is moved to different "
      "locations on the screen.";
}

std::string frmPPOAdjust::HelpOn(std::size_t detail) const {
  const std::string& text = txtDetails.at(detail).Text.get();
  if (detail == kProviderAdjustment && text.empty()) {  // there is none to describe
    return "This area will hold a brief description of the " + LabelOf(detail) + " field.";
  }
  const auto calculates = [this](Detail one, Detail other) {
    return "The " + LabelOf(one) + " is used along with the " + LabelOf(other) + " to calculate the " +
           LabelOf(kPlanPayment) + ".";
  };
  switch (detail) {
    case kEmployer:
      return "This is the subscriber's employer.";
    case kCarrier:
      return "This is the subscriber's insurance company.";
    case kGroupNumber:
      return "This is the group number for this insurance plan.";
    case kServiceCode:
      return "This is the ADA Service Code.";
    case kOfficeFee:
      return "The " + LabelOf(detail) + " is your usual fee for this Service Code.";
    case kAllowedFee:
      return "The " + LabelOf(detail) +
             " is the amount this insurance plan allows you to charge for this Service Code.";
    case kPlanCalculationFee:
      return calculates(kPlanCalculationFee, kCoveragePercent);
    case kCoveragePercent:
      return calculates(kCoveragePercent, kPlanCalculationFee);
    case kPlanPayment:
      return "The " + LabelOf(detail) + " is the insurance payment amount.";
    case kProviderAdjustment:
      return "The difference between your usual Office Fee and the Approved/Accepted Fee is the amount that will be "
             "adjusted (" +
             text + ").";
    default:
      return "This is the amount that is due from the patient.";
  }
}

std::string frmPPOAdjust::LabelOf(std::size_t detail) const {
  return forms::WithoutMnemonic(lblDetails.at(detail).Caption.get());
}

}  // namespace insurance
