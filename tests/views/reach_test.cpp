#include <gmock/gmock.h>
#include <wx/wx.h>

#include <wx/stopwatch.h>

#include "assistive.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "reach_faults.h"
#include "support/fake_host.h"
#include "views/accessible_name.h"
#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/form_dialog.h"
#include "views/text_binders.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Sample : forms::Form {
  Sample() : Form("Sample") {
    lblName.Caption = "&Name :";
    lblCity.Caption = "Cit&y :";
    lblNote.Caption = "No&te";
    txtName.Heading = &lblName;
    txtCity.Heading = &lblCity;
    txtNote.Heading = &lblNote;
    cmdCall.Caption = "&Call...";
    Add("lblName", lblName);
    Add("txtName", txtName);
    Add("lblCity", lblCity);
    Add("txtCity", txtCity);
    Add("lblNote", lblNote);
    Add("txtNote", txtNote);
    Add("cmdCall", cmdCall);
    txtNote.MultiLine = true;
  }
  using Form::Reads;

  forms::Label lblName, lblCity, lblNote;
  forms::TextBox txtName, txtCity, txtNote;
  forms::Button cmdCall;
};

// Two titled groups one above the other, and a button below them.
class Reach : public testing::Test {
 protected:
  void LayOut() {
    auto* page = new wxBoxSizer(wxVERTICAL);
    views::FieldGroup person(&dialog_, "Person");
    person.Row({{form_.txtName, 10}});
    person.Row({{form_.txtCity, 10}});
    views::FieldGroup more(&dialog_, "More");
    more.Row({{form_.txtNote, 10}});
    page->Add(person.Sizer());
    page->Add(more.Sizer());
    page->Add(views::MakeButton(&dialog_, form_.cmdCall));
    Show(page);
  }
  // Captions come to lead to their fields in idle time.
  void Show(wxSizer* page) {
    dialog_.SetSizerAndFit(page);
    dialog_.Show();
    wxIdleEvent now;
    dialog_.SendIdleEvents(now);
  }
  // The display gives a window the keyboard in its own time.
  void AwaitKeyboard() {
    constexpr long kPatience = 5000;  // milliseconds
    const wxStopWatch watch;
    while (!HasKeyboard(dialog_) && watch.Time() < kPatience) {
      dialog_.Raise();
      wxTheApp->Yield();
      wxMilliSleep(5);
    }
  }
  std::string Heard(const forms::Control& control) const {
    return views::AccessibleName(dialog_.Find(control)->FocusWidget());
  }
  std::vector<std::string> Faults() const { return ReachFaults(dialog_); }

  Sample form_;
  views::Pictures pictures_{{}};
  test_support::FakeUser user_;
  views::FormDialog dialog_{nullptr, form_, user_, pictures_, nullptr};
};

TEST_F(Reach, IsGoodByDefault) {
  LayOut();
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_EQ(Heard(form_.txtName), "Name");
  EXPECT_EQ(Heard(form_.txtNote), "Note") << "where the text itself is, inside what scrolls";
  EXPECT_EQ(Heard(form_.cmdCall), "Call");
}

TEST_F(Reach, NamesFollowTheirHeadings) {
  LayOut();
  form_.lblCity.Caption = "&Town :";
  EXPECT_EQ(Heard(form_.txtCity), "Town");
  form_.cmdCall.Caption = "&Write...";
  EXPECT_EQ(Heard(form_.cmdCall), "Write");
}

TEST_F(Reach, MnemonicsGoThroughTheRules) {
  LayOut();
  std::vector<std::string> events;
  form_.txtName.Leave = [&] { events.emplace_back("leave name"); };
  form_.txtCity.Enter = [&] { events.emplace_back("enter city"); };
  form_.txtName.DoFocus();
  AwaitKeyboard();
  EXPECT_TRUE(PressMnemonic(dialog_, 'y'));
  wxTheApp->Yield();
  EXPECT_TRUE(form_.txtCity.HasFocus());
  EXPECT_THAT(events, ElementsAre("leave name", "enter city"));
  EXPECT_FALSE(PressMnemonic(dialog_, 'z'));

  form_.txtCity.Leave = [&] { form_.txtCity.SetFocus(); };
  form_.txtCity.DoFocus();
  EXPECT_TRUE(PressMnemonic(dialog_, 'n'));
  wxTheApp->Yield();
  EXPECT_TRUE(form_.txtCity.HasFocus()) << "a rule keeps the focus";
}

// The widgets hear of a rule's focus behind the keys that a fast typist has pressed by then.
TEST_F(Reach, KeysTypedAheadGoWhereARulePassesTheFocusOn) {
  LayOut();
  AwaitKeyboard();
  form_.txtName.Enter = [&] { form_.txtCity.SetFocus(); };
  wxWindow& name = dialog_.Find(form_.txtName)->Widget();
  dialog_.Find(form_.txtNote)->Widget().SetFocus();
  dialog_.SyncFocus();
  name.SetFocus();
  wxKeyEvent key(wxEVT_CHAR);
  key.m_uniChar = 'r';
  name.ProcessWindowEvent(key);
  EXPECT_EQ(form_.txtCity.Text, "r");
  EXPECT_EQ(form_.txtName.Text, "");
}

TEST_F(Reach, ShowsStopsOutOfReadingOrder) {
  form_.Reads({&form_.txtCity, &form_.txtName});
  LayOut();
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("\"txtCity\" comes before \"txtName\"")));
}

TEST_F(Reach, ShowsAStopThatComesBackToItsGroup) {
  form_.Reads({&form_.txtName, &form_.txtNote, &form_.txtCity});
  LayOut();
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("\"txtNote\" comes before \"txtCity\""),
                                    HasSubstr("\"txtCity\" comes back to \"group Person\"")));
}

TEST_F(Reach, ShowsAMnemonicThatTwoShare) {
  form_.cmdCall.Caption = "&You";
  LayOut();
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("\"cmdCall\" shares Alt+y with \"lblCity\"")));
}

TEST_F(Reach, ShowsAHeadingThatLeadsElsewhere) {
  form_.txtName.Heading = &form_.lblCity;
  form_.txtCity.Heading = &form_.lblName;
  auto* column = new wxBoxSizer(wxVERTICAL);
  for (auto [caption, box] : {std::pair(&form_.lblName, &form_.txtName), std::pair(&form_.lblCity, &form_.txtCity)}) {
    column->Add(views::MakeCaption(&dialog_, *caption));
    column->Add(views::MakeTextBox(&dialog_, *box, 10));
  }
  form_.txtNote.Visible = false;
  form_.cmdCall.Visible = false;
  Show(column);
  EXPECT_THAT(Faults(),
              ElementsAre(HasSubstr("\"lblCity\" leads elsewhere"), HasSubstr("\"lblName\" leads elsewhere")));
}

TEST_F(Reach, ShowsAWidgetThatIsCalledOtherwise) {
  LayOut();
  views::SetAccessibleName(dialog_.Find(form_.txtName)->FocusWidget(), "Nobody");
  EXPECT_THAT(Faults(), ElementsAre(HasSubstr("\"txtName\" is called 'Nobody' in place of 'Name'")));
}

}  // namespace
