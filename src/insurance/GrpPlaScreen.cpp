#include "insurance/GrpPlaScreen.h"

#include "data/group_plans.h"
#include "forms/text.h"
#include "insurance/amounts.h"
#include "insurance/default_group_number.h"

namespace insurance {
namespace {

constexpr std::string_view kTable = "GROPLATABLE";
constexpr std::string_view kRight = "EDIT-EMP-INS";
constexpr std::string_view kOfficeSetup = "DEFAULT_OFFICE_SETUP";
// The office keeps its own coverage details under this number.
constexpr std::string_view kReservedNumber = "GLOBAL";

constexpr std::array kAmounts = {GrpPlaScreen::kMaximum1,    GrpPlaScreen::kDeductible1, GrpPlaScreen::kMaximum2,
                                 GrpPlaScreen::kDeductible2, GrpPlaScreen::kMaximum3,    GrpPlaScreen::kMaximum4};

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

std::string NumberRequired(std::string_view ending) {
  return "Group Number is required for Insurance Patients.\r\nIf there is no group number enter two dollar signs ($$) "
         "immediately followed by the plan name name or other abbreviation.\r\n" +
         std::string(ending);
}

std::int32_t Number(const std::string& text) {
  return session::ToId(session::Value(text));
}

}  // namespace

GrpPlaScreen::GrpPlaScreen(const session::ScreenContext& context)
    : EditingForm("GrpPlaScreen", context), Plan(context.session, "GroPlaTable", "GroPlaInd") {
  Bind();
  Setup_Screen();
  Order();
  Wire();
}

void GrpPlaScreen::Bind() {
  Plan.Bind(insurance_, "GroPlaInsID");
  Plan.Bind(Text1[kGroupNumber], "GroPlaGroNum");
  Plan.Bind(Text1[kPlanName], "GroPlaNam");
  Plan.Bind(cboPlanType, "GroPlaCat");
  Plan.Bind(Text1[kRenewal], "GroPlaEffDat", data::kMonthDay);
  Plan.Bind(Text1[kMaximum1], "GroPlaMax1", data::kCurrency);
  Plan.Bind(Text1[kDeductible1], "GroPlaDed1", data::kCurrency);
  Plan.Bind(Text1[kMaximum2], "GroPlaMax2", data::kCurrency);
  Plan.Bind(Text1[kDeductible2], "GroPlaDed2", data::kCurrency);
  Plan.Bind(Text1[kMaximum3], "GroPlaMax3", data::kCurrency);
  Plan.Bind(Text1[kMaximum4], "GroPlaMax4", data::kCurrency);
  Plan.Bind(chkDedOption[kAsPercentage], "GroPlaDedPct");
  Plan.Bind(chkDedOption[kAppliedLast], "GroPlaAppDedLas");
  Plan.Bind(Text1[kChildrenUntil], "GroPlaChiCovTil");
  Plan.Bind(Text1[kStudentsUntil], "GroPlaStuCovTil");
  Plan.Bind(cboFormType, "GroPlaForTyp");
  Plan.Bind(Text1[kPayment], "GroPlaPayTyp");
  Plan.Bind(Text1[kPreAuthorization], "GroPlaPreAutReq", data::kYesNo);
  Plan.Bind(chkUseOfficeFees, "GroPlaUseOffFee");
  Plan.Bind(claim_fees_, "GroPlaSubOffFee");
  Plan.Bind(benefits_, "GroPlaCOB");
  Plan.Bind(Text1[kRemark1], "GroPlaRem1");
  Plan.Bind(Text1[kRemark2], "GroPlaRem2");
}

void GrpPlaScreen::Wire() {
  WireCarrier();
  Text1[kGroupNumber].Leave = [this] { RequireGroupNumber(); };
  Text1[kRenewal].Leave = [this] { TakeRenewal(); };
  Text1[kPayment].Leave = [this] { TakePayment(); };
  Text1[kPreAuthorization].Leave = [this] { TakePreAuthorization(); };
  for (const Field amount : kAmounts) {
    Text1.at(amount).Leave = [this, amount] { TakeAmount(Text1.at(amount)); };
  }
  for (const Field age : {kChildrenUntil, kStudentsUntil}) {
    Text1.at(age).Leave = [this, age] { TakeAge(Text1.at(age)); };
  }
  for (forms::ComboBox* box : {&cboPlanType, &cboFormType}) {
    box->Click = box->Leave = [this] { ShowClaimForm(); };
    box->KeyDown = [this, box](forms::Key key) {
      if (key == forms::Key::Delete) {
        box->SetFieldText({});
        ShowClaimForm();
      }
      return key == forms::Key::Delete;
    };
  }
  const auto choose = [this](auto& options, forms::Label& number) {
    for (std::size_t i = 0; i < options.size(); ++i) {
      options.at(i).Click = [this, i, &number] {
        number.Caption = std::to_string(i);
        ShowMeanings();
      };
    }
  };
  choose(optClaimFees, claim_fees_);
  choose(optInsCOB, benefits_);
  InsPln_Cmd.Click = [this] { OpenDetails(); };
  DialogButtons1.OK.Click = [this] {
    if ((!Adding() && !Unsaved()) || Save()) {
      Close();
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };

  Edits(Plan);
  const auto adding = [this] { return Adding(); };
  OnSave(adding, [this] { Plan.Insert(); });
  OnSave(adding, [this] { Hold(std::string(kTable), Plan.Id()); });
  OnSave([this] { return Plan.Changed(); }, [this] { Update(); });
  OnSave([] { return true; }, [this] { context_.session.RecordHandOff("GroPlaInd", "GroPlaTable", Plan.Id()); });
}

void GrpPlaScreen::Read() {
  Caption = "Group Plan Information";
  const bool may_edit = RequireRight(kRight, "group plans");
  if (!Opened.IsNew()) {
    ReadExisting();
  } else if (may_edit) {
    ReadNew();
  } else {
    MayModify();
    Close();
  }
  if (Closed()) {
    return;
  }
  for (const Field flag : {kPayment, kPreAuthorization}) {
    Text1.at(flag).MaxLength = 1;
  }
  for (forms::Control* control : std::initializer_list<forms::Control*>{
           &cboPlanType, &cboFormType, &chkDedOption[0], &chkDedOption[1], &chkUseOfficeFees, &optClaimFees[0],
           &optClaimFees[1], &optInsCOB[0], &optInsCOB[1], &optInsCOB[2]}) {
    control->Enabled = !ReadOnly();
  }
  ShowChoices();
}

void GrpPlaScreen::ReadExisting() {
  if (Opened.id != 0 && !ReadOnly()) {
    Hold(std::string(kTable), Opened.id);
  }
  if (Opened.id == 0 || !Plan.Read(Opened.id)) {
    Tell("Group plan " + std::to_string(Opened.id) + " was not found in the database.", forms::Icon::Information);
    Close();
  }
}

void GrpPlaScreen::ReadNew() {
  const auto set = [this](std::string_view setting) {
    return forms::IsOn(context_.session.OfficeSetting(kOfficeSetup, setting)) ? "1" : "0";
  };
  Plan.Read(0);
  Text1[kPayment].Text = "1";
  Text1[kPreAuthorization].Text = "N";
  chkDedOption[kAsPercentage].SetFieldText(set("INS_DED_PCT"));
  chkDedOption[kAppliedLast].SetFieldText(set("INS_DED_LAST"));
  claim_fees_.Caption = "0";
  benefits_.Caption = "0";
  SetInsuranceID(Opened.carrier);
  Plan.MarkWritten();
}

bool GrpPlaScreen::HasGroupNumber() const {
  return !forms::Trim(Text1[kGroupNumber].Text.get()).empty();
}

std::string GrpPlaScreen::DefaultNumber() const {
  return DefaultGroupNumber(Text1[kCarrier].Text.get(), Text1[kPlanName].Text.get());
}

void GrpPlaScreen::RequireGroupNumber() {
  if (HasGroupNumber() || closing_ || ReadOnly()) {
    return;
  }
  const std::string number = DefaultNumber();
  const auto answer = context_.user.Ask({.text = NumberRequired("Please select 'OK' to accept a default value [" +
                                                                number + "], or 'Cancel' to enter one manually."),
                                         .title = std::string(forms::kSuiteTitle),
                                         .buttons = forms::kOkCancel,
                                         .icon = forms::Icon::Information});
  if (answer == forms::Answer::OK) {
    Text1[kGroupNumber].Text = number;
  } else {
    Text1[kGroupNumber].SetFocus();
  }
}

bool GrpPlaScreen::Refuse(Field field, std::string text) {
  Tell(std::move(text), forms::Icon::Information);
  Text1.at(field).SetFocus();
  return false;
}

bool GrpPlaScreen::TakeAmount(forms::TextBox& box) {
  const std::string text(forms::Trim(box.Text.get()));
  if (Untouched(box)) {
    return true;
  }
  if (text.empty()) {
    box.Text = text;
    return true;
  }
  const auto amount = ReadAmount(context_.user, box.SpokenName(), text);
  if (!amount) {
    box.SetFocus();
    return false;
  }
  box.Text = forms::FormatCurrency(*amount);
  return true;
}

// The mask lets nothing but two digits through.
void GrpPlaScreen::TakeAge(forms::TextBox& box) const {
  if (!Untouched(box) && !box.Text->empty()) {
    box.Text = std::to_string(Number(box.Text));
  }
}

bool GrpPlaScreen::TakeRenewal() {
  forms::TextBox& box = Text1[kRenewal];
  const std::string_view text = forms::Trim(box.Text.get());
  if (Untouched(box) || text.empty()) {
    return true;
  }
  const auto day = data::kMonthDay.take(text, context_.session.Today());
  if (!day) {
    return Refuse(kRenewal, ToldBack(text) + " is not a day of the year. Please type month and day as mm-dd.");
  }
  box.Text = session::ToText(*day);
  return true;
}

bool GrpPlaScreen::TakePayment() {
  forms::TextBox& box = Text1[kPayment];
  const std::string& type = box.Text;
  if (Untouched(box) || type == "1" || type == "2" || type == "3") {
    return true;
  }
  box.Text = "1";
  return Refuse(kPayment,
                "Valid payment types are 1, 2, and 3.\r\n1 = Payment to Provider\r\n2 = Payment to "
                "Patient\r\n3 = Blank");
}

// Emptied, it is not required.
bool GrpPlaScreen::TakePreAuthorization() {
  forms::TextBox& box = Text1[kPreAuthorization];
  if (!Untouched(box) && box.Text->empty()) {
    box.Text = "N";
  }
  return Untouched(box) || data::kYesNo.take(box.Text.get(), {}) ||
         Refuse(kPreAuthorization, "Please enter Y when the plan requires pre-authorization, or N when it does not.");
}

bool GrpPlaScreen::TakeFields() {
  for (const Field amount : kAmounts) {
    if (!TakeAmount(Text1.at(amount))) {
      return false;
    }
  }
  return TakeRenewal() && TakePayment() && TakePreAuthorization();
}

// What the office has set counts when it is such a value.
void GrpPlaScreen::FillRequired() {
  for (const Required& required : kRequired) {
    forms::TextBox& box = Text1.at(required.field);
    if (!box.Text->empty()) {
      continue;
    }
    std::string value = context_.session.OfficeSetting(kOfficeSetup, required.setting);
    auto taken = required.format.take(value, context_.session.Today());
    if (!taken) {
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
    return Refuse(kCarrier,
                  "Please enter the required field [Insurance Co.] before attempting to save this Group Plan.");
  }
  if (!HasGroupNumber() && closing_) {
    Tell(NumberRequired("If you do not enter a Group Number, a default value will be added when you close this "
                        "screen. "),
         forms::Icon::Information);
    Text1[kGroupNumber].Text = DefaultNumber();
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
  FillRequired();
  return true;
}

// As they will be stored.
bool GrpPlaScreen::Agreed() {
  const auto stored = [this](Field field) {
    return forms::Fitting(Text1.at(field).Text.get(), Text1.at(field).MaxLength);
  };
  return !data::GroupPlans(context_.session).IsTaken(stored(kGroupNumber), stored(kPlanName), Plan.Id()) ||
         Refuse(kPlanName,
                "The [Group Number] and [Plan Name] is in use.\r\nThese two fields must carry a unique "
                "combination.\r\nWe suggest that you enter a unique Plan Name for duplicate Group Numbers.\r\nClick "
                "[OK] to return to the Group Plan Information screen.");
}

bool GrpPlaScreen::QueryClose() {
  closing_ = true;
  const bool closes = EditingForm::QueryClose();
  closing_ = false;
  return closes;
}

// The plan, the links that name its carrier, and the details that are known by carrier and number: together.
void GrpPlaScreen::Update() {
  const data::GroupPlans plans(context_.session);
  session::Transaction transaction(context_.session.Connection());
  const data::PlanDetailsKey before = plans.KeyOf(Plan.Id());
  Plan.Write();
  plans.Follow(Plan.Id(), before);
  transaction.Commit();
  Plan.MarkUpdated();
}

// They are kept under the carrier and number that are stored.
void GrpPlaScreen::OpenDetails() {
  if (Adding() && (!Confirm("Nothing to edit.\r\nDo you want to add one?") || !Save())) {
    return;
  }
  context_.screens.ShowPlanDetails({.carrier = Number(Plan.Stored(insurance_)), .plan = Plan.Id()});
}

session::Outcome GrpPlaScreen::Ended() const {
  return {.end = Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled, .id = Plan.Id()};
}

}  // namespace insurance
