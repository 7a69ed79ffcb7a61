#include <algorithm>
#include <iterator>

#include "insurance/GrpPlaScreen.h"

namespace insurance {
namespace {

struct Captioned {
  GrpPlaScreen::Field field;
  const char* caption;
};
constexpr std::array kCaptions = {Captioned{GrpPlaScreen::kCarrier, "&INSURANCE COMPANY"},
                                  Captioned{GrpPlaScreen::kGroupNumber, "&GROUP NUMBER"},
                                  Captioned{GrpPlaScreen::kPlanName, "PLAN &NAME"},
                                  Captioned{GrpPlaScreen::kRenewal, "&EFFECTIVE"},
                                  Captioned{GrpPlaScreen::kMaximum1, "MA&X"},
                                  Captioned{GrpPlaScreen::kDeductible1, "DEDUCTI&BLE"},
                                  Captioned{GrpPlaScreen::kMaximum2, "MAX &2"},
                                  Captioned{GrpPlaScreen::kDeductible2, "DED&UCTABLE"},
                                  Captioned{GrpPlaScreen::kClaimForm, "CLAIM &FORM"},
                                  Captioned{GrpPlaScreen::kPayment, "PA&YMENT TYPE"},
                                  Captioned{GrpPlaScreen::kPreAuthorization, "PRE-AUTHORI&ZATION"},
                                  Captioned{GrpPlaScreen::kChildrenUntil, "C&HILDREN UNTIL"},
                                  Captioned{GrpPlaScreen::kStudentsUntil, "&STUDENTS UNTIL"},
                                  Captioned{GrpPlaScreen::kMaximum3, "MAX &3"},
                                  Captioned{GrpPlaScreen::kMaximum4, "MAX &4"},
                                  Captioned{GrpPlaScreen::kRemark1, "REMARK &1"},
                                  Captioned{GrpPlaScreen::kRemark2, "RE&MARK 2"}};

constexpr std::array kFormTypes = {"ADA 2024", "ADA 2019", "ADA 2012", "CMS-1500"};

void Fill(forms::ComboBox& box, const auto& texts) {
  std::vector<forms::ListItem> items;
  std::ranges::transform(texts, std::back_inserter(items), [](const char* text) { return forms::ListItem{text}; });
  box.Items = std::move(items);
}

// What an option's number means; empty for one that is none.
std::string Meaning(const std::string& number, const auto& meanings) {
  const std::size_t at = number.size() == 1 ? static_cast<std::size_t>(number.front() - '0') : meanings.size();
  return number.empty() ? meanings.front() : at < meanings.size() ? meanings.at(at) : "";
}

}  // namespace

void GrpPlaScreen::Setup_Screen() {
  for (std::size_t i = kCarrier; i < kFieldsEnd; ++i) {
    Add("Text1(" + std::to_string(i) + ")", Text1.at(i));
    Add("Label1(" + std::to_string(i) + ")", Label1.at(i));
  }
  for (const Captioned& captioned : kCaptions) {
    Label1.at(captioned.field).Caption = captioned.caption;
    Text1.at(captioned.field).Heading = &Label1.at(captioned.field);
  }
  Text1[kRenewal].Mask = "##-##";
  Text1[kRenewal].KeyPress = [](char32_t key) { return key == U'/' ? U'-' : key; };
  Text1[kRenewal].ToolTip = "Month and day on which the benefits of the plan renew";
  for (const Field age : {kChildrenUntil, kStudentsUntil}) {
    Text1.at(age).Mask = "###";
    Text1.at(age).ToolTip = "Age in years";
  }
  Text1[kPreAuthorization].KeyPress = [](char32_t key) { return key == U'y' ? U'Y' : key == U'n' ? U'N' : key; };
  Label3.Caption = "1 = Payment to Provider\r\n2 = Payment to Patient\r\n3 = Blank";
  Label4.Caption = "Y or N";

  Add("Label2", Label2);
  Add("Label3", Label3);
  Add("Label4", Label4);
  Add("cmdInsCo", cmdInsCo);
  Add("cmdRemIns", cmdRemIns);
  Add("InsPln_Cmd", InsPln_Cmd);
  cmdInsCo.Caption = "...";
  cmdInsCo.AccessibleName = "Insurance company list";
  cmdInsCo.ToolTip = "Search for the insurance company (F9)";
  cmdInsCo.TabStop = false;
  cmdRemIns.Caption = "&Remove Ins.";
  InsPln_Cmd.Caption = "Plan &Details...";
  InsPln_Cmd.ToolTip = "What the plan covers of each procedure";
  SetUpChoices();
  Add("DialogButtons1", DialogButtons1);
  DialogButtons1.Help.Visible = false;
  DialogButtons1.Help.Caption = "Help";  // the letter leads elsewhere

  Properties["InsuranceID"] = {[this] { return std::to_string(InsuranceID()); },
                               [this](const std::string& id) { SetInsuranceID(session::ToId(session::Value(id))); }};
}

void GrpPlaScreen::Setup_cboPlanType() {
  constexpr std::array kPlanTypes = {"INDEMNITY", "PPO", "CAPITATION", "MEDICAID", "DISCOUNT"};
  Fill(cboPlanType, kPlanTypes);
}

void GrpPlaScreen::SetUpChoices() {
  Add("lblPlanType", lblPlanType);
  Add("cboPlanType", cboPlanType);
  Add("cboFormType", cboFormType);
  Add("lblDedOption", lblDedOption);
  Add("chkDedOption", chkDedOption);
  Add("lblUseOfficeFees", lblUseOfficeFees);
  Add("chkUseOfficeFees", chkUseOfficeFees);
  Add("lblClaimFees", lblClaimFees);
  Add("optClaimFees", optClaimFees);
  Add("lblSubmitOfficeFees", lblSubmitOfficeFees);
  Add("picInsCOB", picInsCOB);
  Add("lblCoordOfBenefits", lblCoordOfBenefits);
  Add("optInsCOB", optInsCOB);
  Add("lblInsCOB", lblInsCOB);

  lblPlanType.Caption = "PLAN &TYPE";
  cboPlanType.Heading = &lblPlanType;
  Setup_cboPlanType();
  cboFormType.Heading = &Label1[kClaimForm];
  Fill(cboFormType, kFormTypes);
  Text1[kClaimForm].Visible = false;  // the list shows it
  for (forms::ComboBox* box : {&cboPlanType, &cboFormType}) {
    box->ToolTip = "Delete leaves none";
  }
  lblDedOption.Caption = "DEDUCTIBLE IS APPLIED";
  chkDedOption[kAsPercentage].Caption = "As a &percentage";
  chkDedOption[kAppliedLast].Caption = "&Last";
  lblUseOfficeFees.Caption = "PLAN'S PAYMENTS";
  chkUseOfficeFees.Caption = "Wor&ked out from the office's own fees";
  lblClaimFees.Caption = "FEES ON CLAIMS";
  optClaimFees[0].Caption = "Plan's o&wn fees";
  optClaimFees[1].Caption = "Offi&ce fees";
  lblCoordOfBenefits.Caption = "BEHIND ANOTHER PLAN";
  optInsCOB[0].Caption = "St&andard";
  optInsCOB[1].Caption = "Maintenance of benefits";
  optInsCOB[2].Caption = "Car&ve-out";
  claim_fees_.AccessibleName = "Fees on claims";
  claim_fees_.Told = [this](const std::string& number) {
    return number == "1" ? optClaimFees[1].SpokenName() : optClaimFees[0].SpokenName();
  };
  benefits_.AccessibleName = "Coordination of benefits";
  benefits_.Told = [this](const std::string& number) {
    return number == "2" ? optInsCOB[2].SpokenName() : optInsCOB[number == "1" ? 1 : 0].SpokenName();
  };
  for (forms::Control* control : std::initializer_list<forms::Control*>{&lblCoordOfBenefits, &optInsCOB[0],
                                                                        &optInsCOB[1], &optInsCOB[2], &lblInsCOB}) {
    control->Container = &picInsCOB;
  }
}

void GrpPlaScreen::Order() {
  Reads({&Text1[kCarrier],
         &cmdInsCo,
         &cmdRemIns,
         &Label2,
         &Text1[kGroupNumber],
         &Text1[kPlanName],
         &cboPlanType,
         &Text1[kRenewal],
         &Text1[kMaximum1],
         &Text1[kDeductible1],
         &Text1[kMaximum2],
         &Text1[kDeductible2],
         &Text1[kMaximum3],
         &Text1[kMaximum4],
         &Text1[kChildrenUntil],
         &Text1[kStudentsUntil],
         &lblDedOption,
         &chkDedOption[kAsPercentage],
         &chkDedOption[kAppliedLast],
         &cboFormType,
         &Text1[kPayment],
         &Label3,
         &Text1[kPreAuthorization],
         &Label4,
         &lblClaimFees,
         &optClaimFees[0],
         &optClaimFees[1],
         &lblSubmitOfficeFees,
         &lblUseOfficeFees,
         &chkUseOfficeFees,
         &picInsCOB,
         &Text1[kRemark1],
         &Text1[kRemark2],
         &InsPln_Cmd,
         &DialogButtons1});
}

void GrpPlaScreen::ShowChoices() {
  if (forms::TextBox& payment = Text1[kPayment]; payment.Text->empty()) {
    payment.Text = "1";
    Plan.MarkWritten(payment);
    Plan.Overwrite({data::RecordBinding::Conflict{payment, {}}});  // nothing is stored for all that
  }
  ShowCarrier();
  ShowClaimForm();
  const auto show = [](auto& options, const std::string& number) {
    for (std::size_t i = 0; i < options.size(); ++i) {
      options.at(i).Value = (number.empty() ? "0" : number) == std::to_string(i);
    }
  };
  show(optClaimFees, claim_fees_.Caption);
  show(optInsCOB, benefits_.Caption);
  ShowMeanings();
}

void GrpPlaScreen::ShowMeanings() {
  static const std::array<std::string, 2> kClaimFees = {"Claims carry the fees that the plan allows.",
                                                        "Claims carry what the office charges."};
  static const std::array<std::string, 3> kBenefits = {
      "Both plans together pay up to the full fee.",
      "This plan takes what the other one pays off the fee, then applies its rules.",
      "This plan takes what the other one pays off its own benefit."};
  lblSubmitOfficeFees.Caption = Meaning(claim_fees_.Caption, kClaimFees);
  lblInsCOB.Caption = Meaning(benefits_.Caption, kBenefits);
}

}  // namespace insurance
