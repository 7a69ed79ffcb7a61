#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/record_binding.h"
#include "editing/editing_form.h"
#include "editing/field_help.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/ladder.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "recall/RecallNotices.h"
#include "recall/recall_stage_store.h"
#include "recall/recall_stages.h"

namespace recall {

// One recall: its period, the services that satisfy it, and the ladder of its reminders with what each sends.
class RecallSetupScreen : public editing::EditingForm {
 public:
  // Positions in `lblData`.
  enum Data : std::size_t {
    kCodes = 0,
    kExcludedCodes = 1,
    kPeriod = 2,
    kTitle = 3,
    kDuePeriod = 4,  // those past due follow
    kCutOff = 11,
    kDontPrintDays = 12,
    kSetupFlag = 29,
    kSameDay = 30,
    kShowOnTodo = 31,
    kAppointmentMessage = 32,
  };

  explicit RecallSetupScreen(const session::ScreenContext& context);

  std::array<forms::Label, 33> lblData;  // hidden: what the columns of the recall's row hold
  forms::Label lblNoApMsg, lblPremed;    // hidden: further messages of the office's recall setup
  forms::Label lblName;
  forms::TextBox txtName;
  forms::TabStrip C1Tab1;
  forms::Panel picGeneral, picDue, picPastDue, picStopTracking;
  RecallNotices picSend;

  forms::Label lblPeriod;
  forms::TextBox txtPeriod;
  forms::ComboBox cmbPeriod;
  forms::Label lblServices;
  forms::TextBox txtServices;
  forms::Button codeCmd;
  forms::CheckBox chkSameDay;
  forms::CheckBox chkShowOnTodo;
  forms::CheckBox chkDontPrintDays;
  forms::TextBox txtDontPrintDays;
  forms::Label lblDontPrintDays;

  forms::Label lblSliderDue;
  forms::Slider SliderDue;
  forms::Panel picDueStage;
  forms::Label lblDue;
  forms::TextBox txtDue;
  forms::ComboBox cmbDue;
  forms::Label lblDueText;

  forms::Label lblSliderLate;
  forms::Slider SliderLate;
  forms::TabStrip stPastDueSetup;
  // Of the stages past due, the first at 0; they are named after their stages, 1 to 6.
  std::array<forms::Panel, RecallStages::kMostLate> picLate;
  std::array<forms::Label, RecallStages::kMostLate> lblLate;
  std::array<forms::TextBox, RecallStages::kMostLate> txtLate;
  std::array<forms::ComboBox, RecallStages::kMostLate> cmbLate;
  std::array<forms::Label, RecallStages::kMostLate> lblLateText;
  std::array<forms::Button, RecallStages::kMostLate> cmdRemove;

  forms::Label lblStopTracking;
  forms::TextBox txtStopTracking;
  forms::ComboBox cmbStopTracking;
  forms::Label lblStopTrackingText;

  forms::Label lblStage;  // whose notices are shown
  forms::ComboBox cboStage;
  forms::Ladder picLadder;
  editing::FieldHelp PictureBox1;
  forms::DialogButtons db;

  session::Opening Opened = session::Opening::New(session::RecordKind::RecallMaster);
  session::Outcome Ended() const;

  std::int32_t RecallID() const { return Adding() ? Opened.id : record_.Id(); }
  // Another recall, in the place of the one that is shown.
  void RecallID(std::int32_t recall);
  // Change events do nothing meanwhile.
  bool LoadingData = false;
  bool Modified() const { return Unsaved(); }

  // Saves, and stays; whether it did.
  bool Save_Record();
  // The pages, as many as there are stages.
  void SetupTabControl();
  // Reads the stages with what they send.
  void LoadReminderMessages();
  void codeCmd_Click();
  // Of the stages past due, 1 to 6; whether the person agreed.
  bool RemoveLate(int place);

 protected:
  void Read() override;
  bool Differs() const override;
  bool Check() override;
  bool Agreed() override;
  void OnTaken() override { ShowData(); }
  ClosingQuestion OnClosing() const override;
  bool QueryClose() override;

 private:
  // The controls of a stage.
  struct StageControls {
    forms::TextBox& number;
    forms::ComboBox& unit;
    forms::Label& text;
  };

  void Register();
  void RegisterGeneral();
  void RegisterStages();
  void RegisterLate(int place);
  void Wire();
  void WireStages();
  void WireSaving();
  bool Adding() const { return record_.Id() == 0; }
  bool Load_Data();
  void LookOnlyWhereHeld();

  StageControls ControlsOf(int place);
  static StagePeriod Typed(const forms::TextBox& number, const forms::ComboBox& unit);
  void TakeNumber(forms::TextBox& box);
  static void ShowPeriod(const StagePeriod& period, forms::TextBox& number, forms::ComboBox& unit);
  void ShowData();
  void ShowStages();
  // What hangs on the stages: their texts, marks and the ladder.
  void ShowLadder();
  void ShowNotices();
  // Of the stage shown, for the sample of its messages.
  void SayPeriods();
  void ShowStage(int place);
  void StageShownChanged();
  void TakePeriod(int place);
  void SliderDue_Change();
  void SliderLate_Change();
  bool StageWithinBounds();
  void Touched();

  // Whether patients' recalls are to be worked out anew.
  bool StagesChanged() const;
  void Write();
  void RefreshRecalls();
  std::string ChosenCodes(const std::vector<std::string>& chosen) const;

  data::RecordBinding record_;
  RecallStageStore store_;
  RecallStages stages_;
  RecallStages stored_;
  std::optional<Stage> due_off_;  // what the due stage was when it was switched off
  forms::Label location_;
  int shown_ = RecallStages::kDue;  // the stage that was shown last
  bool cancelling_ = false;
};

}  // namespace recall
