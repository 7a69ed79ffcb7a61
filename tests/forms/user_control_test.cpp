#include "forms/user_control.h"

#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/text_box.h"

namespace forms {
namespace {

using testing::ElementsAre;

std::vector<std::string> heard;

// A field with a list of its own, as several screens have it.
class Search : public UserControl {
 public:
  Search() { Add("TDBG", Grid); }

  TextBox Grid;
  bool may_close = true;
  int work = 2;

 protected:
  void OnLoad() override { heard.push_back(Name() + " loads"); }
  bool OnKey(Key key) override { return key == Key::F9 && (heard.push_back(Name() + " F9"), true); }
  void OnFocus(Control* control) override { heard.push_back(Name() + (control == &Grid ? " in" : " out")); }
  bool QueryClose() override { return may_close; }
  bool OnIdle() override { return --work > 0; }
};

// A user control on a user control, and a list that drops below a field of the screen.
class Nested : public UserControl {
 public:
  explicit Nested(Control& adopted) {
    Add("Inner", Inner);
    Adopt(adopted);
  }
  Search Inner;
};

class List : public DropPanel {
 public:
  List() { Add("Items", Items); }
  TextBox Items;
  int left = 0;

 protected:
  std::string Scope() const override { return {}; }
  void OnFocusLeft() override { ++left; }
};

class Screen : public Form {
 public:
  Screen() : Form("Screen"), uc(Text1[1]) {
    Add("Text1", Text1);
    Add("uc", uc);
    Add("Panel", list);
    Add("DialogButtons1", DialogButtons1);
    DialogButtons1.Help.Visible = false;
    heard.clear();
  }
  std::array<TextBox, 3> Text1;
  Nested uc;
  List list;
  DialogButtons DialogButtons1;

  using Form::Reads;

 protected:
  void OnLoad() override { heard.emplace_back("screen loads"); }
  bool OnKey(Key key) override { return key == Key::Insert; }
};

TEST(UserControl, HasANameScopeOfItsOwn) {
  Screen screen;
  EXPECT_EQ(screen.Find("uc.Inner.TDBG"), &screen.uc.Inner.Grid);
  EXPECT_EQ(screen.Find("Items"), &screen.list.Items) << "whose controls are the screen's by name";
  EXPECT_EQ(screen.Text1[1].Name(), "Text1(1)");
  EXPECT_TRUE(screen.Text1[1].LiesOn(screen.uc));
}

TEST(UserControl, LoadsAfterItsScreenAndHearsOfKeysFocusClosingAndPauses) {
  Screen screen;
  screen.Load();
  EXPECT_THAT(heard, ElementsAre("screen loads", "uc.Inner loads", "uc.Inner out")) << "the focus starts in a field";
  heard.clear();
  screen.uc.Inner.Grid.DoFocus();
  EXPECT_TRUE(screen.uc.Inner.Grid.DoKey(Key::F9));
  EXPECT_TRUE(screen.uc.Inner.Grid.DoKey(Key::Insert)) << "what no panel uses goes on to the form";
  EXPECT_FALSE(screen.Text1[1].DoKey(Key::F9)) << "the outer control has no use for it";
  EXPECT_THAT(heard, ElementsAre("uc.Inner in", "uc.Inner F9"));
  screen.uc.Inner.may_close = false;
  EXPECT_FALSE(screen.DoClose());
  EXPECT_TRUE(screen.DoIdle());
  EXPECT_FALSE(screen.DoIdle());
}

TEST(UserControl, ADroppedPanelGoesWhenTheFocusRestsElsewhere) {
  Screen screen;
  screen.Text1[0].DoFocus();
  screen.list.Drop(screen.Text1[0]);
  screen.list.Items.DoFocus();
  EXPECT_EQ(screen.NextStop(&screen.list.Items), &screen.Text1[1]) << "on behind the field";
  EXPECT_EQ(screen.NextStop(&screen.list.Items, true), &screen.Text1[0]) << "and back to it";
  EXPECT_EQ(screen.NextStop(&screen.Text1[2]), &screen.uc.Inner.Grid) << "it is no part of the page";
  screen.Text1[0].DoFocus();
  EXPECT_TRUE(screen.list.Visible);
  screen.Text1[2].DoFocus();
  EXPECT_FALSE(screen.list.Visible);
  EXPECT_EQ(screen.list.left, 1);
}

TEST(ReadingOrder, TabGoesRoundAsTheFormReads) {
  Screen screen;
  Label heading;
  screen.Add("Label1", heading);
  screen.Text1[2].Heading = &heading;
  screen.Reads({&screen.Text1[2], &screen.uc});
  const auto& order = screen.ReadingOrder();
  EXPECT_EQ(order[0], &heading) << "a heading is read before its field";
  EXPECT_EQ(order.size(), screen.Controls().size());
  std::vector<std::string> stops;
  const Control* at = nullptr;
  do {
    at = screen.NextStop(at);
    stops.push_back(at->Name());
    EXPECT_EQ(screen.NextStop(screen.NextStop(at), true), at) << "Shift+Tab goes the same way back";
  } while (stops.size() < 7 && screen.NextStop(at) != &screen.Text1[2]);
  EXPECT_THAT(stops, ElementsAre("Text1(2)", "Text1(1)", "uc.Inner.TDBG", "Text1(0)", "DialogButtons1.OK",
                                 "DialogButtons1.Cancel"));
  screen.Text1[1].TabStop = false;
  EXPECT_EQ(screen.NextStop(&screen.Text1[2]), &screen.uc.Inner.Grid);
  EXPECT_EQ(screen.NextField(&screen.Text1[0]), &screen.DialogButtons1.OK);
}

TEST(ReadingOrder, OfAGroupOfOptionsTabStopsAtTheChosenOne) {
  OptionButton left;
  OptionButton right;
  const OptionGroup group{&left, &right};
  EXPECT_TRUE(left.StopsTab() && right.StopsTab());
  right.Value = true;
  EXPECT_FALSE(left.StopsTab());
  EXPECT_TRUE(right.StopsTab());
}

TEST(SpokenName, IsTheHeadingTheCaptionOrWhatTheControlIsCalled) {
  Button button;
  button.ToolTip = " Swap names ";
  EXPECT_EQ(button.SpokenName(), "Swap names");
  button.Caption = "...";
  EXPECT_EQ(button.SpokenName(), "Swap names");
  button.Caption = "Save && &Book";
  EXPECT_EQ(button.SpokenName(), "Save & Book");
  Label heading;
  heading.Caption = "&Provider :";
  button.Heading = &heading;
  EXPECT_EQ(button.SpokenName(), "Provider");
}

}  // namespace
}  // namespace forms
