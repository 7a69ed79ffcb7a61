#include "lookup/frmTGList.h"

#include <algorithm>

#include "data/literal.h"
#include "forms/text.h"
#include "lookup/shared_lists.h"

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
  return forms::WithThousands(count) + (count == 1 ? " row" : " rows");
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
          .align = text ? forms::GridColumn::Align::Left : forms::GridColumn::Align::Right,
          .long_text = text && field.defined_size == 0};
}

}  // namespace

frmTGList::frmTGList(const session::ScreenContext& context) : Form("frmTGList"), Rules(context) {
  MnuFileSel.Caption = "&Select";
  MnuFileSort.Caption = "S&ort";
  MnuFilterCell.Caption = "Filter by &This Cell";
  lblFacility.Caption = "Lo&cation:";
  MnuFileExport.Caption = "Export to &File ...";
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
  DotNetGrid.CellMenu = {&MnuFileSel, &ToolStrip["Edit"], &MnuFilterCell, &ToolStrip["RemFilt"]};
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
  MnuFileExport.Click = [this] { ExportList(); };
  MnuFileResDef.Click = [this] { DotNetGrid.DoRestoreLayout(); };
  DotNetGrid.LayoutChanged = [this] { sort_column_ = DotNetGrid.SortColumn; };
  MnuFileExit.Click = [this] { DoClose(); };
  MnuFilterCell.Click = [this] { DotNetGrid.DoFilterByCell(); };
  cboFacility.Click = [this] { cboFacility_Click(); };
  for (forms::OptionButton* mode : {&optFiltLeft, &optFiltMid}) {
    mode->Click = [this] { FilterModeChanged(); };
  }
  chkAutoClearFilter.Click = [this] { AutoClearChanged(); };
  DotNetGrid.DblClick = [this] { DotNetGrid_DblClick(); };
  DotNetGrid.FilterChanged = [this] { DotNetGrid_FilterChanged(); };
  DotNetGrid.RowColChange = [this] { DotNetGrid_RowColChange(); };
  DotNetGrid.HeadClick = [this](int column) { DotNetGrid_HeadClick(column); };
  DotNetGrid.CellEdited = [this](int column, const std::string& text) { return PayerIdEdited(column, text); };
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
  if (Options.skip_if_new) {
    Result.end = session::ListOutcome::End::New;
    Close();
    return;
  }
  ReadOptions();
  ShowToolButtons();
  ReadFacilities();
  DotNetGrid.MultiSelect = Options.multi_select;
  statement_ = ListStatement(sql_);
  DotNetGrid.TypingField = statement_.CaptionOf(Options.initial_field);
  Requery({}, SortBy, {.id = Options.selected});
  DotNetGrid.SetFocus();
}

bool frmTGList::OnIdle() {
  if (Closed() || IsTyping()) {
    return false;
  }
  ClearSearched();
  if (due_) {
    const Query query = *due_;
    Requery(query.conditions, query.sort, query.place);
    return true;
  }
  return DotNetGrid.FetchMore();
}

bool frmTGList::ReadUnlessTyping(const std::function<void()>& read) {
  if (DotNetGrid.TypingAhead) {
    return session::RunUnless(context_.session.Connection(), DotNetGrid.TypingAhead, read);
  }
  read();
  return true;
}

bool frmTGList::OnKey(forms::Key key) {
  if (key == forms::Key::Esc && IsFiltered()) {
    ClearFilter();
    return true;
  }
  if (key == forms::Key::CtrlShiftF) {
    MnuFilterCell.DoClick();
    return true;
  }
  return key == forms::Key::CtrlF && DotNetGrid.DoEnterFilters();
}

data::Sql frmTGList::Statement(std::vector<data::Sql> conditions, const data::Sql& sort) const {
  if (data::Sql here = FacilityCondition(); !here.Empty()) {
    conditions.insert(conditions.begin(), std::move(here));
  }
  return statement_.With(conditions, sort);
}

bool frmTGList::Requery(const std::vector<data::Sql>& conditions, const data::Sql& sort, Place place) {
  const data::Sql text = Statement(conditions, sort);
  std::shared_ptr<editing::RecordsetRows> rows;
  due_.reset();
  const bool read = Attempt([&] {
    const forms::WaitText wait(
        context_.user, Options.wait_text.empty() ? "  Loading " + TitleText() + " - Please Wait  " : Options.wait_text);
    const bool wanted = ReadUnlessTyping([&] {
      rows = std::make_shared<editing::RecordsetRows>(statements_.Select(text));
      rows->Fetch(kFirstPage);
    });
    if (!wanted) {
      due_ = {conditions, sort, place};
    }
  });
  if (due_) {
    sort_ = sort;
    return true;
  }
  if (!read) {
    ShowCount();
    EnableCommands();
    return false;
  }
  if (conditions_ != conditions) {
    shown_filter_ = FilterInWords();
  }
  conditions_ = conditions;
  sort_ = sort;
  SQLLabel.Caption = text.Text();
  rows->Arrived = [this] { RowsArrived(); };
  rows->Failed = [this](const session::DatabaseError& error) {
    if (ReadsAgain(error)) {
      due_ = {conditions_, sort_, {.id = CurrentID()}};
    }
  };
  rows->Reading = [this](const auto& fetch) {
    const bool wanted = ReadUnlessTyping(fetch);
    if (!wanted) {
      due_ = {conditions_, sort_, {.id = CurrentID()}};
    }
    return wanted;
  };
  awaited_ = place;
  searched_ = 0;
  DotNetGrid.Row = -1;
  const bool first = rows_ == nullptr;
  rows_ = std::move(rows);
  if (first) {
    SetGridLayout();
    DotNetGrid.Col = std::max(0, DotNetGrid.ColumnIndex(DotNetGrid.TypingField));
  }
  sort_column_ = DotNetGrid.SortColumn;
  sort_descending_ = DotNetGrid.SortDescending;
  DotNetGrid.Rows = rows_;
  RowsArrived();
  return true;
}

void frmTGList::RowsArrived() {
  if (conditions_.empty()) {
    all_ = rows_->Count();
    all_known_ = rows_->Complete();
  }
  if (awaited_.id != 0) {
    FindAwaited();
  }
  const bool near = awaited_.row >= 0 && awaited_.row < rows_->Count();
  if (DotNetGrid.Row < 0 && rows_->Count() > 0 && (near || awaited_.id == 0)) {
    DotNetGrid.Row = std::clamp(awaited_.row, 0, rows_->Count() - 1);
  }
  ShowCount();
  EnableCommands();
}

void frmTGList::FindAwaited() {
  const int id_column = DotNetGrid.ColumnIndex(IDFld.Caption.get());
  const std::string id = std::to_string(awaited_.id);
  while (id_column >= 0 && searched_ < rows_->Count() && DotNetGrid.Cell(searched_, id_column) != id) {
    ++searched_;
  }
  if (id_column >= 0 && searched_ < rows_->Count()) {
    awaited_.id = 0;
    DotNetGrid.Row = searched_;
  } else if (rows_->Complete() || id_column < 0) {
    awaited_.id = 0;
  }
}

void frmTGList::SetGridLayout() {
  std::vector<forms::GridColumn> columns;
  std::ranges::transform(rows_->Fields(), std::back_inserter(columns), ColumnOf);
  for (forms::GridColumn& column : columns) {
    column.editable = LinksPayers() && column.caption == kPayerId;
  }
  DotNetGrid.Columns = std::move(columns);
  const SortTerm term = FirstSortTerm(sort_.Text());
  DotNetGrid.SortColumn = DotNetGrid.ColumnIndex(term.caption);
  DotNetGrid.SortDescending = term.descending;
  layout_.Restore(LayoutKey);
}

void frmTGList::ShowCount() {
  if (rows_ == nullptr) {
    RowLabel.Caption = "The list could not be read.";
    return;
  }
  const std::string count = conditions_.empty() || all_ == 0
                                ? Rows(rows_->Count())
                                : forms::WithThousands(rows_->Count()) + (all_known_ ? " of " : " of more than ") +
                                      forms::WithThousands(all_);
  RowLabel.Caption = count + (rows_->Complete() && !due_ ? "" : " so far ...");
  DotNetGrid.EmptyText = rows_->Count() == 0 && rows_->Complete() ? WhyEmpty() : "";
}

// And what to do next.
std::string frmTGList::WhyEmpty() const {
  const std::string record = Commands.record;
  if (!conditions_.empty()) {
    return "Nothing matches the filter.\nRemove Filter shows all" +
           (all_known_ ? " " + forms::WithThousands(all_) : "") + ".";
  }
  if (facility_ > 0) {
    return "No " + record + " is at this location.\nChoose all locations to see the others.";
  }
  if (Options.employer_patient != 0 && Edits && Edits->kind == session::RecordKind::Employer) {
    return "This patient has no employer.";
  }
  if (Options.group_plan_company != 0 && Edits && Edits->kind == session::RecordKind::GroupPlan) {
    return "This insurance company has no group plan yet.";
  }
  return "There is no " + record + " yet." + (MayEdit() ? "\nNew adds the first " + record + "." : "");
}

void frmTGList::EnableCommands() {
  const bool on_row = DotNetGrid.Row >= 0;
  DialogButtons1.OK.Enabled = on_row;
  MnuFileSel.Enabled = on_row;
  // With nothing to edit it offers to add.
  ToolStrip["Edit"].Enabled = on_row || (DotNetGrid.RowCount() == 0 && !IsFiltered());
  ToolStrip["Delete"].Enabled = on_row;
  ToolStrip["RemFilt"].Enabled = IsFiltered();
  MnuFilterCell.Enabled = on_row && DotNetGrid.Col >= 0 && !DotNetGrid.Cell(DotNetGrid.Row, DotNetGrid.Col).empty();
  for (forms::Button* output : std::initializer_list<forms::Button*>{&MnuFileExport, &ToolStrip["Print"]}) {
    output->Enabled = rows_ != nullptr;
  }
  EnableNavigation();
  EnablePayerCommands();
}

void frmTGList::DotNetGrid_RowColChange() {
  awaited_ = {};  // the person went somewhere else
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
      if (DotNetGrid.FilterCell < 0) {
        Choose();
      }
      return true;
    case forms::Key::Down:
      if (DotNetGrid.FilterCell >= 0) {
        return DotNetGrid.DoRow(std::max(0, DotNetGrid.Row.get()));
      }
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
  if (!Requery(Asked(), data::Bracketed(caption) + (DotNetGrid.SortDescending ? data::Sql(" DESC") : data::Sql()),
               {.id = CurrentID()})) {
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
    // Neither a filter nor a location hides the new row.
    DotNetGrid.ClearFilters();
    cboFacility.ListIndex = 0;
    if (std::exchange(facility_, 0) > 0) {
      all_ = 0;
    }
    Requery({}, sort_, {.id = outcome.id});
  }
}

bool frmTGList::ShowsWhatIsAsked() {
  if (!due_) {
    return true;
  }
  const Query query = *due_;
  Requery(query.conditions, query.sort, query.place);
  return false;
}

}  // namespace lookup
