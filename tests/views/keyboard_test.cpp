#include <gmock/gmock.h>
#include <wx/wx.h>

#include <wx/grid.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>

#include <map>

#include "assistive.h"
#include "contrast.h"
#include "forms/dialog_buttons.h"
#include "forms/grid.h"
#include "forms/text_box.h"
#include "forms/tool_bar.h"
#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/form_dialog.h"
#include "views/grid_binder.h"
#include "views/text_binders.h"
#include "views/wx_user.h"

namespace {

using testing::ElementsAre;

struct Sample : forms::Form {
  explicit Sample(std::string form_name = "Sample") : Form(std::move(form_name)) {
    ToolStrip.Add("New", "New", "");
    Add("txtName", txtName);
    Add("cmdPick", cmdPick);
    Add("picSwap", picSwap);
    Add("ToolStrip", ToolStrip);
    Add("grdRows", grdRows);
    Add("txtNote", txtNote);
    Add("DialogButtons1", DialogButtons1);
    cmdPick.Caption = "...";
    cmdPick.TabStop = false;
    picSwap.Caption = "S&wap";
    txtNote.MultiLine = true;
    auto rows = std::make_shared<forms::TableRows>();
    for (const char* name : {"Ann", "Bob", "Cay"}) {
      rows->rows.push_back({{name, "Houston", "TX"}});
    }
    grdRows.Columns = std::vector<forms::GridColumn>{{.key = "a", .caption = "Name"},
                                                     {.key = "b", .caption = "City", .visible = false},
                                                     {.key = "c", .caption = "State"}};
    grdRows.Rows = rows;
    grdRows.Row = 1;
    grdRows.FilterBar = true;
    DialogButtons1.Cancel.Click = [this] { DoClose(); };
  }

  forms::TextBox txtName, txtNote;
  forms::Button cmdPick;
  forms::PictureBox picSwap;
  forms::ToolBar ToolStrip;
  forms::Grid grdRows;
  forms::DialogButtons DialogButtons1;
};

void LayOutSample(views::FormDialog& dialog, Sample& form) {
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(views::MakeTextBox(&dialog, form.txtName, 10));
  page->Add(views::MakePickButton(&dialog, form.cmdPick));
  page->Add(views::MakePicture(&dialog, form.picSwap));
  page->Add(views::MakeToolBar(&dialog, form.ToolStrip));
  page->Add(views::MakeGrid(&dialog, form.grdRows, 5));
  page->Add(views::MakeTextBox(&dialog, form.txtNote, 10, 2));
  page->Add(views::MakeDialogButtons(&dialog, form.DialogButtons1));
  dialog.SetSizer(page);
}

// Entries that a person gives an order.
struct Ordering : Sample {
  Ordering() : Sample("Ordering") {
    Add("lstOrder", lstOrder);
    lstOrder.Items = std::vector<forms::ListItem>{{"Ann"}, {"Bob"}, {"Cay"}};
    lstOrder.Moved = [this](int from, int to) { moved = std::to_string(from) + " to " + std::to_string(to); };
  }

  forms::ListBox lstOrder;
  std::string moved;
};

void LayOutOrdering(views::FormDialog& dialog, Ordering& form) {
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(views::MakeListBox(&dialog, form.lstOrder, {10}, 5));
  dialog.SetSizer(page);
}

// The form in a window that has the keyboard, and what a person's hands do there.
class Keyboard : public testing::Test {
 protected:
  Keyboard() {
    user_.OnShown = [this](wxDialog& dialog) { OnShown(dialog); };
  }

  // Opens the form, does that and closes it.
  void With(const std::function<void()>& work) { Open(form_, work); }
  void Open(Sample& form, const std::function<void()>& work) {
    work_ = work;
    user_.Show(form);
  }
  // What closes a window over the form.
  void AnswerBy(const std::function<void(wxDialog&)>& answer) { answer_ = answer; }

  // As the toolkit passes on a key: the dialog's hook, the widget, then the character.
  void Press(int key, int modifiers = wxMOD_NONE) {
    for (const auto& type : {wxEVT_CHAR_HOOK, wxEVT_KEY_DOWN}) {
      wxWindow* at = wxWindow::FindFocus();
      ASSERT_NE(at, nullptr);
      wxKeyEvent event(type);
      event.m_keyCode = key;
      event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
      event.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
      event.SetAltDown((modifiers & wxMOD_ALT) != 0);
      event.SetEventObject(at);
      if (at->ProcessWindowEvent(event) && !event.IsNextEventAllowed()) {
        break;
      }
    }
    wxTheApp->Yield();
  }
  // Lets the display's events come until that is so, or for too long.
  static void Await(const std::function<bool()>& condition) {
    constexpr long kPatience = 5000;  // milliseconds
    const wxStopWatch watch;
    while (!condition() && watch.Time() < kPatience) {
      wxTheApp->Yield();
      wxMilliSleep(5);
    }
  }
  static std::string Focus() {
    const wxWindow* at = wxWindow::FindFocus();
    return at == nullptr ? "" : at->GetName().utf8_string();
  }
  wxGrid& Grid() const { return dynamic_cast<wxGrid&>(dialog_->Find(form_.grdRows)->Widget()); }
  wxWindow& Widget(const forms::Control& control) const { return dialog_->Find(control)->Widget(); }

  Sample form_;
  views::FormDialog* dialog_ = nullptr;
  views::WxUser user_{Views(), views::Pictures({})};

 private:
  static views::ViewRegistry Views() {
    views::ViewRegistry registry;
    registry.Add<Sample>("Sample", LayOutSample);
    registry.Add<Ordering>("Ordering", LayOutOrdering);
    return registry;
  }
  void OnShown(wxDialog& dialog) {
    AwaitKeyboard(dialog);
    if (auto* screen = dynamic_cast<views::FormDialog*>(&dialog)) {
      dialog_ = screen;
      work_();
      screen->Form().Close();
    } else {
      answer_(dialog);
    }
  }
  // The display gives a window the keyboard in its own time.
  static void AwaitKeyboard(wxDialog& dialog) {
    Await([&] {
      dialog.Raise();
      return HasKeyboard(dialog);
    });
  }

  std::function<void()> work_;
  std::function<void(wxDialog&)> answer_;
};

TEST_F(Keyboard, TheRowOfAListStaysHighlighted) {
  With([this] {
    form_.grdRows.SetFocus();
    wxTheApp->Yield();
    for (const int key : {WXK_RIGHT, WXK_LEFT, WXK_END, WXK_HOME}) {
      Press(key);
      EXPECT_TRUE(Grid().IsInSelection(1, 0) && !Grid().IsInSelection(0, 0)) << key;
      EXPECT_EQ(form_.grdRows.Row, 1) << key;
    }
    Press(WXK_TAB);
    EXPECT_TRUE(Grid().IsInSelection(1, 0));
  });
}

TEST_F(Keyboard, TheTabKeyGoesThroughTheFiltersAndTheRows) {
  With([this] {
    form_.txtName.SetFocus();
    wxTheApp->Yield();
    const auto tabs = [this](int modifiers) {
      std::vector<std::string> stops;
      for (int i = 0; i < 4; ++i) {
        Press(WXK_TAB, modifiers);
        stops.push_back(Focus());
      }
      return stops;
    };
    EXPECT_THAT(tabs(wxMOD_NONE), ElementsAre("grdRows.filter.a", "grdRows.filter.c", "grdRows", "txtNote"));
    EXPECT_THAT(tabs(wxMOD_SHIFT), ElementsAre("grdRows", "grdRows.filter.c", "grdRows.filter.a", "txtName"));

    form_.grdRows.Row = 0;
    form_.grdRows.SetFocus();
    wxTheApp->Yield();
    Press(WXK_UP);
    EXPECT_EQ(Focus(), "grdRows.filter.a");
    Press(WXK_DOWN);
    EXPECT_EQ(Focus(), "grdRows");
  });
}

TEST_F(Keyboard, TypingOverTheRowsGoesOnInAFilter) {
  form_.grdRows.TypingField = form_.grdRows.Columns.get()[2].caption;
  With([this] {
    form_.grdRows.SetFocus();
    wxTheApp->Yield();
    wxKeyEvent typed(wxEVT_CHAR);
    typed.m_uniChar = 'T';
    Grid().ProcessWindowEvent(typed);
    EXPECT_EQ(Focus(), "grdRows.filter.c");
    EXPECT_EQ(dynamic_cast<wxTextCtrl&>(*wxWindow::FindFocus()).GetValue(), "T");
    Press(WXK_DOWN);
    EXPECT_EQ(form_.grdRows.Columns.get()[2].filter, "T") << "at once";
    EXPECT_EQ(Focus(), "grdRows");
    EXPECT_EQ(form_.grdRows.FilterCell.get(), -1);
    form_.txtName.SetFocus();
    wxTheApp->Yield();
    form_.grdRows.DoEnterFilters();
    wxTheApp->Yield();
    EXPECT_EQ(Focus(), "grdRows.filter.c");
  });
}

TEST_F(Keyboard, AFilterComesIntoViewWithTheKeyboard) {
  auto columns = form_.grdRows.Columns.get();
  columns[0].width = 5000;
  form_.grdRows.Columns = columns;
  form_.grdRows.Rows = std::make_shared<forms::TableRows>();
  With([this] {
    form_.grdRows.SetFocus();
    wxTheApp->Yield();
    for (const auto* filter : {"grdRows.filter.c", "grdRows.filter.a"}) {
      Press(WXK_TAB, wxMOD_SHIFT);
      ASSERT_EQ(Focus(), filter);
      EXPECT_TRUE(Grid().GetScreenRect().Intersects(wxWindow::FindFocus()->GetScreenRect())) << filter;
    }
  });
}

TEST_F(Keyboard, EscClearsAFilterBeforeItCloses) {
  int filtered = 0;
  form_.grdRows.FilterChanged = [&] { ++filtered; };
  form_.grdRows.DoFilter(2, "T");
  With([&] {
    wxWindow* filter = wxWindow::FindWindowByName("grdRows.filter.c", &Grid());
    filter->SetFocus();
    Press(WXK_ESCAPE);
    EXPECT_EQ(form_.grdRows.Columns.get()[2].filter, "");
    EXPECT_EQ(filtered, 2) << "at once";
    EXPECT_EQ(Focus(), "grdRows.filter.c");
    EXPECT_FALSE(form_.Closed());
    Press(WXK_ESCAPE);
    EXPECT_TRUE(form_.Closed());
  });
}

TEST_F(Keyboard, TheSelectionCanBeReadWhileTheKeyboardIsElsewhere) {
  static constexpr double kReadable = 4.5;
  With([this] {
    form_.txtName.SetFocus();
    wxTheApp->Yield();
    const wxColour away = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW);
    EXPECT_GE(Contrast(Grid().GetSelectionForeground(), away), kReadable) << away.GetAsString().utf8_string();
    form_.grdRows.SetFocus();
    wxTheApp->Yield();
    EXPECT_EQ(Grid().GetSelectionForeground(), wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT));
  });
}

TEST_F(Keyboard, ComesBackFromAQuestionToWhereItWas) {
  form_.txtName.Text = "Smith";
  form_.txtName.KeyDown = [this](forms::Key key) {
    if (key == forms::Key::F9) {
      user_.Tell("Not so.");
    }
    return key == forms::Key::F9;
  };
  form_.ToolStrip["New"].Click = [this] { user_.Tell("Added."); };
  bool chosen = false;
  form_.grdRows.KeyDown = [&](forms::Key key) {
    chosen = chosen || key == forms::Key::Enter;
    return key == forms::Key::Enter;
  };
  AnswerBy([](wxDialog& question) { question.EndModal(wxID_OK); });
  With([&] {
    form_.txtName.SetFocus();
    wxTheApp->Yield();
    auto& box = dynamic_cast<wxTextCtrl&>(Widget(form_.txtName));
    box.SetSelection(2, 3);
    Press(WXK_DOWN, wxMOD_ALT);
    EXPECT_EQ(Focus(), "txtName");
    EXPECT_EQ(box.GetStringSelection(), "i") << "the caret stays where it was";
    form_.grdRows.SetFocus();
    wxTheApp->Yield();
    wxCommandEvent click(wxEVT_BUTTON);
    Widget(form_.ToolStrip["New"]).ProcessWindowEvent(click);
    wxTheApp->Yield();
    Press(WXK_RETURN);
    EXPECT_TRUE(chosen) << "a command leaves the rows the keyboard";
  });
}

// Typed at the display itself: the widget is at work on the key while the rule refuses it.
TEST_F(Keyboard, ARefusedCharacterLeavesWhatIsSelected) {
  bool told = false;
  form_.txtName.Text = "1980";
  form_.txtName.KeyPress = [&](char32_t) {
    user_.Tell("Digits only.");
    told = true;
    return U'\0';
  };
  AnswerBy([](wxDialog& question) { question.EndModal(wxID_OK); });
  With([&] {
    form_.txtName.SetFocus();
    wxTheApp->Yield();
    auto& box = dynamic_cast<wxTextCtrl&>(Widget(form_.txtName));
    EXPECT_EQ(box.GetStringSelection(), "1980");
    wxUIActionSimulator().Char('X');
    Await([&] { return told && box.GetStringSelection() == "1980"; });
    wxTheApp->Yield();
    EXPECT_EQ(box.GetStringSelection(), "1980");
    form_.txtNote.SetFocus();
    EXPECT_EQ(box.GetStringSelection(), "") << "the keyboard is no longer there";
  });
}

TEST_F(Keyboard, AltWithAnArrowAndTheMouseMoveAnEntry) {
  Ordering form;
  Open(form, [&] {
    form.lstOrder.SetFocus();
    form.lstOrder.ListIndex = 1;
    wxTheApp->Yield();
    wxUIActionSimulator hands;
    hands.Char(WXK_UP, wxMOD_ALT);
    Await([&] { return form.moved == "1 to 0"; });
    EXPECT_EQ(form.moved, "1 to 0");
    hands.Char(WXK_DOWN, wxMOD_ALT);
    Await([&] { return form.moved == "1 to 2"; });
    EXPECT_EQ(form.moved, "1 to 2");

    auto& list = dynamic_cast<wxListCtrl&>(Widget(form.lstOrder));
    const auto go_to = [&](long item) {
      wxRect place;
      list.GetItemRect(item, place);
      hands.MouseMove(list.ClientToScreen(place.GetPosition() + wxPoint(20, place.height / 2)));
      wxTheApp->Yield();
    };
    form.moved.clear();
    go_to(0);
    hands.MouseDown();
    for (const long item : {1, 0, 1, 2}) {
      go_to(item);
    }
    hands.MouseUp();
    Await([&] { return !form.moved.empty(); });
    EXPECT_EQ(form.moved, "0 to 2");
  });
}

// What a button picks stays with the button, unless its rule sends the keyboard on.
TEST_F(Keyboard, GoesWhereTheRuleOfAPickSendsIt) {
  bool on = false;
  form_.cmdPick.Click = [&] {
    user_.Tell("Picked.");
    if (on) {
      form_.txtNote.SetFocus();
    }
  };
  AnswerBy([](wxDialog& question) { question.EndModal(wxID_OK); });
  With([&] {
    for (const char* focus : {"cmdPick", "txtNote"}) {
      form_.txtName.SetFocus();
      wxTheApp->Yield();
      wxCommandEvent click(wxEVT_BUTTON);
      Widget(form_.cmdPick).ProcessWindowEvent(click);
      wxTheApp->Yield();
      EXPECT_EQ(form_.ActiveControl()->Name(), focus);
      EXPECT_EQ(Focus(), focus);
      on = true;
    }
  });
}

TEST_F(Keyboard, SavesAndPressesByLetters) {
  std::vector<std::string> events;
  form_.DialogButtons1.OK.Click = [&] { events.emplace_back("ok"); };
  form_.picSwap.Click = [&] { events.emplace_back("swap"); };
  form_.txtNote.KeyDown = [&](forms::Key key) {
    if (key == forms::Key::CtrlS) {
      events.emplace_back("save");
    }
    return key == forms::Key::CtrlS;
  };
  With([&] {
    form_.txtNote.SetFocus();
    wxTheApp->Yield();
    Press('W', wxMOD_ALT);
    EXPECT_EQ(Focus(), "txtNote");
    Press('S', wxMOD_CONTROL);
    Press(WXK_RETURN, wxMOD_CONTROL);
  });
  EXPECT_THAT(events, ElementsAre("swap", "save", "ok"));
}

// Keeps the place of the one window there is.
class Places : public session::Settings {
 public:
  std::string OfficeSetting(std::string_view /*section*/, std::string_view /*key*/) const override { return {}; }
  std::string UserOption(std::string_view /*section*/, std::string_view /*key*/) const override { return place_; }
  void SetOfficeSetting(std::string_view /*section*/, std::string_view /*key*/, std::string_view /*value*/) override {}
  void SetUserOption(std::string_view /*section*/, std::string_view /*key*/, std::string_view value) override {
    place_ = value;
  }

 private:
  std::string place_;
};

// Of a form that keeps its place in parts.
struct PartsSample : Sample {
  bool KeepsPlaceInParts() const override { return true; }
};

struct PlaceParts : Places {
  std::map<std::string, std::string> options;
  std::string UserOption(std::string_view /*section*/, std::string_view key) const override {
    const auto found = options.find(std::string(key));
    return found == options.end() ? std::string() : found->second;
  }
  void SetOfficeSetting(std::string_view /*section*/, std::string_view /*key*/, std::string_view /*value*/) override {}
  void SetUserOption(std::string_view /*section*/, std::string_view key, std::string_view value) override {
    options[std::string(key)] = value;
  }
};

TEST_F(Keyboard, APlaceInPartsIsKeptAndFound) {
  PlaceParts places;
  user_.SetPlaces(&places);
  wxSize size;
  PartsSample first;
  Open(first, [&] {
    size = dialog_->GetClientSize() + wxSize(40, 30);
    dialog_->SetClientSize(size);
    wxTheApp->Yield();
  });
  const std::string key = first.PlaceKey();
  EXPECT_EQ(places.options[key + "_S"], "0");
  EXPECT_EQ(places.options.size(), 5U);
  PartsSample second;
  Open(second, [&] { EXPECT_EQ(dialog_->GetClientSize(), size); });
  user_.SetPlaces(nullptr);
}

// The frames of windows differ, and the toolkit takes that of the last for the next one's.
TEST_F(Keyboard, AWindowOpensAsLargeAsItWas) {
  Places places;
  user_.SetPlaces(&places);
  AnswerBy([](wxDialog& question) {
    TellOfFrame(question, 1, 20);
    wxTheApp->Yield();
    question.EndModal(wxID_OK);
  });
  std::vector<wxSize> sizes;
  for (int i = 0; i < 3; ++i) {
    Sample form;
    Open(form, [&] {
      sizes.push_back(dialog_->GetClientSize());
      TellOfFrame(*dialog_, 5, 30);
      wxTheApp->Yield();
    });
    user_.Tell("Done.");
  }
  EXPECT_THAT(sizes, testing::Each(sizes.front()));
}

}  // namespace
