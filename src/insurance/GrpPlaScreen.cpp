#include "insurance/GrpPlaScreen.h"

#include "forms/text.h"
#include "insurance/amounts.h"
#include "insurance/default_group_number.h"

namespace insurance {
namespace {

constexpr std::string_view kTable = "GROPLATABLE";
constexpr std::string_view kRight = "EDIT-EMP-INS";
constexpr std::int32_t kOldest = 99;  // years

constexpr std::array kAmounts = {GrpPlaScreen::kMaximum1,    GrpPlaScreen::kDeductible1, GrpPlaScreen::kMaximum2,
                                 GrpPlaScreen::kDeductible2, GrpPlaScreen::kMaximum3,    GrpPlaScreen::kMaximum4};

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
  Text1[kPayment].Leave = [this] {
    if (!Untouched(Text1[kPayment])) {
      TakePayment();
    }
  };
  Text1[kPreAuthorization].Leave = [this] { TakePreAuthorization(); };
  for (const Field amount : kAmounts) {
    Text1.at(amount).Leave = [this, amount] { TakeAmount(Text1.at(amount)); };
  }
  for (const Field age : {kChildrenUntil, kStudentsUntil}) {
    Text1.at(age).Leave = [this, age] { TakeAge(age); };
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
    if (ReadOnly() || Save()) {
      Close();
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };

  Edits(Plan);
  const auto adding = [this] { return Adding(); };
  OnSave(adding, [this] { Insert(); });
  OnSave(adding, [this] { Hold(std::string(kTable), Plan.Id()); });
  OnSave([this] { return Plan.Changed(); }, [this] { Update(); });
  OnSave([this] { return Adding() || Plan.Changed(); },
         [this] { context_.session.RecordHandOff("GroPlaInd", "GroPlaTable", Plan.Id()); });
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

void GrpPlaScreen::TellNumberAdded() {
  Tell(NumberRequired("If you do not enter a Group Number, a default value will be added when you close this screen. "),
       forms::Icon::Information);
  Text1[kGroupNumber].Text = DefaultNumber();
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

// The mask lets nothing but digits through.
bool GrpPlaScreen::TakeAge(Field field) {
  forms::TextBox& box = Text1.at(field);
  if (Untouched(box) || box.Text->empty()) {
    return true;
  }
  if (Number(box.Text) > kOldest) {
    return Refuse(field, box.SpokenName() + " field cannot be greater than " + std::to_string(kOldest) + ".");
  }
  box.Text = std::to_string(Number(box.Text));
  return true;
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
  if (type == "1" || type == "2" || type == "3") {
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
  return TakeRenewal() && TakeAge(kChildrenUntil) && TakeAge(kStudentsUntil) && TakePayment() && TakePreAuthorization();
}

session::Outcome GrpPlaScreen::Ended() const {
  return {.end = Saved ? session::Outcome::End::Saved : session::Outcome::End::Cancelled, .id = Plan.Id()};
}

}  // namespace insurance
