#include "recall/RecallSetupScreen.h"

#include "forms/text.h"

namespace recall {
namespace {

constexpr std::string_view kTable = "RSTABLE";
constexpr std::string_view kSettings = "DEFAULT_OFFICE_SETUP";
constexpr std::size_t kMostCodes = 100;  // characters

std::string OnOff(const forms::CheckBox& box) {
  return box.Value == forms::CheckState::On ? "1" : "0";
}

}  // namespace

RecallSetupScreen::RecallSetupScreen(const session::ScreenContext& context)
    : EditingForm("RecallSetupScreen", context),
      picSend(context),
      PictureBox1(context),
      record_(context.session, "RSTable", "RCRecNum"),
      store_(context.session) {
  record_.Bind(txtServices, "RCCod");
  record_.Bind(lblData[kExcludedCodes], "RCExcCod");
  record_.Bind(lblData[kPeriod], "RCRecPer");
  record_.Bind(txtName, "RCTtl");
  record_.Bind(lblData[kDontPrintDays], "RCDonPriDay");
  record_.Bind(lblData[kSetupFlag], "RCSetupFlag");
  record_.Bind(lblData[kSameDay], "RCIncSamDay");
  record_.Bind(lblData[kShowOnTodo], "RCShoOnToDo");
  record_.Bind(location_, "OffLocID");
  // The fields themselves, and the store, write these.
  lblData[kCodes].DataField = txtServices.DataField;
  lblData[kTitle].DataField = txtName.DataField;
  for (int place = RecallStages::kDue; place <= RecallStages::kStop; ++place) {
    lblData.at(kDuePeriod + static_cast<std::size_t>(place)).DataField = RecallStageStore::PeriodColumn(place);
  }
  Register();
  Wire();
  WireStages();
  WireSaving();
}

void RecallSetupScreen::Wire() {
  const auto take = [this](Data data, const std::string& value) {
    if (!LoadingData) {
      lblData.at(data).Caption = value;
      Touched();
    }
  };
  txtName.Change = [this, take] { take(kTitle, txtName.Text); };
  txtServices.Change = [this, take] { take(kCodes, txtServices.Text); };
  txtPeriod.Change = cmbPeriod.Click = [this, take] {
    take(kPeriod, Typed(txtPeriod, cmbPeriod).Text());
    SayPeriods();
  };
  txtPeriod.Leave = [this] { TakeNumber(txtPeriod); };
  chkSameDay.Click = [this, take] { take(kSameDay, OnOff(chkSameDay)); };
  chkShowOnTodo.Click = [this, take] { take(kShowOnTodo, OnOff(chkShowOnTodo)); };
  const auto days = [this, take] {
    const bool on = chkDontPrintDays.Value == forms::CheckState::On;
    txtDontPrintDays.Enabled = on;
    take(kDontPrintDays, on ? std::string(forms::Trim(txtDontPrintDays.Text.get())) : "0");
  };
  chkDontPrintDays.Click = txtDontPrintDays.Change = days;
  txtDontPrintDays.Leave = [this] { TakeNumber(txtDontPrintDays); };
  codeCmd.Click = [this] { codeCmd_Click(); };
  db.OK.Click = [this] { Save_Record(); };
  db.Cancel.Click = [this] {
    cancelling_ = true;
    DoClose();
    cancelling_ = false;
  };
  db.Help.Click = [this] { PictureBox1.Show(); };
}

void RecallSetupScreen::Read() {
  Caption = "Recall Setup";
  if (!Opened.IsNew()) {
    Hold(std::string(kTable), Opened.id);
  }
  if (!Load_Data()) {
    Tell("Recall " + std::to_string(Opened.id) + " was not found in the database.", forms::Icon::Information);
    Close();
  }
}

void RecallSetupScreen::RecallID(std::int32_t recall) {
  Opened = session::Opening::Existing(session::RecordKind::RecallMaster, recall);
  if (Loaded()) {
    LetGo();
    Attempt([this] { Read(); });
  }
}

bool RecallSetupScreen::Load_Data() {
  if (Opened.IsNew()) {
    record_.Read(0);
    location_.Caption = std::to_string(data::kAllLocations);
    record_.MarkWritten(location_);
  } else if (Opened.id == 0 || !record_.Read(Opened.id)) {
    return false;
  }
  const auto setting = [this](const char* key) {
    return context_.session.OfficeSetting(kSettings, std::string("RECALL_SETUP_") + key);
  };
  lblData[kAppointmentMessage].Caption = setting("AP_MSG");
  lblNoApMsg.Caption = setting("NO_AP_MSG");
  lblPremed.Caption = setting("PREMED");
  ShowData();
  LoadReminderMessages();
  LookOnlyWhereHeld();
  db.Cancel.Caption = "Cancel";
  return true;
}

void RecallSetupScreen::ShowData() {
  const auto state = [this](Data data) {
    return forms::IsOn(lblData.at(data).Caption.get()) ? forms::CheckState::On : forms::CheckState::Off;
  };
  LoadingData = true;
  lblData[kTitle].Caption = txtName.Text.get();
  lblData[kCodes].Caption = txtServices.Text.get();
  const std::string& period = lblData[kPeriod].Caption.get();
  const StagePeriod parts = StagePeriod::Parse(period);
  ShowPeriod(parts, txtPeriod, cmbPeriod);
  if (!parts.unit) {
    txtPeriod.Text = period;
  }
  chkSameDay.Value = state(kSameDay);
  chkShowOnTodo.Value = state(kShowOnTodo);
  const std::string& days = lblData[kDontPrintDays].Caption.get();
  const bool none = days.empty() || days == "0";
  chkDontPrintDays.Value = none ? forms::CheckState::Off : forms::CheckState::On;
  txtDontPrintDays.Text = none ? std::string() : days;
  txtDontPrintDays.Enabled = !none;
  LoadingData = false;
}

void RecallSetupScreen::LookOnlyWhereHeld() {
  std::vector<forms::Control*> changing = {&cmbPeriod, &codeCmd,    &chkSameDay,      &chkShowOnTodo, &chkDontPrintDays,
                                           &SliderDue, &SliderLate, &cmbStopTracking, &cmbDue,        &db.OK};
  for (std::size_t i = 0; i < cmbLate.size(); ++i) {
    changing.push_back(&cmbLate.at(i));
    changing.push_back(&cmdRemove.at(i));
  }
  for (forms::Control* control : changing) {
    control->Enabled = !ReadOnly();
  }
  picSend.EnableSettings(!ReadOnly());
}

// What is said is what a click on the last button would do.
void RecallSetupScreen::Touched() {
  if (!LoadingData) {
    db.Cancel.Caption = "Cancel";
  }
}

void RecallSetupScreen::codeCmd_Click() {
  if (!MayModify()) {
    return;
  }
  std::vector<std::string> chosen;
  if (!Attempt([&] { chosen = context_.screens.ChooseServiceCodes(); }) || chosen.empty()) {
    return;
  }
  const std::string codes = ChosenCodes(chosen);
  if (forms::Left(codes, kMostCodes) != codes) {
    Tell("The service codes of a recall cannot exceed 100 characters.", forms::Icon::Information);
    return;
  }
  if (txtServices.Text != codes) {
    txtServices.Text = codes;
    txtServices.Change();
  }
}

// Those that are there already are not added again.
std::string RecallSetupScreen::ChosenCodes(const std::vector<std::string>& chosen) const {
  std::string codes(forms::Trim(txtServices.Text.get()));
  if (!codes.empty()) {
    const auto answer = context_.user.Ask({.text = "Replace current code setup ?\r\n"
                                                   "Answer  [Yes] to Replace existing codes,\r\n"
                                                   "               [No] to Append to existing codes,\r\n"
                                                   "               [Cancel] to Omit selected code.",
                                           .buttons = forms::kYesNoCancel,
                                           .icon = forms::Icon::Question});
    if (answer == forms::Answer::Cancel) {
      return txtServices.Text.get();
    }
    if (answer == forms::Answer::Yes) {
      codes.clear();
    }
  }
  for (const std::string& code : chosen) {
    const auto known = [&codes, &code] {
      for (std::size_t from = 0; from <= codes.size();) {
        const std::size_t end = std::min(codes.find(',', from), codes.size());
        if (forms::EqualsIgnoringCase(forms::Trim(std::string_view(codes).substr(from, end - from)), code)) {
          return true;
        }
        from = end + 1;
      }
      return false;
    };
    if (!known()) {
      codes += (codes.empty() ? "" : ",") + code;
    }
  }
  return codes;
}

session::Outcome RecallSetupScreen::Ended() const {
  using End = session::Outcome::End;
  return {.end = Saved ? End::Saved : End::Cancelled, .id = record_.Id()};
}

}  // namespace recall
