#include "lookup/frmSearchWindow.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "data/literal.h"
#include "forms/text.h"

namespace lookup {
namespace {

using data::Sql;
using data::Words;
using session::SearchList;
using session::SearchOutcome;
using End = session::SearchOutcome::End;

constexpr int kFirstPage = 100;

struct Column {
  std::string_view caption;
  int width = 0;
  Words employers;
  Words carriers;

  Words Of(SearchList list) const { return list == SearchList::Employers ? employers : carriers; }
};
// The name first; the ID, which nobody sees, last.
constexpr std::array kColumns = {Column{"Name", 200, "EmpTable.EmpNam", "InsCoTable.InsCoNam"},
                                 Column{"Address 1", 160, "EmpTable.EmpAdd1", "InsCoTable.InsCoAdd1"},
                                 Column{"Address 2", 90, "EmpTable.EmpAdd2", "InsCoTable.InsCoAdd2"},
                                 Column{"City", 120, "EmpTable.EmpCIT", "InsCoTable.InsCoCit"},
                                 Column{"State", 50, "EmpTable.EmpSTA", "InsCoTable.InsCoSta"},
                                 Column{"Zip", 80, "EmpTable.EmpZIP", "InsCoTable.InsCoZip"},
                                 Column{"Phone", 120, "EmpTable.EmpTEL", "InsCoTable.InsCoTel"},
                                 Column{"ID", 60, "EmpTable.EmpInd", "InsCoTable.InsCoInd"}};
constexpr int kName = 0;
constexpr int kId = static_cast<int>(kColumns.size()) - 1;

constexpr const char* kFound =
    "Your search returned the following matches from this list. Please select one of the names below or click the "
    "'New' button to add a new person ...";

const char* PromptOf(SearchList list) {
  return list == SearchList::Employers ? "Enter employer below.\r\nExample:      TAVO Inc."
                                       : "Enter insurance company below.\r\nExample:      TAVO Inc.";
}

Sql Matches(const data::Statements& statements, SearchList list, std::string_view name, bool anywhere) {
  Sql columns;
  for (const Column& column : kColumns) {
    columns += (columns.Empty() ? Sql("SELECT ") : Sql(", ")) + column.Of(list);
  }
  const bool employers = list == SearchList::Employers;
  Sql sql = columns + " FROM " + (employers ? Words("EmpTable") : Words("InsCoTable")) + " WHERE (" +
            kColumns[kId].Of(list) + " <> 0)";
  if (!name.empty()) {
    sql += Sql(" and (") + kColumns[kName].Of(list) + " like " +
           (anywhere ? data::LikeContaining(name) : data::LikeBeginning(name)) + ")";
  }
  return sql + (employers ? statements.Office(" and (EmpTable.OfficeID = ", ")")
                          : statements.Office(" and (InsCoTable.OfficeID = ", ")"));
}

std::string Told(SearchList list, int count) {
  if (count == 0) {
    return "Nothing matches. New adds what was typed.";
  }
  const bool one = count == 1;
  const char* what = list == SearchList::Employers ? (one ? " employer" : " employers")
                                                   : (one ? " insurance company" : " insurance companies");
  return forms::WithThousands(count) + what;
}

}  // namespace

frmSearchWindow::frmSearchWindow(const session::ScreenContext& context) : Form("frmSearchWindow"), Rules(context) {
  Add("Label1", Label1);
  Add("Text1", Text1);
  Add("TDBG", TDBG);
  Add("RowLabel", RowLabel);
  Add("DialogButtons1", DialogButtons1);
  RegisterProperties();
  Text1.AccessibleName = "Name";
  TDBG.AccessibleName = "Matches";
  std::vector<forms::GridColumn> columns;
  std::ranges::transform(kColumns, std::back_inserter(columns), [](const Column& column) {
    return forms::GridColumn{
        .key = std::string(column.caption), .caption = std::string(column.caption), .width = column.width};
  });
  columns.back().visible = false;
  TDBG.Columns = std::move(columns);
  DialogButtons1.Help.Visible = false;
  DialogButtons1.Extra.Caption = "&New";
  DialogButtons1.Extra.Visible = true;
  DialogButtons1.Extra.ToolTip = "Add the typed name as a new entry";

  Text1.Change = [this] {
    due_ = true;
    ShowAsked(false);
  };
  Text1.KeyDown = [this](forms::Key key) {
    if (key == forms::Key::Enter && !Typed().empty()) {
      Enter();
      return true;
    }
    return key == forms::Key::Down && TDBG.DoRow(std::max(TDBG.Row.get(), 0));
  };
  TDBG.HeadClick = [this](int column) { Sort(column); };
  TDBG.DblClick = [this] { Choose(); };
  TDBG.KeyDown = [this](forms::Key key) {
    if (key == forms::Key::Enter) {
      Choose();
    }
    return key == forms::Key::Enter;
  };
  DialogButtons1.OK.Click = [this] { Choose(); };
  DialogButtons1.Extra.Click = [this] {
    if (Typed().empty()) {
      Text1.SetFocus();
    } else {
      Leave({.end = End::New, .name = Typed()});
    }
  };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
}

void frmSearchWindow::RegisterProperties() {
  Properties["List"] = {[this] { return List == SearchList::Carriers ? "Carriers" : "Employers"; },
                        [this](const std::string& list) {
                          List = forms::EqualsIgnoringCase(list, "Carriers") ? SearchList::Carriers
                                                                             : SearchList::Employers;
                        }};
  Properties["TypedName"] = {[this] { return Text1.Text.get(); },
                             [this](const std::string& name) { Text1.Text = name; }};
  Properties["Result"] = {[this] { return ResultText(); }, nullptr};
}

std::string frmSearchWindow::ResultText() const {
  switch (Result.end) {
    case End::Chosen:
      return std::to_string(Result.id);
    case End::New:
      return "-9997NEW";
    case End::Nothing:
      return "-1";
    case End::Cancelled:
      break;
  }
  return "-9999CANCEL";
}

void frmSearchWindow::OnLoad() {
  layout_.Restore(Form::Name());
  if (rows_ == nullptr && !Attempt([this] { Find(); })) {
    Close();
    return;
  }
  ShowAsked(TDBG.Row >= 0);
  if (TDBG.Row >= 0) {
    TDBG.SetFocus();
  }
}

int frmSearchWindow::Find() {
  due_ = false;
  const bool anywhere = forms::IsOn(context_.session.UserOption("SESC_LUL", "FILTER_SRCH_ANY"));
  const std::string name = Typed();
  const Column& sorted = kColumns.at(static_cast<std::size_t>(sort_column_));
  const auto rows = std::make_shared<editing::RecordsetRows>(
      statements_.Select(Matches(statements_, List, name, anywhere) + " ORDER BY " + sorted.Of(List) +
                         (sort_descending_ ? Words(" DESC") : Words(""))));
  rows->Arrived = [this] { ShowCount(); };
  rows->Failed = [this](const session::DatabaseError& error) { due_ = ReadsAgain(error); };
  rows->Fetch(kFirstPage);
  rows_ = rows;
  TDBG.Rows = rows;
  TDBG.Row = name.empty() || rows->Count() == 0 ? -1 : 0;
  TDBG.SortColumn = TDBG.ColumnIndex(sorted.caption);
  TDBG.SortDescending = sort_descending_;
  ShowCount();
  return rows->Count();
}

bool frmSearchWindow::OnIdle() {
  if (due_) {
    Attempt([this] { Find(); });
  }
  return !Closed() && TDBG.FetchMore();
}

void frmSearchWindow::ShowAsked(bool searched) {
  Caption = searched ? "Filter/Search List" : "Search Window";
  Label1.Caption = searched ? kFound : PromptOf(List);
}

void frmSearchWindow::ShowCount() {
  if (rows_ != nullptr) {
    RowLabel.Caption = Told(List, rows_->Count()) + (rows_->Complete() ? "" : " so far ...");
  }
}

void frmSearchWindow::Enter() {
  int found = 0;
  if (!Attempt([&] { found = Find(); })) {
    return;
  }
  if (found > 0) {
    ShowAsked(true);
    TDBG.SetFocus();
  } else if (OfferNew()) {
    Leave({.end = End::New, .name = Typed()});
  } else {
    Text1.SetFocus();
  }
}

bool frmSearchWindow::OfferNew() {
  return Confirm(Offer ? Offer(Typed()) : Typed() + ". Add to the list?");
}

void frmSearchWindow::Sort(int column) {
  const std::string& caption = TDBG.Columns.get()[static_cast<std::size_t>(column)].caption;
  const auto* sorted = std::ranges::find(kColumns, caption, &Column::caption);
  const int before = std::exchange(sort_column_, static_cast<int>(sorted - kColumns.begin()));
  const bool descended = std::exchange(sort_descending_, TDBG.SortDescending);
  if (!Attempt([this] { Find(); })) {
    sort_column_ = before;
    TDBG.SortColumn = TDBG.ColumnIndex(kColumns.at(static_cast<std::size_t>(before)).caption);
    TDBG.SortDescending = sort_descending_ = descended;
  }
}

// Rows that are not those of the name are not chosen from.
void frmSearchWindow::Choose() {
  if (const int row = TDBG.Row; row >= 0 && !due_) {
    Leave({.end = End::Chosen,
           .id = session::ToId(std::string(rows_->Text(row, kId))),
           .name = std::string(rows_->Text(row, kName))});
  } else if (Typed().empty()) {
    Leave({.end = End::Nothing});
  } else {
    Enter();
  }
}

void frmSearchWindow::Leave(SearchOutcome result) {
  Result = std::move(result);
  Close();
}

SearchOutcome Search(const session::ScreenContext& context, const session::SearchRequest& request) {
  frmSearchWindow window(context);
  window.List = request.list;
  window.Offer = request.offer;
  window.Text1.Text = request.typed;
  if (const std::string name(forms::Trim(request.typed)); !name.empty()) {
    int found = 0;
    if (!editing::Rules(context).Attempt([&] { found = window.Find(); })) {
      return {};
    }
    if (found == 0) {
      return {.end = window.OfferNew() ? End::New : End::Nothing, .name = name};
    }
  }
  context.user.Show(window);
  return window.Result;
}

}  // namespace lookup
