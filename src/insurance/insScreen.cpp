#include "insurance/insScreen.h"

#include "data/shared_records.h"
#include "editing/customary_form.h"
#include "forms/text.h"
#include "forms/us_numbers.h"

namespace insurance {
namespace {

using data::Words;
using Guarded = editing::SharedRecordGuard::Guarded;

constexpr std::string_view kRight = "EDIT-EMP-INS";
constexpr std::string_view kRightWhat = "insurance companies";
constexpr editing::SharedKind kCarriers = {.table = "InsCoTable",
                                           .key = "InsCoInd",
                                           .information = "Insurance",
                                           .record = "insurance company",
                                           .entry = "Insurance Co.",
                                           .category = "LogInsCo"};
constexpr data::SharedTable kPharmacies = data::TableOf(data::SharedRecord::Pharmacy);

// By position in `Text1`.
constexpr std::array kCarrierColumns = {
    Words("InsCoNam"),  Words("InsCoAdd1"), Words("InsCoAdd2"),   Words("InsCoCit"),   Words("InsCoSta"),
    Words("InsCoZip"),  Words("InsCoTel"),  Words("InsCoTel2"),   Words("InsCoFax"),   Words("InsCoRem1"),
    Words("InsCoRem2"), Words("InsCoEma"),  Words("InsCoPreFix"), Words("InsCoAccID"), Words("InsCoSWChr")};
constexpr std::array kPharmacyColumns = {Words("PhaNam"), Words("PhaAdd1"), Words("PhaAdd2"), Words("PhaCit"),
                                         Words("PhaSta"), Words("PhaZip"),  Words("PhaTel"),  Words("PhaTel2"),
                                         Words("PhaFax"), Words("PhaRem1"), Words("PhaRem2"), Words("PhaEma")};
constexpr std::array kCaptions = {"I&nsurance Name", "ADDRESS &1",  "ADDRESS &2",       "CIT&Y",
                                  "&STATE",          "&ZIP",        "&PHONE NUMBER 1",  "PHONE NUM&BER 2",
                                  "&FAX NUMBER",     "&REMARK 1",   "REMAR&K 2",        "&E-MAIL",
                                  "CLAIM PREFI&X",   "ACCOUNT I&D", "S&WITCH CHARACTER"};

constexpr const char* kNoPayer = "No Electronic Payer Selected";
constexpr const char* kMissingPayer = "This payer is not in the list any more";
constexpr const char* kExplanation =
    "To use Electronic Claims and Real-Time Online Eligibility, please connect this Insurance Company to an Electronic "
    "Payer by clicking then Link icon to open the Electronic Payer list. Highlight the Electronic Payer that matches "
    "this Insurance Company and click OK.\r\nPlease note that a single Electronic Payer may match several claim "
    "processing centers.";

bool IsPhone(std::size_t field) {
  return field >= insScreen::kPhone1 && field <= insScreen::kFax;
}

const data::Format& FormatOf(std::size_t field) {
  return IsPhone(field) ? data::kPhone : data::kPlain;
}

// What patients know the company by: its name, its address and its two phones.
std::vector<Guarded> Identity(std::array<forms::TextBox, 15>& boxes) {
  std::vector<Guarded> guarded;
  for (std::size_t i = insScreen::kName; i <= insScreen::kPhone2; ++i) {
    guarded.push_back({.field = boxes.at(i),
                       .column = kCarrierColumns.at(i),
                       .format = FormatOf(i),
                       .same_line = i == insScreen::kState || i == insScreen::kZip});
  }
  return guarded;
}

}  // namespace

insScreen::insScreen(const session::ScreenContext& context)
    : EditingForm("insScreen", context),
      ZipCodes(context, {Text1[kCity], Text1[kState], Text1[kZip], ZipCode1}),
      carrier_(context.session, kCarriers.table, kCarriers.key),
      pharmacy_(context.session, kPharmacies.table, kPharmacies.key),
      guard_(
          context, carrier_, kCarriers,
          [&session = context.session](std::int32_t carrier) {
            return data::SharedRecords(session).CoveragesOfCarrier(carrier);
          },
          Identity(Text1)),
      payers_(context) {
  for (std::size_t i = 0; i < kCarrierColumns.size(); ++i) {
    carrier_.Bind(Text1.at(i), kCarrierColumns.at(i), FormatOf(i));
  }
  carrier_.Bind(txtLin, "epPayID");
  Register();
  RegisterClaims();
  Wire();
  WireSaving();
}

void insScreen::Register() {
  Add("lblHeading", lblHeading);
  Add("lblID", lblID);
  Add("Text1", Text1);
  Add("Label1", Label1);
  Add("ZipCode1", ZipCode1);
  Add("ZipCode_Panel", ZipCodes);
  for (std::size_t i = 0; i < Label1.size(); ++i) {
    Label1.at(i).Caption = kCaptions.at(i);
    Text1.at(i).Heading = &Label1.at(i);
  }
  Properties["TableName"] = {[this] { return std::string(TableName()); },
                             [this](const std::string& name) {
                               Opened.kind = forms::EqualsIgnoringCase(name, "PHATABLE") ? session::RecordKind::Pharmacy
                                                                                         : session::RecordKind::Carrier;
                             }};
}

void insScreen::RegisterClaims() {
  Add("fraClaims", fraClaims);
  Add("lblLin", lblLin);
  Add("txtNEA", txtNEA);
  Add("txtLin", txtLin);
  Add("cmdLin", cmdLin);
  Add("lblRemID", lblRemID);
  Add("txtRemID", txtRemID);
  Add("cmdUnLin", cmdUnLin);
  Add("picAnsExplain", picAnsExplain);
  Add("LblAnsExplain", LblAnsExplain);
  Add("Command3D2", Command3D2);
  for (forms::Control* control : std::initializer_list<forms::Control*>{
           &Text1[kPrefix], &Text1[kAccount], &Text1[kSwitchCharacter], &Label1[kPrefix], &Label1[kAccount],
           &Label1[kSwitchCharacter], &lblLin, &txtNEA, &lblRemID, &txtRemID, &txtLin, &cmdLin, &cmdUnLin,
           &picAnsExplain}) {
    control->Container = &fraClaims;
  }
  LblAnsExplain.Container = &picAnsExplain;
  lblLin.Caption = "ELE&CTRONIC PAYER";
  txtNEA.Heading = &lblLin;
  txtNEA.ReadOnly = true;
  txtNEA.ToolTip = "F9 opens the list of electronic payers, Delete removes the link";
  lblRemID.Caption = "P&AYER ID";
  txtRemID.Heading = &lblRemID;
  txtRemID.ReadOnly = true;
  txtLin.Visible = false;
  txtLin.AccessibleName = "Electronic payer";
  cmdLin.Caption = "&Link...";
  cmdLin.ToolTip = "Link this insurance company to an electronic payer";
  cmdUnLin.Caption = "&Un-Link";
  cmdUnLin.ToolTip = "Remove the link to the electronic payer";
  LblAnsExplain.Caption = kExplanation;
  Command3D2.Cancel.Caption = "CANCEL";
  Command3D2.Help.Visible = false;
  Reads({&lblHeading, &lblID, &Text1[kName], &Text1[kAddress1], &Text1[kAddress2], &Text1[kCity], &Text1[kState],
         &Text1[kZip], &ZipCode1, &Text1[kPhone1], &Text1[kPhone2], &Text1[kFax], &Text1[kEmail], &Text1[kRemark1],
         &Text1[kRemark2], &fraClaims, &Command3D2});
}

void insScreen::Wire() {
  for (std::size_t i = kPhone1; i <= kFax; ++i) {
    Text1.at(i).Leave = [this, &box = Text1.at(i)] {
      editing::TakeCustomaryForm(context_.session, Record(), box, forms::FormatTenDigits);
    };
  }
  cmdLin.Click = [this] { cmdLin_Click(); };
  cmdUnLin.Click = [this] { cmdUnLin_Click(); };
  txtNEA.KeyDown = [this](forms::Key key) {
    if (key == forms::Key::F9) {
      cmdLin_Click();
    } else if (key == forms::Key::Delete && cmdUnLin.Enabled) {
      cmdUnLin_Click();
    }
    return key == forms::Key::F9 || key == forms::Key::Delete;
  };
  txtLin.Told = [this](const std::string& payer) { return NameOf(session::ToId(session::Value(payer))); };
  Command3D2.OK.Click = [this] {
    accepted_ = Save_Record();
    if (accepted_) {
      Close();
    }
  };
  Command3D2.Cancel.Click = [this] { DoClose(); };
}

void insScreen::WireSaving() {
  Edits(carrier_);
  Edits(pharmacy_);
  const auto always = [] { return true; };
  const auto adding = [this] { return Adding(); };
  OnSave(adding, [this] {
    Record().Insert();
    ShowId();
  });
  OnSave(adding, [this] { Hold(std::string(TableName()), Record().Id()); });
  OnSave(always, [this] {
    Record().Update();
    guard_.Written();
  });
  OnSave([this] { return guard_.MustLog(); }, [this] { guard_.Log(); });
  OnSave(always, [this] {
    const auto [table, key] = data::TableOf(IsPharmacy() ? data::SharedRecord::Pharmacy : data::SharedRecord::Carrier);
    context_.session.RecordHandOff(key.Text(), table.Text(), Record().Id());
  });
}

const std::string& insScreen::PlaceKey() const {
  static const std::string of_a_pharmacy = Name() + "_PHATABLE";
  return IsPharmacy() ? of_a_pharmacy : EditingForm::PlaceKey();
}

std::string_view insScreen::TableName() const {
  return IsPharmacy() ? "PHATABLE" : "INSCOTABLE";
}

void insScreen::Read() {
  Setup_Screen();
  const bool may_edit = IsPharmacy() || RequireRight(kRight, kRightWhat);
  if (Opened.IsNew() && !may_edit) {
    MayModify();
    Close();
    return;
  }
  if (!Opened.IsNew() && may_edit) {
    Hold(std::string(TableName()), Opened.id);
  }
  if (!Load_Data()) {
    Tell((IsPharmacy() ? "Pharmacy " : "Insurance company ") + std::to_string(Opened.id) +
             " was not found in the database.",
         forms::Icon::Information);
    Close();
  }
}

void insScreen::Setup_Screen() {
  Caption = IsPharmacy() ? "Pharmacy Information" : "Insurance Information";
  lblHeading.Caption = IsPharmacy() ? "PHARMACY" : "INSURANCE COMPANY";
  fraClaims.Visible = !IsPharmacy();
  if (IsPharmacy()) {
    Label1[kName].Caption = "Pharmacy &Name";
    Label1[kPhone1].Caption = "&PHONE NUMBER";
    Label1[kEmail].Caption = "&EMAIL";
    for (std::size_t i = 0; i < kPharmacyColumns.size(); ++i) {
      pharmacy_.Bind(Text1.at(i), kPharmacyColumns.at(i), FormatOf(i));
    }
  }
}

// A name that was typed before is not thrown away without asking.
bool insScreen::Load_Data() {
  if (Opened.IsNew()) {
    Record().Read(0);
    Text1[kName].Text = forms::Fitting(Opened.typed_name, Text1[kName].MaxLength);
  } else if (Opened.id == 0 || !Record().Read(Opened.id)) {
    return false;
  }
  ShowId();
  ShowPayer();
  return true;
}

void insScreen::ShowId() {
  lblID.Caption = Adding() ? "NEW" : "ID " + std::to_string(Record().Id());
}

std::int32_t insScreen::PayerId() const {
  return session::ToId(session::Value(txtLin.Text.get()));
}

std::string insScreen::NameOf(std::int32_t payer) const {
  return payer == 0 ? kNoPayer : payers_.NameOf(payer).value_or(kMissingPayer);
}

void insScreen::ShowPayer() {
  Show({.id = PayerId(), .name = NameOf(PayerId())});
}

void insScreen::Show(const editing::PayerLink::Payer& payer) {
  txtNEA.Text = payer.name;
  txtRemID.Text = payer.Linked() ? std::to_string(payer.id) : std::string();
  cmdUnLin.Enabled = payer.Linked();
  picAnsExplain.Visible = !payer.Linked();
}

void insScreen::Link(const editing::PayerLink::Payer& payer) {
  const std::string& stored = carrier_.Stored(txtLin);
  const bool as_stored = session::ToId(session::Value(stored)) == payer.id;
  txtLin.Text = as_stored ? stored : std::to_string(payer.id);
  Show(payer);
}

void insScreen::cmdLin_Click() {
  if (MayModify()) {
    if (const auto payer = payers_.Choose({.id = PayerId(), .name = txtNEA.Text})) {
      Link(*payer);
    }
  }
}

void insScreen::cmdUnLin_Click() {
  if (MayModify() && payers_.AgreesToRemove()) {
    const bool pressed = cmdUnLin.HasFocus();
    Link({.id = 0, .name = kNoPayer});
    if (pressed) {
      cmdLin.SetFocus();
    }
  }
}

bool insScreen::Save_Record() {
  return ReadOnly() || Save();
}

// What nobody touched keeps its blanks.
bool insScreen::Check() {
  for (forms::TextBox& box : Text1) {
    if (Record().Changed(box)) {
      box.Text = std::string(forms::Trim(box.Text.get()));
    }
  }
  if (forms::Trim(Text1[kName].Text.get()).empty()) {
    Tell("You must enter a company name before you can save these changes.", forms::Icon::Information);
    Text1[kName].SetFocus();
    return false;
  }
  return true;
}

bool insScreen::Agreed() {
  if (IsPharmacy()) {
    return true;
  }
  if (PayerId() != 0 && carrier_.Changed(txtLin)) {
    payers_.Require(PayerId());
  }
  return guard_.Agrees();
}

session::Outcome insScreen::Ended() const {
  using End = session::Outcome::End;
  return {.end = Saved ? End::Saved : accepted_ ? End::Accepted : End::Cancelled, .id = Record().Id()};
}

}  // namespace insurance
