#include <gmock/gmock.h>
#include <wx/wx.h>

#include <wx/clipbrd.h>
#include <wx/richtext/richtextctrl.h>

#include "forms/text.h"
#include "insurance/amounts.h"
#include "support/fake_host.h"
#include "views/choice_binders.h"
#include "views/form_dialog.h"
#include "views/grid_binder.h"
#include "views/grid_head_menu.h"
#include "views/rich_text_binder.h"
#include "views/rich_text_buffer.h"
#include "views/tab_binders.h"
#include "views/text_binders.h"

namespace {

struct Sample : forms::Form {
  Sample() : Form("Sample") {
    Add("txtName", txtName);
    Add("txtNote", txtNote);
    Add("chkFlag", chkFlag);
    Add("lstPlaces", lstPlaces);
    Add("grdRows", grdRows);
    Add("rtfNote", rtfNote);
    txtNote.MultiLine = true;
  }
  forms::TextBox txtName, txtNote;
  forms::CheckBox chkFlag;
  forms::ListBox lstPlaces;
  forms::Grid grdRows;
  forms::RichTextBox rtfNote;
};

// A form in a dialog that is not shown modally: widgets are acted on through their events.
class Binders : public testing::Test {
 protected:
  void Type(wxWindow& widget, const wxString& text) {
    for (const wxUniChar character : text) {
      wxKeyEvent key(wxEVT_CHAR);
      key.m_uniChar = character;
      key.SetEventObject(&widget);
      widget.ProcessWindowEvent(key);
    }
  }

  Sample form_;
  test_support::FakeUser user_;
  views::Pictures pictures_{{}};
  views::FormDialog dialog_{nullptr, form_, user_, pictures_, nullptr};
};

TEST_F(Binders, TypingGoesThroughTheControl) {
  form_.txtName.MaxLength = 4;
  form_.txtName.KeyPress = [](char32_t character) { return character == U'x' ? U'\0' : character; };
  form_.txtName.Change = [this] { form_.txtName.Text = forms::ToUpper(form_.txtName.Text.get()); };
  wxTextCtrl* box = views::MakeTextBox(&dialog_, form_.txtName, 10);
  Type(*box, wxString::FromUTF8("axé'bc"));
  EXPECT_EQ(form_.txtName.Text.get(), "AÉ'B");
  EXPECT_EQ(box->GetValue().utf8_string(), "AÉ'B");
  EXPECT_EQ(box->GetInsertionPoint(), 4);

  box->SetSelection(0, 3);
  Type(*box, "q");
  EXPECT_EQ(form_.txtName.Text.get(), "QB");
  EXPECT_EQ(box->GetInsertionPoint(), 1);
  Type(*box, "x");
  EXPECT_EQ(box->GetValue(), "QB");
}

TEST_F(Binders, PastingGoesThroughTheControl) {
  form_.txtName.MaxLength = 3;
  form_.txtName.Text = "z";
  form_.txtName.KeyPress = [](char32_t character) {
    return character >= U'0' && character <= U'9' ? character : U'\0';
  };
  wxTextCtrl* box = views::MakeTextBox(&dialog_, form_.txtName, 10);
  ASSERT_TRUE(wxTheClipboard->Open());
  wxTheClipboard->SetData(new wxTextDataObject("1a2\n345"));
  wxTheClipboard->Close();
  box->SetInsertionPoint(0);
  box->Paste();
  EXPECT_EQ(form_.txtName.Text.get(), "12z");
  EXPECT_EQ(box->GetValue(), "12z");
}

TEST_F(Binders, WhatTheWidgetTakesAwayReachesTheControl) {
  form_.txtNote.Text = "one\r\ntwo";
  wxTextCtrl* box = views::MakeTextBox(&dialog_, form_.txtNote, 10, 3);
  EXPECT_EQ(box->GetValue(), "one\ntwo");
  box->Remove(0, 2);
  EXPECT_EQ(form_.txtNote.Text.get(), "e\r\ntwo");
  box->SetInsertionPointEnd();
  Type(*box, "!");
  EXPECT_EQ(form_.txtNote.Text.get(), "e\r\ntwo!");
  EXPECT_EQ(box->GetInsertionPoint(), 6);
}

TEST_F(Binders, AReadOnlyFieldKeepsItsTextAndTellsTheRules) {
  form_.txtName.Text = "Clark";
  form_.txtName.ReadOnly = true;
  int told = 0;
  form_.txtName.KeyPress = [&](char32_t character) {
    ++told;
    return character;
  };
  wxTextCtrl* box = views::MakeTextBox(&dialog_, form_.txtName, 10);
  Type(*box, "x");
  box->Remove(0, 2);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(box->GetValue(), "Clark");
  EXPECT_EQ(form_.txtName.Text.get(), "Clark");
}

TEST_F(Binders, RulesShowAtOnce) {
  wxCheckBox* box = views::MakeCheckBox(&dialog_, form_.chkFlag);
  form_.chkFlag.Caption = "&Flag";
  form_.chkFlag.Value = forms::CheckState::Mixed;
  form_.chkFlag.Enabled = false;
  form_.chkFlag.ToolTip = "why";
  EXPECT_EQ(box->GetLabelText(), "Flag");
  EXPECT_EQ(box->Get3StateValue(), wxCHK_UNDETERMINED);
  EXPECT_FALSE(box->IsEnabled());
  EXPECT_EQ(box->GetToolTipText(), "why");
  form_.chkFlag.Visible = false;
  EXPECT_FALSE(box->IsShown());
  EXPECT_EQ(box->GetName(), "chkFlag");
}

TEST_F(Binders, AListShowsColumnsAndTellsCharacters) {
  form_.lstPlaces.Items = std::vector<forms::ListItem>{{"Abilene\tTX", 7}, {"Zwolle\tLA", 8}};
  std::u32string typed;
  form_.lstPlaces.KeyPress = [&](char32_t character) { typed += character; };
  wxListCtrl* list = views::MakeListBox(&dialog_, form_.lstPlaces, {10, 3}, 4);
  EXPECT_EQ(list->GetItemCount(), 2);
  EXPECT_EQ(list->GetItemText(1, 1), "LA");
  form_.lstPlaces.ListIndex = 1;
  EXPECT_EQ(list->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED), 1);
  list->SetItemState(0, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
  EXPECT_EQ(form_.lstPlaces.ListIndex, 0);
  Type(*list->GetChildren().front(), "ab");
  EXPECT_EQ(typed, U"ab");
}

// Asked for the cells that are painted, and never for all.
class ManyRows : public forms::GridRows {
 public:
  int Count() const override { return 1'000'000; }
  std::string_view Text(int row, int cell) const override {
    return text_ = std::to_string(row) + "/" + std::to_string(cell);
  }

 private:
  mutable std::string text_;
};

TEST_F(Binders, AGridShowsItsRowsAndFilters) {
  form_.grdRows.Columns = std::vector<forms::GridColumn>{{.key = "a", .caption = "Name"},
                                                         {.key = "b", .caption = "Hidden", .visible = false},
                                                         {.key = "c", .caption = "City"}};
  form_.grdRows.FilterBar = true;
  form_.grdRows.Rows = std::make_shared<ManyRows>();
  int filtered = 0;
  form_.grdRows.FilterChanged = [&] { ++filtered; };
  wxGrid* grid = views::MakeGrid(&dialog_, form_.grdRows, 5);
  EXPECT_EQ(grid->GetNumberRows(), 1'000'000);
  EXPECT_EQ(grid->GetCellValue(999'999, 2), "999999/2");
  EXPECT_FALSE(grid->IsColShown(1));
  form_.grdRows.Row = 500'000;
  EXPECT_EQ(grid->GetGridCursorRow(), 500'000);
  grid->GoToCell(3, 0);
  EXPECT_EQ(form_.grdRows.Row, 3);

  form_.grdRows.SortColumn = 2;
  form_.grdRows.SortDescending = true;
  EXPECT_EQ(grid->GetColLabelValue(2).utf8_string(), "City \u25BC");

  auto* filter = dynamic_cast<wxTextCtrl*>(wxWindow::FindWindowByName("grdRows.filter.c", grid));
  ASSERT_NE(filter, nullptr);
  filter->SetValue("Hou");
  EXPECT_EQ(filtered, 0);
  wxKeyEvent enter(wxEVT_CHAR_HOOK);
  enter.m_keyCode = WXK_RETURN;
  filter->ProcessWindowEvent(enter);
  EXPECT_EQ(filtered, 1);
  EXPECT_EQ(form_.grdRows.Columns.get()[2].filter, "Hou");
  form_.grdRows.ClearFilters();
  EXPECT_EQ(filter->GetValue(), "");
}

TEST_F(Binders, MoneyPastedIntoACellIsUnderstoodOrRefused) {
  auto rows = std::make_shared<forms::TableRows>();
  rows->rows.push_back({{"D0120", "$5.00"}});
  form_.grdRows.Columns = std::vector<forms::GridColumn>{{.key = "a", .caption = "Code"},
                                                         {.key = "b", .caption = "Elig.Fee", .editable = true}};
  form_.grdRows.Rows = rows;
  form_.grdRows.CellEdited = [&](int column, const std::string& text) {
    const auto amount = insurance::ReadAmount(user_, form_.grdRows.Columns.get().at(1).caption, text);
    if (amount) {
      rows->rows[0].cells.at(static_cast<std::size_t>(column)) = forms::FormatCurrency(*amount);
    }
    return false;
  };
  wxGrid* grid = views::MakeGrid(&dialog_, form_.grdRows, 5);
  const auto paste = [&](const wxString& text) {
    user_.told.clear();
    EXPECT_TRUE(wxTheClipboard->Open());
    wxTheClipboard->SetData(new wxTextDataObject(text));
    wxTheClipboard->Close();
    grid->GoToCell(0, 1);
    grid->EnableCellEditControl();
    const wxObjectDataPtr<wxGridCellEditor> editor(grid->GetCellEditor(0, 1));
    auto& box = dynamic_cast<wxTextCtrl&>(*editor->GetControl());
    box.SelectAll();
    box.Paste();
    grid->DisableCellEditControl();
    return grid->GetCellValue(0, 1);
  };
  // A spreadsheet ends a cell with a line break.
  for (const char* text : {"1,234.50", "$1234.5", " 1234.50\t", "$1,234.50\n"}) {
    rows->rows[0].cells.at(1) = "$5.00";
    EXPECT_EQ(paste(text), "$1,234.50") << text;
    EXPECT_THAT(user_.told, testing::IsEmpty());
  }
  for (const char* text : {"(12)", "12%", "1.234,50", "1000000"}) {
    EXPECT_EQ(paste(text), "$1,234.50");
    EXPECT_THAT(user_.told, testing::ElementsAre(testing::HasSubstr("Elig.Fee field"))) << text;
  }
}

TEST_F(Binders, AGridSelectsAndMovesAsTheControlSays) {
  auto rows = std::make_shared<forms::TableRows>();
  for (const char* name : {"Ann", "Bob", "Cay", "Dee"}) {
    rows->rows.push_back({{name, "0"}});
  }
  form_.grdRows.Columns = std::vector<forms::GridColumn>{
      {.key = "a", .caption = "Name"},
      {.key = "b", .caption = "On", .kind = forms::GridColumn::Kind::Check, .editable = true}};
  form_.grdRows.Rows = rows;
  form_.grdRows.MultiSelect = true;
  form_.grdRows.RowsMove = true;
  wxGrid* grid = views::MakeGrid(&dialog_, form_.grdRows, 5);
  form_.grdRows.DoRow(0);
  form_.grdRows.DoExtendTo(1);
  form_.grdRows.DoToggleRow(3);
  EXPECT_TRUE(grid->IsInSelection(0, 0) && grid->IsInSelection(1, 1) && grid->IsInSelection(3, 0));
  EXPECT_FALSE(grid->IsInSelection(2, 0));

  const auto press = [grid](int code, int modifiers) {
    wxKeyEvent key(wxEVT_KEY_DOWN);
    key.m_keyCode = code;
    key.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
    key.SetAltDown((modifiers & wxMOD_ALT) != 0);
    key.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
    grid->ProcessWindowEvent(key);
  };
  press(WXK_UP, wxMOD_SHIFT);
  EXPECT_THAT(form_.grdRows.Selected(), testing::ElementsAre(2, 3));
  press('C', wxMOD_CONTROL);
  EXPECT_EQ(user_.copied, "Name\tOn\nCay\t0\nDee\t0\n");
  form_.grdRows.DoGoTo(2, 1);
  press(WXK_SPACE, wxMOD_NONE);
  EXPECT_EQ(form_.grdRows.Cell(2, 1), "1");
  press(WXK_UP, wxMOD_ALT);
  EXPECT_EQ(grid->GetCellValue(1, 0), "Cay");
  EXPECT_EQ(grid->GetGridCursorRow(), 1);

  form_.grdRows.DoMoveColumn(1, 0);
  EXPECT_EQ(grid->GetColLabelValue(0), "On");
  EXPECT_EQ(grid->GetCellValue(1, 1), "Cay");
  form_.grdRows.DoSizeColumn(0, 33);
  grid->SetColSize(0, grid->GetColSize(0) * 2);
  wxGridSizeEvent sized(grid->GetId(), wxEVT_GRID_COL_SIZE, grid, 0);
  grid->ProcessWindowEvent(sized);
  EXPECT_NEAR(form_.grdRows.Columns.get()[0].width, 66, 1) << "to the pixel";
}

TEST_F(Binders, AHeadingsMenuChangesTheLayout) {
  auto rows = std::make_shared<forms::TableRows>();
  rows->rows.push_back({{"Ann of the very, very long name", "Rye"}});
  form_.grdRows.Columns = std::vector<forms::GridColumn>{{.key = "a", .caption = "Name", .width = 40},
                                                         {.key = "b", .caption = "Salt & Pepper"}};
  form_.grdRows.Rows = rows;
  wxGrid* grid = views::MakeGrid(&dialog_, form_.grdRows, 5);
  grid->SetSize(600, 200);
  const auto choose = [&](const wxString& caption) {
    wxMenu menu;
    views::FillColumnMenu(menu, form_.grdRows, *grid, 0);
    const int item = menu.FindItem(caption);
    ASSERT_NE(item, wxNOT_FOUND) << caption;
    ASSERT_TRUE(menu.IsEnabled(item)) << caption;
    wxCommandEvent chosen(wxEVT_MENU, item);
    menu.ProcessEvent(chosen);
    wxTheApp->ProcessPendingEvents();
  };
  const int narrow = grid->GetColSize(0);
  choose("Size to Contents");
  EXPECT_GT(grid->GetColSize(0), 2 * narrow);
  choose("Salt && Pepper");
  EXPECT_FALSE(grid->IsColShown(1));
  wxMenu menu;
  views::FillColumnMenu(menu, form_.grdRows, *grid, 0);
  EXPECT_FALSE(menu.IsEnabled(menu.FindItem("Name"))) << "the last one stays";
  EXPECT_EQ(menu.FindItem("Sort Ascending"), wxNOT_FOUND) << "nothing sorts";

  wxGridSizeEvent sized(grid->GetId(), wxEVT_GRID_COL_SIZE, grid, 1);
  grid->SetColSize(1, 90);
  grid->ProcessWindowEvent(sized);
  EXPECT_FALSE(grid->IsColShown(1)) << "its edge was dragged for its neighbour's";
  choose("Salt && Pepper");
  EXPECT_TRUE(grid->IsColShown(1));
  const int row = grid->GetDefaultRowSize();
  form_.grdRows.RowHeight = 90;
  EXPECT_GT(grid->GetRowSize(0), row);
  form_.grdRows.RowHeight = 3;
  EXPECT_EQ(grid->GetRowSize(0), row);
}

TEST_F(Binders, PagesComeAndGoWithTheirTabs) {
  forms::TabStrip tabs;
  std::array<forms::Panel, 3> pages;
  for (forms::Panel& page : pages) {
    page.Caption = "Page " + std::to_string(&page - pages.data());
    tabs.AddPage(page);
  }
  form_.Add("tabs", tabs);
  form_.Add("pages", pages);
  form_.txtName.Container = &pages[2];
  auto holder = std::make_unique<views::FormDialog>(nullptr, form_, user_, pictures_, nullptr);
  wxNotebook* book = views::MakeTabs(holder.get(), tabs);
  views::MakeTextBox(views::PageOf(book, pages[2]), form_.txtName, 10);
  pages[0].Visible = false;
  EXPECT_EQ(book->GetPageCount(), 2U);
  EXPECT_EQ(book->GetPageText(0), "Page 1");
  EXPECT_EQ(book->GetSelection(), 0);
  book->SetSelection(1);
  EXPECT_EQ(tabs.CurrTab, 2);
  EXPECT_TRUE(form_.txtName.DoFocus());
  form_.txtName.Leave = [this] { form_.txtName.SetFocus(); };
  book->SetSelection(0);
  EXPECT_EQ(book->GetSelection(), 1) << "the field keeps the focus";
  form_.txtName.Leave = nullptr;
  pages[0].Visible = true;
  EXPECT_EQ(book->GetPageText(0), "Page 0");
  EXPECT_EQ(book->GetSelection(), 2);
  wxKeyEvent key(wxEVT_CHAR_HOOK);
  key.m_keyCode = WXK_PAGEDOWN;
  key.SetControlDown(true);
  book->ProcessWindowEvent(key);
  EXPECT_EQ(tabs.CurrTab, 0);
}

TEST_F(Binders, RichTextGoesBothWays) {
  form_.rtfNote.Html =
      "<p>Call <b>him</b><br><a href=\"https://a.b/\">here</a></p>"
      "<ul><li style=\"text-align:right\"><span style=\"font-size:18pt;color:#FF0000\"><i>soon</i></span></li></ul>";
  const std::string html = form_.rtfNote.Html;
  form_.rtfNote.DataChanged = false;
  form_.rtfNote.Change = [this] { form_.txtName.Text = form_.rtfNote.Text(); };
  wxPanel* panel = views::MakeRichTextBox(&dialog_, form_.rtfNote, 40, 5);
  auto* text = dynamic_cast<wxRichTextCtrl*>(wxWindow::FindWindowByName("rtfNote.text", panel));
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(forms::WriteHtml(views::ReadBuffer(text->GetBuffer())), html);
  EXPECT_FALSE(form_.rtfNote.DataChanged) << "showing is no change";

  text->SetInsertionPointEnd();
  text->WriteText("!");
  EXPECT_EQ(form_.txtName.Text, "Call him\r\nhere\r\nsoon!");
  text->SetSelection(0, 4);
  wxKeyEvent key(wxEVT_CHAR_HOOK);
  key.m_keyCode = 'U';
  key.SetControlDown(true);
  text->ProcessWindowEvent(key);
  EXPECT_TRUE(form_.rtfNote.Html.get().starts_with("<p><u>Call</u> <b>him</b>")) << form_.rtfNote.Html.get();
  form_.rtfNote.Html = "<b>x</b>";
  EXPECT_EQ(text->GetValue(), "x");
  form_.rtfNote.Html = "";
  EXPECT_EQ(text->GetValue(), "");
}

TEST_F(Binders, RichTextTakesInsertionsAtTheCaretAndPlainOnesLoseFormats) {
  form_.rtfNote.Html = "<p>Dear <b>Ann</b>,</p><p>yours</p>";
  wxPanel* panel = views::MakeRichTextBox(&dialog_, form_.rtfNote, 40, 5);
  auto* text = dynamic_cast<wxRichTextCtrl*>(wxWindow::FindWindowByName("rtfNote.text", panel));
  ASSERT_NE(text, nullptr);
  text->SetSelection(5, 8);
  form_.rtfNote.DoInsert("{Name}");
  EXPECT_EQ(form_.rtfNote.Text(), "Dear {Name},\r\nyours");
  form_.rtfNote.DoInsert("!");
  EXPECT_EQ(form_.rtfNote.Text(), "Dear {Name}!,\r\nyours") << "the caret stands behind what was inserted";
  text->Undo();
  EXPECT_EQ(form_.rtfNote.Text(), "Dear {Name},\r\nyours");

  form_.rtfNote.Plain = true;
  EXPECT_EQ(form_.rtfNote.Html.get(), "<p>Dear {Name},</p><p>yours</p>");
  EXPECT_FALSE(wxWindow::FindWindowByName("rtfNote.formats", panel)->IsShown());
}

}  // namespace
