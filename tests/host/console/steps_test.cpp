#include "host/console/play.h"

namespace host {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(ActingSteps, TypeIntoFields) {
  EXPECT_EQ(Play("type Text1(1) 1a2\n"
                 "expect Text1(1) = 12\n"
                 "add Text1(1) 3x\n"
                 "expect text1(1).Text = \"123\"\n"
                 "type Combo1 two\n"
                 "expect Combo1 = two\n"
                 "press Text1(1) Delete\n"
                 "expect Text1(1) = \"\"\n"
                 "press Text1(1) 7\n"
                 "expect Text1(1) ~ \"?\"\n"
                 "close"),
            "");
}

TEST(ActingSteps, ARuleThatAsksKeepsTheFocus) {
  EXPECT_EQ(Play("type Text1(1) 9\n"
                 "type Text1(0) abc\n"
                 "ask = \"Not 9.\" icon = none buttons = OK\n"
                 "answer OK\n"
                 "expect Text1(0) = \"\"\n"
                 "expect Text1(1).Focus = on\n"
                 "leave Text1(1)\n"
                 "ask ~ \"Not*\"\n"
                 "type Text1(1) 8\n"
                 "enter Text1(2)\n"
                 "expect List1.Focus = True\n"
                 "close"),
            "");
}

TEST(ActingSteps, OnEveryKindOfControl) {
  EXPECT_EQ(Play("check Check1 mixed\n"
                 "expect Check1 = mixed\n"
                 "check Check1 on\n"
                 "expect Check1.Value = True\n"
                 "press Check1 \" \"\n"
                 "expect Check1 = off\n"
                 "choose optRight\n"
                 "expect optRight = on\n"
                 "choose optLeft\n"
                 "expect optRight = off\n"
                 "pick Combo1 #1\n"
                 "expect Combo1 = two\n"
                 "expect Combo1.Count = 2\n"
                 "pick List1 \"Springfield IL\"\n"
                 "expect Label1 = picked\n"
                 "pick List1 Shelbyville\n"
                 "expect List1.Row = 1\n"
                 "line List1 #1 = \"Shelbyville|IL\"\n"
                 "open-row List1\n"
                 "expect Label1 = opened\n"
                 "click ToolStrip.New\n"
                 "expect Label1 = \"tool New\"\n"
                 "menu MnuFile\n"
                 "expect Label1 = menu\n"
                 "tab Tab1 Second\n"
                 "expect Tab1 = Second\n"
                 "tab Tab1 First\n"
                 "slide Slider1 4\n"
                 "expect Slider1 = 4\n"
                 "expect cmdAsk.Caption = Ask\n"
                 "expect DialogButtons1.Extra.Visible = off\n"
                 "form SampleForm caption = Sample\n"
                 "click DialogButtons1.OK\n"
                 "done"),
            "");
}

TEST(ActingSteps, OnGrids) {
  EXPECT_EQ(Play("rows Grid1 = 2\n"
                 "columns Grid1 = \"Name|On\"\n"
                 "row Grid1 Bob\n"
                 "expect Grid1.Row = 1\n"
                 "cell Grid1 Name Bert\n"
                 "tick Grid1 On off\n"
                 "line Grid1 #1 = \"Bert|0\"\n"
                 "row Grid1 #0\n"
                 "press Grid1 Down\n"
                 "expect Grid1 ~ \"Bert*\"\n"
                 "open-row Grid1\n"
                 "expect Label1 = \"opened row\"\n"
                 "sort Grid1 Name\n"
                 "expect Label1 = \"sorted by 1\"\n"
                 "filter Grid1 Name b\n"
                 "expect Label1 = \"time passed\"\n"
                 "close"),
            "");
}

TEST(ActingSteps, NobodyActsOnWhatCannotBeUsed) {
  EXPECT_THAT(Play("click cmdOnPanel"), HasSubstr("cmdOnPanel lies on Panel1, which is hidden"));
  EXPECT_THAT(Play("click DialogButtons1.Extra"), HasSubstr("DialogButtons1.Extra is hidden"));
  EXPECT_THAT(Play("fire Timer1"), HasSubstr("Timer1 is not running"));
  EXPECT_THAT(Play("cell Grid1 Name x"), HasSubstr("no current row"));
  EXPECT_THAT(Play("row Grid1 #0\ncell Grid1 ID x"), HasSubstr("is hidden"));
  EXPECT_THAT(Play("slide Slider1 11"), HasSubstr("goes from 0 to 10"));
  EXPECT_THAT(Play("pick List1 IL"), HasSubstr("several entries"));
  EXPECT_THAT(Play("row Grid1 Zoe"), HasSubstr("has no row \"Zoe\""));
}

TEST(AnsweringSteps, ChecksAndAnswersTheBox) {
  EXPECT_EQ(
      Play(
          "click cmdAsk\n"
          "ask = \"Save [ it ] ?\\nReally?\" title = Save icon = question buttons = \"Yes, No, Cancel\" default = yes\n"
          "expect Label1 = \"\"\n"
          "answer no\n"
          "expect Label1 = \"answered No\"\n"
          "click cmdPick\n"
          "chosen #10FF00\n"
          "chosen 1979-12-31\n"
          "prompt = Name? title ~ TAVO*\n"
          "input \"O'Brien\"\n"
          "expect Label1 = \"16 1979-12-31 O'Brien\"\n"
          "click cmdPick\n"
          "chosen-none\n"
          "chosen-none\n"
          "input-cancel\n"
          "expect Label1 = \"-1 none none\"\n"
          "close"),
      "");
}

TEST(AnsweringSteps, ChildScreensAreOnTop) {
  EXPECT_EQ(Play("click cmdChild\n"
                 "form SampleForm caption = Child\n"
                 "type Text1(0) x\n"
                 "close\n"
                 "ask = Close? default = No\n"
                 "answer No\n"
                 "form SampleForm caption = Child\n"
                 "press Text1(1) Esc\n"
                 "answer Yes\n"
                 "form SampleForm caption = Sample\n"
                 "expect Text1(0) = \"\"\n"
                 "close"),
            "");
}

TEST(AnsweringSteps, NothingIsLeftOpenAndNothingAnsweredThatWasNotAsked) {
  EXPECT_THAT(Play("click cmdAsk\nexpect Label1 = \"\"\nclick cmdPick"),
              HasSubstr("is open, and this line does not deal"));
  EXPECT_THAT(Play("click cmdAsk"), HasSubstr("is left open"));
  EXPECT_THAT(Play("type Text1(1) 9\nleave Text1(1)\nclose"), StartsWith("test.scn:4: close\n  the message box"));
  EXPECT_THAT(Play("answer Yes"), HasSubstr("no question is open"));
  EXPECT_THAT(Play("click cmdAsk\nanswer OK"), HasSubstr("has no button OK"));
  EXPECT_THAT(Play("click cmdAsk\ninput x"), HasSubstr("no input box is open"));
  EXPECT_THAT(Play("click cmdPick\nchosen red"), HasSubstr("does not offer"));
  EXPECT_THAT(Play("done"), HasSubstr("expected: nothing is open"));
  EXPECT_THAT(Play("click cmdAsk\nask = Save"), HasSubstr("was:      \"Save [ it ] ?\\nReally?\""));
}

TEST(CheckingSteps, AFailureShowsPlaceDifferenceAndTheControlItSpeaksOf) {
  EXPECT_EQ(Play("type Text1(0) Smithers\nexpect Text1(0) = Smithers"),
            "test.scn:3: expect Text1(0) = Smithers\n  expected: = \"Smithers\"\n  was:      \"Smith\"\n"
            "  SampleForm \"Sample\"\n    Text1(0) = \"Smith\"  focus\n");
  EXPECT_EQ(Play("click cmdChild\nexpect Check1 = off\nclose\nexpect Grid1.Count = 3"),
            "test.scn:5: expect Grid1.Count = 3\n  expected: = \"3\"\n  was:      \"2\"\n  SampleForm \"Sample\"\n"
            "    Grid1 = \"\"  2 rows, row -1\n      #0 = \"Ann|0\"\n      #1 = \"Bob|1\"\n");
}

TEST(CheckingSteps, ScreenPrintsItWhole) {
  std::ostringstream output;
  EXPECT_EQ(Play("screen\nclose\nscreen", &output), "");
  EXPECT_THAT(output.str(), StartsWith("  SampleForm \"Sample\"\n    Text1(0) = \"\"  focus\n"));
  EXPECT_THAT(output.str(), HasSubstr("    cmdOnPanel = \"\"  hidden\n"));
  EXPECT_THAT(output.str(), HasSubstr("    Check1 = off\n"));
  EXPECT_THAT(output.str(), EndsWith("no screen is open\n"));
}

TEST(CheckingSteps, APointInANameIsAPartOfIt) {
  EXPECT_EQ(Play("type ucSample1.Text1(0) abc\n"
                 "expect ucSample1.Text1(0) = abc\n"
                 "expect ucSample1.Text1(0).Focus = on\n"
                 "expect DialogButtons1.OK.Enabled = on\n"
                 "close"),
            "");
  EXPECT_THAT(Play("expect ucSample1.Text1(1) = abc"), HasSubstr("SampleForm has no control ucSample1.Text1(1)"));
}

TEST(CheckingSteps, UnknownNamesFail) {
  EXPECT_THAT(Play("clik cmdAsk"), HasSubstr("test.scn:2: clik cmdAsk\n  there is no step clik"));
  EXPECT_THAT(Play("click cmdNone"), HasSubstr("SampleForm has no control cmdNone"));
  EXPECT_THAT(Play("expect Text1(0).Colour = red"), HasSubstr("has no property Colour"));
  EXPECT_THAT(Play("filter Grid1 Age 3"), HasSubstr("has no column \"Age\""));
  EXPECT_THAT(Play("press Text1(0) F7"), HasSubstr("there is no key \"F7\""));
  EXPECT_THAT(Play("click cmdAsk twice"), HasSubstr("too many words"));
  EXPECT_THAT(Play("expect Text1(0)"), HasSubstr("the line ends where = or ~ is due"));
  EXPECT_THAT(Play("form OtherForm"), HasSubstr("was:      SampleForm"));
}

}  // namespace
}  // namespace host
