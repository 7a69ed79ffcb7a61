#include <algorithm>
#include <utility>

#include "forms/text.h"
#include "recall/RecallSetupScreen.h"

namespace recall {
namespace {

constexpr std::array kUnits = {forms::PeriodUnit::Days, forms::PeriodUnit::Months, forms::PeriodUnit::Years};

constexpr std::int32_t kMostSampleDays = 9999;

forms::Ladder::From FromOf(int place) {
  using From = forms::Ladder::From;
  return place == RecallStages::kDue    ? From::BeforeDate
         : place == RecallStages::kStop ? From::AfterVisit
                                        : From::AfterDate;
}

}  // namespace

void RecallSetupScreen::WireStages() {
  for (int place = RecallStages::kDue; place <= RecallStages::kStop; ++place) {
    const StageControls controls = ControlsOf(place);
    controls.number.Change = controls.unit.Click = [this, place] { TakePeriod(place); };
    controls.number.Leave = [this, &number = controls.number] { TakeNumber(number); };
  }
  SliderDue.Change = [this] { SliderDue_Change(); };
  SliderLate.Change = [this] { SliderLate_Change(); };
  for (int place = 1; place <= RecallStages::kMostLate; ++place) {
    cmdRemove.at(static_cast<std::size_t>(place - 1)).Click = [this, place] {
      if (MayModify()) {
        RemoveLate(place);
      }
    };
  }
  C1Tab1.Switch = stPastDueSetup.Switch = [this] { StageShownChanged(); };
  cboStage.Click = [this] {
    if (const forms::ListItem* stage = cboStage.Current()) {
      ShowStage(stage->data);
    }
  };
  picSend.Edited = [this](const Notices& notices) {
    if (Stage* stage = stages_.At(shown_)) {
      stage->notices = notices;
      Touched();
    }
  };
  picSend.SettingsEdited = [this] { Touched(); };
}

RecallSetupScreen::StageControls RecallSetupScreen::ControlsOf(int place) {
  if (place == RecallStages::kDue) {
    return {txtDue, cmbDue, lblDueText};
  }
  if (place == RecallStages::kStop) {
    return {txtStopTracking, cmbStopTracking, lblStopTrackingText};
  }
  const auto i = static_cast<std::size_t>(place - 1);
  return {txtLate.at(i), cmbLate.at(i), lblLateText.at(i)};
}

StagePeriod RecallSetupScreen::Typed(const forms::TextBox& number, const forms::ComboBox& unit) {
  StagePeriod period;
  if (!forms::Trim(number.Text.get()).empty()) {
    period.number = forms::PeriodNumber(number.Text.get());
  }
  if (unit.ListIndex >= 0) {
    period.unit = kUnits.at(static_cast<std::size_t>(unit.ListIndex.get()));
  }
  return period;
}

// Rounded to a whole one; what is no number stays, to be corrected.
void RecallSetupScreen::TakeNumber(forms::TextBox& box) {
  const std::string text(forms::Trim(box.Text.get()));
  if (text.find_first_not_of("0123456789.") != std::string::npos || (!text.empty() && text == ".")) {
    Tell(ToldBack(text) + " is not a number.", forms::Icon::Information);
    box.SetFocus();
  } else if (!text.empty()) {
    const std::int32_t rounded = forms::PeriodNumber(text);
    if (!(box.Text == std::to_string(rounded))) {
      box.Text = std::to_string(rounded);
      box.Change();
    }
  }
}

void RecallSetupScreen::ShowPeriod(const StagePeriod& period, forms::TextBox& number, forms::ComboBox& unit) {
  number.Text = period.number ? std::to_string(*period.number) : std::string();
  unit.ListIndex = period.unit ? static_cast<int>(std::ranges::find(kUnits, *period.unit) - kUnits.begin()) : -1;
}

void RecallSetupScreen::LoadReminderMessages() {
  stages_ = Adding() ? RecallStages::Default() : store_.Read(record_.Id(), [this](std::string_view column) {
    return session::ToText(record_.Column(column));
  });
  stored_ = stages_;
  due_off_.reset();
  ShowStages();
}

void RecallSetupScreen::ShowStages() {
  LoadingData = true;
  SetupTabControl();
  for (const int place : stages_.Places()) {
    const StageControls controls = ControlsOf(place);
    ShowPeriod(stages_.At(place)->period, controls.number, controls.unit);
  }
  LoadingData = false;
  if (stages_.At(shown_) == nullptr) {
    shown_ = shown_ > 0 && stages_.LateCount() > 0 ? stages_.LateCount() : stages_.Places().front();
  }
  ShowLadder();
  ShowNotices();
}

void RecallSetupScreen::SetupTabControl() {
  SliderDue.Value = stages_.due ? 1 : 0;
  SliderLate.Value = stages_.LateCount();
  picDueStage.Visible = stages_.due.has_value();
  stPastDueSetup.Visible = stages_.LateCount() > 0;
  for (int place = 1; place <= RecallStages::kMostLate; ++place) {
    picLate.at(static_cast<std::size_t>(place - 1)).Visible = place <= stages_.LateCount();
  }
  std::vector<forms::ListItem> names;
  for (const int place : stages_.Places()) {
    names.push_back({RecallStages::NameOf(place), place});
  }
  cboStage.ListIndex = -1;  // its text follows the entry, not the list
  cboStage.Items = std::move(names);
}

void RecallSetupScreen::ShowLadder() {
  std::vector<forms::Ladder::Rung> rungs;
  for (const int place : stages_.Places()) {
    const bool fits = stages_.WithinBounds(place);
    ControlsOf(place).text.Caption = stages_.Description(place) + (fits ? "" : "\r\nThis period is out of order.");
    rungs.push_back({.name = RecallStages::NameOf(place),
                     .from = FromOf(place),
                     .days = stages_.DaysOf(place),
                     .current = place == shown_,
                     .out_of_order = !fits});
  }
  picLadder.Rungs = std::move(rungs);
  picLadder.ToolTip = picLadder.SpokenName();
  cboStage.ListIndex = cboStage.IndexOfData(shown_);
  for (int place = RecallStages::kDue; place <= RecallStages::kStop; ++place) {
    const std::size_t data = kDuePeriod + static_cast<std::size_t>(place);
    const Stage* stage = stages_.At(place);
    lblData.at(data).Caption = stage != nullptr ? stage->period.Text() : std::string();
  }
}

void RecallSetupScreen::ShowNotices() {
  if (const Stage* stage = stages_.At(shown_)) {
    SayPeriods();
    picSend.Show(RecallStages::NameOf(shown_), stage->notices);
  }
}

// Where a stage is past due, or ends the tracking, the day when the recall was due lies behind.
void RecallSetupScreen::SayPeriods() {
  const auto recall = forms::PeriodCode::Parse(lblData[kPeriod].Caption.get()).value_or(forms::PeriodCode());
  const std::int32_t days = std::clamp(stages_.DaysOf(shown_), 0, kMostSampleDays);
  const std::int32_t since_due = shown_ == RecallStages::kDue    ? -days
                                 : shown_ == RecallStages::kStop ? days - std::clamp(recall.Days(), 0, days)
                                                                 : days;
  picSend.AppointmentPeriod.number = -since_due;
  picSend.TotalPeriod = recall;
}

void RecallSetupScreen::ShowStage(int place) {
  if (stages_.At(place) != nullptr && place != shown_) {
    shown_ = place;
    if (place >= 1 && place <= stages_.LateCount()) {
      stPastDueSetup.CurrTab = place - 1;
    }
    ShowLadder();
    ShowNotices();
  }
}

// A page that belongs to no stage leaves the one that was shown.
void RecallSetupScreen::StageShownChanged() {
  const forms::Panel* page = C1Tab1.Pages().at(static_cast<std::size_t>(C1Tab1.CurrTab.get()));
  if (page == &picDue) {
    ShowStage(RecallStages::kDue);
  } else if (page == &picPastDue) {
    ShowStage(stPastDueSetup.CurrTab + 1);
  } else if (page == &picStopTracking) {
    ShowStage(RecallStages::kStop);
  } else if (page == &picSend) {
    ShowNotices();  // its sample may say other periods by now
  }
}

void RecallSetupScreen::TakePeriod(int place) {
  Stage* stage = stages_.At(place);
  if (LoadingData || stage == nullptr) {
    return;
  }
  const StageControls controls = ControlsOf(place);
  stage->period = Typed(controls.number, controls.unit);
  ShowLadder();
  SayPeriods();
  Touched();
}

// Switched on again, it is as it was.
void RecallSetupScreen::SliderDue_Change() {
  if (LoadingData) {
    return;
  }
  if (SliderDue.Value == 0) {
    due_off_ = std::exchange(stages_.due, std::nullopt);
  } else {
    stages_.due = due_off_.value_or(*RecallStages::Default().due);
    shown_ = RecallStages::kDue;
  }
  ShowStages();
  Touched();
}

void RecallSetupScreen::SliderLate_Change() {
  if (LoadingData) {
    return;
  }
  const int wanted = SliderLate.Value;
  while (stages_.LateCount() < wanted) {
    stages_.AddLate();
    shown_ = stages_.LateCount();
    Touched();
  }
  ShowStages();
  bool agreed = true;
  while (agreed && stages_.LateCount() > wanted) {
    agreed = RemoveLate(stages_.LateCount());
  }
  SliderLate.Value = stages_.LateCount();
  if (shown_ >= 1 && shown_ <= stages_.LateCount()) {
    stPastDueSetup.CurrTab = shown_ - 1;
  }
}

bool RecallSetupScreen::RemoveLate(int place) {
  if (!Confirm("Are you sure that you want to remove the Recall Past Due " + std::to_string(place) + " Setup?",
               "Remove Recall Past Due Setup")) {
    return false;
  }
  stages_.RemoveLate(place);
  ShowStages();
  if (shown_ >= 1 && shown_ <= stages_.LateCount()) {
    stPastDueSetup.CurrTab = shown_ - 1;
  }
  Touched();
  return true;
}

bool RecallSetupScreen::StageWithinBounds() {
  if (stages_.WithinBounds(shown_)) {
    return true;
  }
  const auto [lower, upper] = stages_.BoundsOf(shown_);
  Tell(RecallStages::NameOf(shown_) + " setting must between " + std::to_string(lower) + " day(s) and " +
       std::to_string(upper) + " days.");
  ControlsOf(shown_).number.SetFocus();
  return false;
}

}  // namespace recall
