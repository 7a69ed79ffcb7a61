#include "lookup/frmTGList.h"

#include <algorithm>

#include "data/literal.h"

namespace lookup {
namespace {

constexpr int kFirstPage = 100;

// "DISTINCTROW" becomes "DISTINCT", in whatever case and wherever it stands.
data::Sql WithoutDistinctRow(const data::Sql& sql) {
  constexpr std::string_view kDistinctRow = "DISTINCTROW";
  const auto same = [](char left, char right) { return left == right || left == right - 'A' + 'a'; };
  const std::string& text = sql.Text();
  data::Sql result;
  auto rest = text.begin();
  while (rest != text.end()) {
    const auto found = std::search(rest, text.end(), kDistinctRow.begin(), kDistinctRow.end(), same);
    result += sql.Part(static_cast<std::size_t>(rest - text.begin()), static_cast<std::size_t>(found - rest));
    if (found == text.end()) {
      break;
    }
    result += data::Sql("DISTINCT");
    rest = found + static_cast<std::ptrdiff_t>(kDistinctRow.size());
  }
  return result;
}

std::string Rows(int count) {
  return std::to_string(count) + (count == 1 ? " row" : " rows");
}

forms::GridColumn ColumnOf(const session::Field& field) {
  constexpr int kLetter = 8;
  constexpr int kMostLetters = 26;
  constexpr int kUnknownLetters = 16;
  constexpr int kMomentLetters = 19;
  const bool text = field.type == session::FieldType::Text;
  const bool moment = field.type == session::FieldType::DateTime;
  const int unsized = text ? kUnknownLetters : moment ? kMomentLetters : kLetter;
  const int letters = std::max(static_cast<int>(field.name.size()) + 2,
                               field.defined_size > 0 ? std::min(field.defined_size, kMostLetters) : unsized);
  return {.key = field.name,
          .caption = field.name,
          .width = letters * kLetter,
          .align = text ? forms::GridColumn::Align::Left : forms::GridColumn::Align::Right};
}

}  // namespace

frmTGList::frmTGList(const session::ScreenContext& context) : Form("frmTGList"), Rules(context) {
  MnuFileSel.Caption = "&Select";
  MnuFileSort.Caption = "S&ort";
  MnuFileResDef.Caption = "Restore Default &Layout";
  MnuFileExit.Caption = "E&xit";
  optFiltLeft.Caption = "Filter from the &start of the text";
  optFiltMid.Caption = "Filter &anywhere in the text";
  chkAutoClearFilter.Caption = "Clear the &filter row after each search";
  for (forms::Label* hidden : {&SQLLabel, &IDFld, &NamFld}) {
    hidden->Visible = false;
  }
  DotNetGrid.FilterBar = true;
  DotNetGrid.AccessibleName = "List";
  DialogButtons1.Help.Visible = false;
  Setup_ToolBar();
  RegisterControls();
  RegisterProperties();
  WireHandlers();
}

void frmTGList::WireHandlers() {
  MnuFileSel.Click = [this] { Choose(); };
  MnuFileSort.Click = [this] {
    const int column = DotNetGrid.SortColumn;
    DotNetGrid.DoSort(column >= 0 ? column : DotNetGrid.ColumnIndex(NamFld.Caption.get()));
  };
  MnuFileResDef.Click = [this] { SetGridLayout(); };
  DotNetGrid.LayoutChanged = [this] { sort_column_ = DotNetGrid.SortColumn; };
  MnuFileExit.Click = [this] { DoClose(); };
  for (forms::OptionButton* mode : {&optFiltLeft, &optFiltMid}) {
    mode->Click = [this] { FilterModeChanged(); };
  }
  chkAutoClearFilter.Click = [this] { AutoClearChanged(); };
  DotNetGrid.DblClick = [this] { DotNetGrid_DblClick(); };
  DotNetGrid.FilterChanged = [this] { DotNetGrid_FilterChanged(); };
  DotNetGrid.RowColChange = [this] { DotNetGrid_RowColChange(); };
  DotNetGrid.HeadClick = [this](int column) { DotNetGrid_HeadClick(column); };
  DotNetGrid.KeyDown = [this](forms::Key key) { return DotNetGrid_KeyDown(key); };
  Timer1.Elapsed = [this] { Timer1_Elapsed(); };
  DialogButtons1.OK.Click = [this] { Choose(); };
  DialogButtons1.Cancel.Click = [this] { DoClose(); };
}

void frmTGList::SetSQL(const data::Sql& sql) {
  sql_ = context_.session.DatabaseKind() == session::kFileDatabase ? sql : WithoutDistinctRow(sql);
}

const session::ListOutcome& frmTGList::ShowList() {
  if (Options.skip_if_new) {
    Result.end = session::ListOutcome::End::New;
  } else {
    context_.user.Show(*this);
  }
  if (!Whereto.empty() && Events.SwapModuleCalled) {
    Events.SwapModuleCalled(Whereto, Designation_String);
  }
  return Result;
}

void frmTGList::OnLoad() {
  ReadOptions();
  ShowToolButtons();
  DotNetGrid.MultiSelect = Options.multi_select;
  statement_ = ListStatement(sql_);
  Requery({}, SortBy, Options.selected);
  DotNetGrid.SetFocus();
}

bool frmTGList::OnIdle() {
  return !Closed() && DotNetGrid.FetchMore();
}

bool frmTGList::Requery(const std::vector<data::Sql>& conditions, const data::Sql& sort, std::int32_t await_id) {
  const data::Sql text = statement_.With(conditions, sort);
  std::shared_ptr<editing::RecordsetRows> rows;
  const bool read = Attempt([&] {
    const forms::WaitText wait(context_.user, "  Loading " + TitleText() + " - Please Wait  ");
    rows = std::make_shared<editing::RecordsetRows>(statements_.Select(text));
    rows->Fetch(kFirstPage);
  });
  if (!read) {
    ShowCount();
    EnableCommands();
    return false;
  }
  conditions_ = conditions;
  sort_ = sort;
  SQLLabel.Caption = text.Text();
  rows->Arrived = [this] { RowsArrived(); };
  rows->Failed = [this](const session::DatabaseError& error) { Report(error); };
  awaited_id_ = await_id;
  searched_ = 0;
  DotNetGrid.Row = -1;
  const bool first = rows_ == nullptr;
  rows_ = std::move(rows);
  if (first) {
    SetGridLayout();
  }
  sort_column_ = DotNetGrid.SortColumn;
  sort_descending_ = DotNetGrid.SortDescending;
  DotNetGrid.Rows = rows_;
  RowsArrived();
  return true;
}

void frmTGList::RowsArrived() {
  const int id_column = DotNetGrid.ColumnIndex(IDFld.Caption.get());
  if (awaited_id_ != 0 && id_column >= 0) {
    const std::string id = std::to_string(awaited_id_);
    while (searched_ < rows_->Count() && DotNetGrid.Cell(searched_, id_column) != id) {
      ++searched_;
    }
    if (searched_ < rows_->Count()) {
      awaited_id_ = 0;
      DotNetGrid.Row = searched_;
    }
  }
  if (rows_->Complete() || id_column < 0) {
    awaited_id_ = 0;
  }
  if (awaited_id_ == 0 && DotNetGrid.Row < 0 && rows_->Count() > 0) {
    DotNetGrid.Row = 0;
  }
  ShowCount();
  EnableCommands();
}

void frmTGList::SetGridLayout() {
  if (rows_ == nullptr) {
    return;
  }
  std::vector<forms::GridColumn> columns;
  std::ranges::transform(rows_->Fields(), std::back_inserter(columns), ColumnOf);
  for (forms::GridColumn& column : columns) {
    if (const int before = DotNetGrid.ColumnIndex(column.caption); before >= 0) {
      column.filter = DotNetGrid.Columns.get()[static_cast<std::size_t>(before)].filter;
    }
  }
  DotNetGrid.Columns = std::move(columns);
  const SortTerm term = FirstSortTerm(sort_.Text());
  DotNetGrid.SortColumn = DotNetGrid.ColumnIndex(term.caption);
  DotNetGrid.SortDescending = term.descending;
  sort_column_ = DotNetGrid.SortColumn;
}

void frmTGList::ShowCount() {
  if (rows_ == nullptr) {
    RowLabel.Caption = "The list could not be read.";
  } else if (rows_->Count() == 0) {
    RowLabel.Caption = conditions_.empty() ? "No rows" : "No rows match the filter";
  } else {
    RowLabel.Caption = Rows(rows_->Count()) + (rows_->Complete() ? "" : " so far ...");
  }
}

void frmTGList::EnableCommands() {
  const bool on_row = DotNetGrid.Row >= 0;
  DialogButtons1.OK.Enabled = on_row;
  MnuFileSel.Enabled = on_row;
  // With nothing to edit it offers to add.
  ToolStrip["Edit"].Enabled = on_row || DotNetGrid.RowCount() == 0;
  ToolStrip["Delete"].Enabled = on_row;
  ToolStrip["RemFilt"].Enabled = !conditions_.empty();
  EnableNavigation();
}

void frmTGList::DotNetGrid_RowColChange() {
  awaited_id_ = 0;  // the person went somewhere else
  EnableCommands();
}

void frmTGList::DotNetGrid_DblClick() {
  if (!Options.no_double_click) {
    Choose();
  }
}

bool frmTGList::DotNetGrid_KeyDown(forms::Key key) {
  switch (key) {
    case forms::Key::Enter:
      Choose();
      return true;
    case forms::Key::Down:
      if (DotNetGrid.Row + 1 >= DotNetGrid.RowCount()) {
        DotNetGrid.FetchMore();
      }
      DotNetGrid.DoRow(DotNetGrid.Row + 1);
      return true;
    case forms::Key::Up:
      DotNetGrid.DoRow(DotNetGrid.Row - 1);
      return true;
    default:
      return false;
  }
}

void frmTGList::DotNetGrid_HeadClick(int column) {
  const std::string& caption = DotNetGrid.Columns.get()[static_cast<std::size_t>(column)].caption;
  if (!Requery(conditions_, data::Bracketed(caption) + (DotNetGrid.SortDescending ? data::Sql(" DESC") : data::Sql()),
               CurrentID())) {
    DotNetGrid.SortColumn = sort_column_;
    DotNetGrid.SortDescending = sort_descending_;
  }
}

void frmTGList::DotNetGrid_AddRecord() {
  if (!Edits) {
    Result.end = session::ListOutcome::End::New;
    Close();
    return;
  }
  if (const session::Outcome outcome = context_.screens.Edit(*Edits); outcome.Saved()) {
    DotNetGrid.ClearFilters();  // no filter hides the new row
    Requery({}, sort_, outcome.id);
  }
}

void frmTGList::Choose() {
  if (DotNetGrid.Row < 0) {
    return;
  }
  Result = {session::ListOutcome::End::Chosen, CurrentID(), Chosen(NamFld.Caption.get())};
  Close();
}

std::string frmTGList::Chosen(std::string_view caption) const {
  const int column = DotNetGrid.ColumnIndex(caption);
  return DotNetGrid.Row < 0 || column < 0 ? "" : std::string(DotNetGrid.Cell(DotNetGrid.Row, column));
}

std::int32_t frmTGList::CurrentID() const {
  return session::ToId(Chosen(IDFld.Caption.get()));
}

}  // namespace lookup
