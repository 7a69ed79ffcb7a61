#include "data/group_plans.h"
#include "forms/text.h"
#include "insurance/GrpPlaScreen.h"
#include "insurance/amounts.h"

namespace insurance {
namespace {

// The office keeps its own coverage details under this number.
constexpr std::string_view kReservedNumber = "GLOBAL";

// A field that no plan with a group number is without.
struct Required {
  GrpPlaScreen::Field field;
  std::string_view setting;
  std::string_view fallback;
  std::string_view told;
  const data::Format& format;
};
constexpr std::array kRequired = {
    Required{GrpPlaScreen::kMaximum1, "INS_ANN_COV", "1000.00", "Individual Annual Coverage is required, Default to ",
             data::kCurrency},
    Required{GrpPlaScreen::kDeductible1, "INS_ANN_DED", "50.00",
             "Individual Annual Deductible is required, Default to ", data::kCurrency},
    Required{GrpPlaScreen::kRenewal, "INS_REN_DAT", "01-01", "Renewal Date is required, Default to ", data::kMonthDay}};

constexpr const char* kCarrierRequired =
    "Please enter the required field [Insurance Co.] before attempting to save this Group Plan.";
constexpr const char* kTaken =
    "The [Group Number] and [Plan Name] is in use.\r\nThese two fields must carry a unique combination.\r\nWe suggest "
    "that you enter a unique Plan Name for duplicate Group Numbers.\r\nClick [OK] to return to the Group Plan "
    "Information screen.";
constexpr const char* kSaveChanges = "Save current changes?";

}  // namespace

bool GrpPlaScreen::RefuseCarrier() {
  return Refuse(kCarrier, kCarrierRequired);
}

// What the office has set counts when it is such a value, in the form that it is kept in.
void GrpPlaScreen::FillRequired() {
  for (const Required& required : kRequired) {
    forms::TextBox& box = Text1.at(required.field);
    if (!box.Text->empty()) {
      continue;
    }
    std::string value = context_.session.OfficeSetting(kOfficeSetup, required.setting);
    auto taken = required.format.take(value, context_.session.Today());
    if (required.field == kRenewal ? !taken || session::ToText(*taken) != value : !AmountOf(value)) {
      value = required.fallback;
      taken = required.format.take(value, context_.session.Today());
    }
    Tell(std::string(required.told) + value, forms::Icon::Information);
    box.Text = required.format.show(*taken);
  }
}

bool GrpPlaScreen::Check() {
  for (const Field text : {kGroupNumber, kPlanName, kRemark1, kRemark2}) {
    if (!Untouched(Text1.at(text))) {
      Text1.at(text).Text = std::string(forms::Trim(Text1.at(text).Text.get()));
    }
  }
  if (InsuranceID() == 0) {
    return RefuseCarrier();
  }
  if (!HasGroupNumber() && closing_) {
    TellNumberAdded();
  }
  if (!HasGroupNumber()) {
    return Refuse(kGroupNumber,
                  "Please enter the required field [Group Number] before attempting to save this Group Plan.");
  }
  if (Plan.Changed(Text1[kGroupNumber]) && forms::EqualsIgnoringCase(Text1[kGroupNumber].Text.get(), kReservedNumber)) {
    return Refuse(kGroupNumber,
                  "The group number GLOBAL stands for the office's own coverage details. Please enter "
                  "another Group Number.");
  }
  if (!TakeFields()) {
    return false;
  }
  if (IsTaken()) {
    return Refuse(kPlanName, kTaken);
  }
  FillRequired();
  return true;
}

std::string GrpPlaScreen::Stored(Field field) const {
  return forms::Fitting(Text1.at(field).Text.get(), Text1.at(field).MaxLength);
}

// Two that others have stored alike are not in the way of other changes.
bool GrpPlaScreen::IsTaken() const {
  return (Adding() || Plan.Changed(Text1[kGroupNumber]) || Plan.Changed(Text1[kPlanName])) &&
         data::GroupPlans(context_.session).IsTaken(Stored(kGroupNumber), Stored(kPlanName), Plan.Id());
}

void GrpPlaScreen::RequireStillValid() const {
  if (IsTaken()) {
    throw editing::Refusal(kTaken);
  }
  if (InsuranceID() == 0) {
    throw editing::Refusal(kCarrierRequired);
  }
}

bool GrpPlaScreen::Agreed() {
  return Adding() || AgreesToDetails();
}

bool GrpPlaScreen::AgreesToDetails() const {
  const data::GroupPlans plans(context_.session);
  const data::PlanKey from = plans.KeyOf(Plan.Id());
  data::PlanKey to = from;
  if (Plan.Changed(insurance_)) {
    to.carrier = InsuranceID();
  }
  if (Plan.Changed(Text1[kGroupNumber])) {
    to.group_number = Stored(kGroupNumber);
  }
  const data::DetailsMove move = plans.MoveOf(Plan.Id(), from, to);
  std::string text;
  if (move == data::DetailsMove::There) {
    text =
        "There are coverage details already under this insurance company and group number.\r\nThis plan will use "
        "those. Details that it uses now will stay where they are.";
  } else if (move == data::DetailsMove::Shared) {
    text =
        "Another group plan uses the coverage details of this plan.\r\nThey will stay with that plan, and this one "
        "will have none under its new insurance company and group number.";
  }
  return text.empty() || Warn(text + "\r\nClick [OK] to save the plan, or [Cancel] to go back to the screen.");
}

// A plan without a number gets one even when nothing else was changed.
bool GrpPlaScreen::QueryClose() {
  const bool fills = !Adding() && !ReadOnly() && !Unsaved() && !HasGroupNumber();
  bool closes = false;
  closing_ = true;
  Attempt([&] {
    if (fills) {
      TellNumberAdded();
    }
    closes = fills ? Save() : EditingForm::QueryClose();
  });
  closing_ = false;
  return closes;
}

GrpPlaScreen::ClosingQuestion GrpPlaScreen::OnClosing() const {
  return {.text = kSaveChanges, .offers_to_save = true};
}

void GrpPlaScreen::Insert() {
  session::Transaction transaction(context_.session.Connection());
  RequireStillValid();
  Plan.Insert();
  transaction.Commit();
}

// The plan, the links that name its carrier, and the details that are known by carrier and number: together.
void GrpPlaScreen::Update() {
  const data::GroupPlans plans(context_.session);
  session::Transaction transaction(context_.session.Connection());
  RequireStillValid();
  const data::PlanKey before = plans.KeyOf(Plan.Id());
  Plan.Write();
  plans.Follow(Plan.Id(), before, Plan.Changed(Text1[kPlanName]));
  transaction.Commit();
  Plan.MarkUpdated();
}

// They are kept under the carrier and number that are stored.
void GrpPlaScreen::OpenDetails() {
  if (Adding()) {
    if (!Confirm("Nothing to edit.\r\nDo you want to add one?") || !Save()) {
      return;
    }
  } else if (!ReadOnly() && (Plan.Changed(insurance_) || Plan.Changed(Text1[kGroupNumber]))) {
    const auto answer = context_.user.Ask({.text = kSaveChanges,
                                           .title = std::string(forms::kSuiteTitle),
                                           .buttons = forms::kYesNoCancel,
                                           .icon = forms::Icon::Question});
    if (answer == forms::Answer::Cancel || (answer == forms::Answer::Yes && !Save())) {
      return;
    }
  }
  if (const std::int32_t carrier = IfThere(Plan.Stored(insurance_)); carrier != 0) {
    context_.screens.ShowPlanDetails({.carrier = carrier, .plan = Plan.Id()});
  } else {
    RefuseCarrier();
  }
}

}  // namespace insurance
