#pragma once

#include <array>
#include <string>

#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "forms/tool_bar.h"
#include "forms/user.h"

namespace host {

// A screen with a control of every kind. `Label1` tells what its rules heard last.
class SampleForm : public forms::Form {
 public:
  explicit SampleForm(forms::User& user) : forms::Form("SampleForm"), user_(user) {
    Caption = "Sample";
    Add("Text1", Text1);
    Add("Label1", Label1);
    Add("cmdAsk", cmdAsk);
    Add("cmdPick", cmdPick);
    Add("cmdChild", cmdChild);
    Add("Panel1", Panel1);
    Add("cmdOnPanel", cmdOnPanel);
    Add("Check1", Check1);
    Add("optLeft", optLeft);
    Add("optRight", optRight);
    Add("List1", List1);
    Add("Combo1", Combo1);
    Add("Grid1", Grid1);
    Add("ToolStrip", ToolStrip);
    Add("Tab1", Tab1);
    Add("Slider1", Slider1);
    Add("Timer1", Timer1);
    Add("MnuFile", MnuFile);
    Add("ucSample1.Text1(0)", Inner);
    Add("DialogButtons1", DialogButtons1);
    Fill();
    Wire();
  }

  std::array<forms::TextBox, 3> Text1;
  forms::Label Label1;
  forms::Button cmdAsk, cmdPick, cmdChild, cmdOnPanel;
  forms::Panel Panel1;
  forms::CheckBox Check1;
  forms::OptionButton optLeft, optRight;
  forms::ListBox List1;
  forms::ComboBox Combo1;
  forms::Grid Grid1;
  forms::ToolBar ToolStrip;
  forms::TabStrip Tab1;
  forms::Slider Slider1;
  forms::Timer Timer1;
  forms::MenuItem MnuFile;
  forms::TextBox Inner;  // of a control that stands in several screens
  forms::DialogButtons DialogButtons1;
  int idle_work = 0;

  bool OnIdle() override { return idle_work > 0 && --idle_work > 0; }

 protected:
  bool QueryClose() override {
    return Text1[0].Text == "" ||
           user_.Ask({.text = "Close?", .buttons = forms::kYesNo, .default_answer = forms::Answer::No}) ==
               forms::Answer::Yes;
  }

 private:
  void Fill() {
    cmdOnPanel.Container = &Panel1;
    Panel1.Visible = false;
    Check1.ThreeState = true;
    List1.Items = std::vector<forms::ListItem>{{"Springfield\tIL", 7}, {"Shelbyville\tIL", 8}};
    Combo1.Items = std::vector<forms::ListItem>{{"one", 1}, {"two", 2}};
    Combo1.Editable = true;
    using Kind = forms::GridColumn::Kind;
    Grid1.Columns =
        std::vector<forms::GridColumn>{{.key = "id", .caption = "ID", .visible = false},
                                       {.key = "name", .caption = "Name", .editable = true},
                                       {.key = "on", .caption = "On", .kind = Kind::Check, .editable = true}};
    Grid1.FilterBar = true;
    auto rows = std::make_shared<forms::TableRows>();
    rows->rows = {{{"1", "Ann", "0"}}, {{"2", "Bob", "1"}}};
    Grid1.Rows = std::shared_ptr<forms::GridRows>(rows);
    ToolStrip.Add("New", "New", "");
    Tab1.Tabs = std::vector<std::string>{"&First", "Second"};
    cmdAsk.Caption = "&Ask";
  }

  void Wire() {
    Text1[0].MaxLength = 5;
    Text1[1].KeyPress = [](char32_t c) { return c >= U'0' && c <= U'9' ? c : U'\0'; };
    Text1[1].Leave = [this] {
      if (Text1[1].Text == "9") {
        user_.Tell("Not 9.");
        Text1[1].SetFocus();
      }
    };
    Text1[2].Enter = [this] { List1.SetFocus(); };
    cmdAsk.Click = [this] {
      const auto answer = user_.Ask({.text = "Save [ it ] ?\r\nReally?",
                                     .title = "Save",
                                     .buttons = forms::kYesNoCancel,
                                     .icon = forms::Icon::Question});
      Label1.Caption = "answered " + std::string(forms::Caption(answer));
    };
    cmdPick.Click = [this] {
      const auto color = user_.PickColor({});
      const auto date = user_.PickDate("Calendar", std::chrono::January / 2 / 1980);
      const auto text = user_.Input({.prompt = "Name?"});
      Label1.Caption = std::to_string(color ? color->red : -1) + " " + (date ? forms::FormatIso(*date) : "none") + " " +
                       text.value_or("none");
    };
    cmdChild.Click = [this] {
      SampleForm child(user_);
      child.Caption = "Child";
      user_.Show(child);
    };
    const auto hear = [this](const char* what) { return [this, what] { Label1.Caption = what; }; };
    List1.Click = hear("picked");
    List1.DblClick = hear("opened");
    Grid1.DblClick = hear("opened row");
    Grid1.FilterChanged = [this] { Timer1.Enabled = true; };
    Grid1.HeadClick = [this](int column) { Label1.Caption = "sorted by " + std::to_string(column); };
    Timer1.Elapsed = [this] {
      Timer1.Enabled = false;
      Label1.Caption = "time passed";
    };
    ToolStrip.ItemClicked = [this](const std::string& key) { Label1.Caption = "tool " + key; };
    MnuFile.Click = hear("menu");
    Tab1.Switch = hear("tab");
    Slider1.Change = hear("slid");
    Check1.Click = hear("checked");
    DialogButtons1.OK.Click = [this] { Close(); };
    DialogButtons1.Cancel.Click = [this] { DoClose(); };
  }

  forms::User& user_;
  forms::OptionGroup options_{&optLeft, &optRight};
};

}  // namespace host
