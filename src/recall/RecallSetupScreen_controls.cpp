#include "forms/text.h"
#include "recall/RecallSetupScreen.h"

namespace recall {
namespace {

constexpr int kNumberRoom = 4;  // of a period, before its unit

void PrepareUnits(forms::ComboBox& units, const std::string& of) {
  units.Items = std::vector<forms::ListItem>{{"Days"}, {"Months"}, {"Years"}};
  units.AccessibleName = of + " in days, months or years";
}

void PrepareNumber(forms::TextBox& box, forms::Label& heading) {
  box.Heading = &heading;
  box.MaxLength = kNumberRoom;
}

}  // namespace

void RecallSetupScreen::Register() {
  Add("lblData", lblData);
  Add("lblNoApMsg", lblNoApMsg);
  Add("lblPremed", lblPremed);
  for (forms::Label& label : lblData) {
    label.Visible = false;
  }
  lblNoApMsg.Visible = false;
  lblPremed.Visible = false;
  lblData[kExcludedCodes].AccessibleName = "Excluded codes";
  lblData[kPeriod].AccessibleName = "Recall period";
  lblData[kDontPrintDays].AccessibleName = "Days without a notice";
  lblData[kSetupFlag].AccessibleName = "Setup";
  lblData[kSameDay].AccessibleName = "Appointments on the same day";
  lblData[kShowOnTodo].AccessibleName = "To-do list";

  Add("lblName", lblName);
  Add("txtName", txtName);
  lblName.Caption = "&Title";
  txtName.Heading = &lblName;
  Add("C1Tab1", C1Tab1);
  C1Tab1.AccessibleName = "Pages";
  Add("picGeneral", picGeneral);
  Add("picDue", picDue);
  Add("picPastDue", picPastDue);
  Add("picStopTracking", picStopTracking);
  picGeneral.Caption = "General";
  picDue.Caption = "Before Due";
  picPastDue.Caption = "Past Due";
  picStopTracking.Caption = "Stop Tracking";
  picSend.Caption = "Send Methods";
  for (forms::Panel* page :
       std::initializer_list<forms::Panel*>{&picGeneral, &picDue, &picPastDue, &picStopTracking, &picSend}) {
    C1Tab1.AddPage(*page);
  }
  RegisterGeneral();
  RegisterStages();
  Add("lblStage", lblStage);
  Add("cboStage", cboStage);
  lblStage.Caption = "Sta&ge";
  cboStage.Heading = &lblStage;
  lblStage.Container = cboStage.Container = &picSend;
  Add("picSend", picSend);
  Add("picLadder", picLadder);
  picLadder.AccessibleName = "Reminders of this recall";
  Add("PictureBox1", PictureBox1);
  PictureBox1.Set(codeCmd, "Open Service Code List");
  Add("db", db);
  db.OK.Caption = "&Save";
  db.Cancel.Caption = "Cancel";

  Properties["RecallID"] = {[this] { return std::to_string(RecallID()); },
                            [this](const std::string& id) { RecallID(session::ToId(session::Value(id))); }};
  Properties["LoadingData"] = {[this] { return std::to_string(static_cast<int>(LoadingData)); },
                               [this](const std::string& on) { LoadingData = forms::IsOn(on); }};
  Properties["Modified"] = {[this] { return std::to_string(static_cast<int>(Modified())); }, nullptr};
}

void RecallSetupScreen::RegisterGeneral() {
  Add("lblPeriod", lblPeriod);
  Add("txtPeriod", txtPeriod);
  Add("cmbPeriod", cmbPeriod);
  Add("lblServices", lblServices);
  Add("txtServices", txtServices);
  Add("codeCmd", codeCmd);
  Add("chkSameDay", chkSameDay);
  Add("chkShowOnTodo", chkShowOnTodo);
  Add("chkDontPrintDays", chkDontPrintDays);
  Add("txtDontPrintDays", txtDontPrintDays);
  Add("lblDontPrintDays", lblDontPrintDays);
  for (forms::Control* control : std::initializer_list<forms::Control*>{
           &lblPeriod, &txtPeriod, &cmbPeriod, &lblServices, &txtServices, &codeCmd, &chkSameDay, &chkShowOnTodo,
           &chkDontPrintDays, &txtDontPrintDays, &lblDontPrintDays}) {
    control->Container = &picGeneral;
  }
  lblPeriod.Caption = "Recall &Period";
  PrepareNumber(txtPeriod, lblPeriod);
  PrepareUnits(cmbPeriod, "Recall period");
  lblServices.Caption = "Ser&vice Codes";
  txtServices.Heading = &lblServices;
  codeCmd.Caption = "&Codes...";
  codeCmd.ToolTip = "Open Service Code List";
  chkSameDay.Caption = "&Include appointments on the same day";
  chkShowOnTodo.Caption = "Sho&w on the to-do list";
  chkDontPrintDays.Caption = "&Do not print a notice within";
  lblDontPrintDays.Caption = "da&ys of the last one";
  PrepareNumber(txtDontPrintDays, lblDontPrintDays);
}

void RecallSetupScreen::RegisterStages() {
  Add("lblSliderDue", lblSliderDue);
  Add("SliderDue", SliderDue);
  Add("picDueStage", picDueStage);
  Add("lblDue", lblDue);
  Add("txtDue", txtDue);
  Add("cmbDue", cmbDue);
  Add("lblDueText", lblDueText);
  lblSliderDue.Container = SliderDue.Container = picDueStage.Container = &picDue;
  lblDue.Container = txtDue.Container = cmbDue.Container = lblDueText.Container = &picDueStage;
  lblSliderDue.Caption = "&Reminder before the date (0 off, 1 on)";
  SliderDue.Heading = &lblSliderDue;
  SliderDue.Max = 1;
  lblDue.Caption = "&Due Period";
  PrepareNumber(txtDue, lblDue);
  PrepareUnits(cmbDue, "Due period");

  Add("lblSliderLate", lblSliderLate);
  Add("SliderLate", SliderLate);
  Add("stPastDueSetup", stPastDueSetup);
  lblSliderLate.Container = SliderLate.Container = stPastDueSetup.Container = &picPastDue;
  lblSliderLate.Caption = "&Number of past due reminders";
  SliderLate.Heading = &lblSliderLate;
  SliderLate.Max = RecallStages::kMostLate;
  stPastDueSetup.AccessibleName = "Past due reminders";
  for (int place = 1; place <= RecallStages::kMostLate; ++place) {
    RegisterLate(place);
  }

  Add("lblStopTracking", lblStopTracking);
  Add("txtStopTracking", txtStopTracking);
  Add("cmbStopTracking", cmbStopTracking);
  Add("lblStopTrackingText", lblStopTrackingText);
  lblStopTracking.Container = txtStopTracking.Container = cmbStopTracking.Container = lblStopTrackingText.Container =
      &picStopTracking;
  lblStopTracking.Caption = "Stop Trac&king";
  PrepareNumber(txtStopTracking, lblStopTracking);
  PrepareUnits(cmbStopTracking, "Stop tracking");
}

void RecallSetupScreen::RegisterLate(int place) {
  const auto i = static_cast<std::size_t>(place - 1);
  const std::string number = std::to_string(place);
  const auto add = [&](const char* name, forms::Control& control) { Add(name + ("(" + number + ")"), control); };
  add("picLate", picLate.at(i));
  add("lblLate", lblLate.at(i));
  add("txtLate", txtLate.at(i));
  add("cmbLate", cmbLate.at(i));
  add("lblLateText", lblLateText.at(i));
  add("cmdRemove", cmdRemove.at(i));
  picLate.at(i).Caption = "Past Due " + number;
  stPastDueSetup.AddPage(picLate.at(i));
  lblLate.at(i).Caption = "&Period " + number;
  PrepareNumber(txtLate.at(i), lblLate.at(i));
  PrepareUnits(cmbLate.at(i), "Period " + number);
  cmdRemove.at(i).Caption = "Remo&ve";
  cmdRemove.at(i).ToolTip = "Remove this reminder; the later ones move up with their notices";
  for (forms::Control* control : std::initializer_list<forms::Control*>{&lblLate.at(i), &txtLate.at(i), &cmbLate.at(i),
                                                                        &lblLateText.at(i), &cmdRemove.at(i)}) {
    control->Container = &picLate.at(i);
  }
}

}  // namespace recall
