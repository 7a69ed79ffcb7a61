#include "forms/form.h"

#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "forms/tool_bar.h"

namespace forms {
namespace {

using testing::ElementsAre;

class NameForm : public Form {
 public:
  NameForm() : Form("NameForm") {
    Add("Text1", Text1);
    Add("chkActive", chkActive);
    Add("lstNames", lstNames);
    Add("DialogButtons1", DialogButtons1);
    Text1[0].Leave = [this] {
      events.emplace_back("leave 0");
      if (Text1[0].Text == "X") {
        Text1[0].SetFocus();
      }
    };
    Text1[1].Enter = [this] { events.emplace_back("enter 1"); };
    DialogButtons1.OK.Click = [this] {
      events.emplace_back("ok");
      Close();
    };
    DialogButtons1.Cancel.Click = [this] {
      events.emplace_back("cancel");
      DoClose();
    };
    lstNames.Items = {{"Smith", 3}, {"Jones", 7}};
  }

  std::array<TextBox, 2> Text1;
  CheckBox chkActive;
  ListBox lstNames;
  DialogButtons DialogButtons1;
  using Form::Reads;

  std::vector<std::string> events;
  bool may_close = true;

 protected:
  void OnLoad() override { events.emplace_back("load"); }
  bool QueryClose() override {
    events.emplace_back("query");
    return may_close;
  }
};

TEST(Form, KnowsItsControlsByNameAndInReadingOrder) {
  NameForm form;
  EXPECT_EQ(form.Find("text1(1)"), &form.Text1[1]);
  EXPECT_EQ(form.Find("DialogButtons1.Cancel"), &form.DialogButtons1.Cancel);
  EXPECT_EQ(form.Find("Text1(2)"), nullptr);
  EXPECT_EQ(form.Controls().front()->Name(), "Text1(0)");
  ToolBar bar;
  bar.Add("New", "New", "New.png");
  form.Add("ToolStrip", bar);
  bar.Add("Edit", "Edit", "Edit.png");
  EXPECT_EQ(form.Find("ToolStrip.New"), &bar["New"]);
  EXPECT_EQ(form.Find("ToolStrip.Edit"), &bar["Edit"]) << "added after the bar was registered";
}

TEST(Form, TabFollowsTheReadingOrderPastToolBars) {
  NameForm form;
  ToolBar bar;
  bar.Add("New", "New", "New.png");
  form.Add("ToolStrip", bar);
  form.Reads({&form.chkActive, &form.Text1[0]});
  std::vector<std::string> stops;
  for (const Control* stop = form.NextStop(nullptr); stops.size() < 7; stop = form.NextStop(stop)) {
    stops.push_back(stop->Name());
  }
  EXPECT_THAT(stops, ElementsAre("chkActive", "Text1(0)", "Text1(1)", "lstNames", "DialogButtons1.OK",
                                 "DialogButtons1.Cancel", "DialogButtons1.Help"));
  EXPECT_EQ(form.NextStop(&form.DialogButtons1.Help), &form.chkActive);
  EXPECT_EQ(form.NextStop(&form.chkActive, true), &form.DialogButtons1.Help);
}

TEST(Form, AControlIsCalledByTheFirstThatSaysIt) {
  NameForm form;
  TextBox& box = form.Text1[0];
  EXPECT_EQ(box.SpokenName(), "");
  box.ToolTip = " Type a name ";
  EXPECT_EQ(box.SpokenName(), "Type a name");
  box.AccessibleName = "Name";
  EXPECT_EQ(box.SpokenName(), "Name");
  Label heading;
  heading.Caption = "&Last Name :";
  box.Heading = &heading;
  EXPECT_EQ(box.SpokenName(), "Last Name");
  EXPECT_EQ(form.DialogButtons1.OK.SpokenName(), "OK");
  EXPECT_EQ(form.DialogButtons1.OK.Mnemonic(), 'o');
  EXPECT_EQ(form.DialogButtons1.Cancel.Mnemonic(), '\0') << "its key is Esc";
}

TEST(Form, MovingTheFocusLeavesAndEnters) {
  NameForm form;
  EXPECT_TRUE(form.Text1[0].DoFocus());
  EXPECT_TRUE(form.Text1[1].DoFocus());
  EXPECT_TRUE(form.Text1[1].DoFocus()) << "being there is not moving";
  EXPECT_THAT(form.events, ElementsAre("leave 0", "enter 1"));
  EXPECT_TRUE(form.Text1[1].HasFocus());
}

TEST(Form, AFieldThatKeepsTheFocusKeepsEverythingElseFromActing) {
  NameForm form;
  form.Text1[0].DoType("X");
  form.DialogButtons1.OK.DoClick();
  form.chkActive.DoCheck(CheckState::On);
  form.lstNames.DoPick(1);
  form.Text1[1].DoType("y");
  EXPECT_TRUE(form.Text1[0].HasFocus());
  EXPECT_THAT(form.events, ElementsAre("leave 0", "leave 0", "leave 0", "leave 0"));
  EXPECT_EQ(form.chkActive.Value, CheckState::Off);
  EXPECT_EQ(form.lstNames.ListIndex, -1);
  EXPECT_EQ(form.Text1[1].Text, "");
  EXPECT_FALSE(form.Closed());

  form.Text1[0].DoType("F");
  form.DialogButtons1.OK.DoClick();
  EXPECT_TRUE(form.Closed());
}

TEST(Form, TheFocusGoesNowhereThatAPersonCannotReach) {
  NameForm form;
  Panel panel;
  panel.Visible = false;
  form.Text1[1].Container = &panel;
  form.Text1[0].DoFocus();
  EXPECT_FALSE(form.Text1[1].DoFocus());
  form.DialogButtons1.Enabled = false;
  form.DialogButtons1.OK.DoClick();
  EXPECT_TRUE(form.Text1[0].HasFocus());
  EXPECT_TRUE(form.events.empty()) << "nothing was left, entered or clicked";
}

TEST(Form, ARuleSetsTheFocusWithoutLeaving) {
  NameForm form;
  form.Text1[0].DoFocus();
  form.Text1[1].SetFocus();
  EXPECT_THAT(form.events, ElementsAre("enter 1"));
  form.Text1[1].Leave = [&form] { form.DialogButtons1.OK.Enabled = false; };
  form.DialogButtons1.OK.DoClick();
  EXPECT_FALSE(form.Closed()) << "leaving disabled the button on the way to it";
}

TEST(Form, EnterAndEscPressTheDialogButtons) {
  NameForm form;
  form.may_close = false;
  form.Text1[1].DoFocus();
  EXPECT_FALSE(form.Text1[1].DoKey(Key::Enter)) << "a field uses Enter itself";
  EXPECT_TRUE(form.Text1[1].DoKey(Key::Esc));
  EXPECT_TRUE(form.Text1[1].HasFocus()) << "the form stayed open, and so he goes on where he was";
  form.lstNames.DoFocus();
  EXPECT_TRUE(form.lstNames.DoKey(Key::Enter));
  EXPECT_THAT(form.events, ElementsAre("enter 1", "cancel", "query", "enter 1", "ok"));
  form.Text1[0].KeyDown = [](Key key) { return key == Key::F9; };
  EXPECT_TRUE(form.Text1[0].DoKey(Key::F9));
  EXPECT_FALSE(form.Text1[0].DoKey(Key::Down));
}

TEST(Form, ClosesOnceAndOnlyWhenItMay) {
  NameForm form;
  form.Load();
  form.Load();
  form.may_close = false;
  EXPECT_FALSE(form.DoClose());
  form.may_close = true;
  EXPECT_TRUE(form.DoClose());
  EXPECT_TRUE(form.DoClose());
  EXPECT_THAT(form.events, ElementsAre("load", "query", "query"));
}

}  // namespace
}  // namespace forms
