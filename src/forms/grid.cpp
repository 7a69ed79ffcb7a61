#include "forms/grid.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <utility>

#include "forms/text.h"

namespace forms {
namespace {

// Typed letters may be small or capital ones.
auto ChoiceFor(const std::vector<std::string>& choices, const std::string& text) {
  const auto same = std::ranges::find(choices, text);
  return same != choices.end() ? same : std::ranges::find_if(choices, [&](const std::string& choice) {
    return EqualsIgnoringCase(choice, text);
  });
}

// What stood at `from` stands at `to` then.
template <typename T>
void MoveWithin(std::vector<T>& sequence, int from, int to) {
  const auto at = sequence.begin();
  if (from < to) {
    std::rotate(at + from, at + from + 1, at + to + 1);
  } else {
    std::rotate(at + to, at + from, at + from + 1);
  }
}

}  // namespace

std::string_view TableRows::Text(int row, int cell) const {
  const auto& cells = rows[static_cast<std::size_t>(row)].cells;
  return static_cast<std::size_t>(cell) < cells.size() ? std::string_view(cells[static_cast<std::size_t>(cell)])
                                                       : std::string_view();
}

std::optional<Color> TableRows::Fore(int row, int cell) const {
  const Row& colored = rows[static_cast<std::size_t>(row)];
  return colored.colored_cell < 0 || colored.colored_cell == cell ? colored.fore : std::nullopt;
}

std::optional<Color> TableRows::Back(int row, int cell) const {
  const Row& colored = rows[static_cast<std::size_t>(row)];
  return colored.colored_cell < 0 || colored.colored_cell == cell ? colored.back : std::nullopt;
}

int Grid::ColumnIndex(std::string_view caption) const {
  if (caption.starts_with('[') && caption.ends_with(']')) {
    caption = caption.substr(1, caption.size() - 2);  // as statements write it
  }
  const auto& columns = Columns.get();
  auto found = std::ranges::find(columns, caption, &GridColumn::caption);
  if (found == columns.end()) {
    found = std::ranges::find(columns, caption, &GridColumn::key);
  }
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

std::vector<std::string> Grid::ChoicesOf(int row, int column) const {
  return Choices ? Choices(row, column) : Column(column).choices;
}

std::vector<int> Grid::Selected() const {
  std::vector<int> rows(selected_.begin(), std::ranges::lower_bound(selected_, RowCount()));
  if (rows.empty() && Holds(Row)) {
    rows.push_back(Row);
  }
  return rows;
}

bool Grid::IsSelected(int row) const {
  return selected_.empty() ? row == Row : std::ranges::binary_search(selected_, row);
}

int Grid::TypingColumn() const {
  if (!FilterBar || visible_.empty()) {
    return -1;
  }
  for (const int column : {TypingField.empty() ? -1 : ColumnIndex(TypingField), SortColumn.get()}) {
    if (Offers(column)) {
      return column;
    }
  }
  return visible_.front();
}

std::string Grid::SpokenName() const {
  std::string name = Control::SpokenName();
  if (Holds(Row)) {
    const int column = Offers(Col) || visible_.empty() ? Col.get() : visible_.front();
    if (Offers(column)) {
      name += ": " + Column(column).caption + " " + std::string(Cell(Row, column));
    }
    name += ", row " + std::to_string(Row + 1);
  }
  return name;
}

bool Grid::Offers(int column) const {
  return HasColumn(column) && Column(column).visible;
}

bool Grid::Accepts(int column, const std::string& text) const {
  switch (Column(column).kind) {
    case GridColumn::Kind::Check:
      return text == "0" || text == "1";
    case GridColumn::Kind::DropDown: {
      const auto choices = ChoicesOf(Row, column);
      return ChoiceFor(choices, text) != choices.end();
    }
    case GridColumn::Kind::Color:
      return text.empty() || ParseColor(text).has_value();
    case GridColumn::Kind::Text:
      break;
  }
  return true;
}

bool Grid::FetchMore() {
  const bool more = Rows.get()->FetchMore();
  if (more) {
    Refresh();
  }
  return more;
}

void Grid::ClearFilters() {
  auto columns = Columns.get();
  for (GridColumn& column : columns) {
    column.filter.clear();
  }
  Columns = std::move(columns);
}

void Grid::MoveTo(int row, int column) {
  const bool moved = !(Row == row && Col == column);
  Row = row;
  Col = column;
  if (moved) {
    Fire(RowColChange);
  }
}

void Grid::Select(std::vector<int> rows) {
  if (selected_ != rows) {
    selected_ = std::move(rows);
    Control::Changed(Aspect::Value);
    Fire(SelectionChange);
  }
}

bool Grid::DoRow(int row) {
  return DoGoTo(row, Offers(Col) || visible_.empty() ? Col.get() : visible_.front());
}

bool Grid::DoGoTo(int row, int column) {
  if (!Holds(row) || (column >= 0 && !Offers(column))) {
    return false;
  }
  if (DoFocus()) {
    anchor_ = row;
    FilterCell = -1;
    Select({});
    MoveTo(row, column);
  }
  return true;
}

bool Grid::DoToggleRow(int row) {
  if (!MultiSelect || !Holds(row)) {
    return false;
  }
  if (DoFocus()) {
    std::vector<int> rows = Selected();
    const auto place = std::ranges::lower_bound(rows, row);
    if (place != rows.end() && *place == row) {
      rows.erase(place);
    } else {
      rows.insert(place, row);
    }
    anchor_ = row;
    Select(std::move(rows));
    MoveTo(row, Col);
  }
  return true;
}

bool Grid::DoExtendTo(int row) {
  if (!MultiSelect || !Holds(row)) {
    return false;
  }
  if (DoFocus()) {
    if (!Holds(anchor_)) {
      anchor_ = Holds(Row) ? Row.get() : row;
    }
    std::vector<int> rows(static_cast<std::size_t>(std::abs(row - anchor_)) + 1);
    std::iota(rows.begin(), rows.end(), std::min(row, anchor_));
    Select(std::move(rows));
    MoveTo(row, Col);
  }
  return true;
}

bool Grid::DoSelectAll() {
  if (!MultiSelect || RowCount() == 0) {
    return false;
  }
  if (DoFocus()) {
    while (FetchMore()) {
    }
    std::vector<int> rows(static_cast<std::size_t>(RowCount()));
    std::iota(rows.begin(), rows.end(), 0);
    Select(std::move(rows));
  }
  return true;
}

bool Grid::DoOpenRow() {
  if (!Holds(Row)) {
    return false;
  }
  if (DoFocus()) {
    Fire(DblClick);
  }
  return true;
}

bool Grid::DoCell(int column, const std::string& text) {
  if (!Holds(Row) || !Offers(column) || !Column(column).editable || !Accepts(column, text)) {
    return false;
  }
  std::string taken = text;
  if (Column(column).kind == GridColumn::Kind::DropDown) {
    const auto choices = ChoicesOf(Row, column);
    taken = *ChoiceFor(choices, text);
  }
  if (!DoFocus()) {
    return true;
  }
  MoveTo(Row, column);
  if (CellEdited && !CellEdited(column, taken)) {
    Refresh();
    return true;
  }
  if (auto* table = dynamic_cast<TableRows*>(Rows.get().get()); table != nullptr && Holds(Row) && Offers(column)) {
    auto& cells = table->rows[static_cast<std::size_t>(Row.get())].cells;
    const auto cell = static_cast<std::size_t>(CellOf(column));
    cells.resize(std::max(cells.size(), cell + 1));
    cells[cell] = taken;
  }
  Refresh();
  return true;
}

bool Grid::DoPick(int column) {
  if (!Holds(Row) || !Offers(column) || !Column(column).editable || Column(column).kind != GridColumn::Kind::Color) {
    return false;
  }
  if (DoFocus() && Pick) {
    MoveTo(Row, column);
    if (const auto text = Pick(column)) {
      DoCell(column, *text);
    }
  }
  return true;
}

bool Grid::DoFilter(int column, std::string text) {
  if (!FilterBar || !Offers(column)) {
    return false;
  }
  if (DoFocus() && Column(column).filter != text) {
    auto columns = Columns.get();
    columns[static_cast<std::size_t>(column)].filter = std::move(text);
    Columns = std::move(columns);
    Fire(FilterChanged);
  }
  return true;
}

bool Grid::DoEnterFilters() {
  const int column = TypingColumn();
  if (column >= 0 && DoFocus() && FilterCell < 0) {
    FilterCell = column;
  }
  return column >= 0;
}

bool Grid::DoTypeFilter(const std::string& character) {
  const std::string before = Offers(FilterCell) ? Column(FilterCell).filter : std::string();
  return DoEnterFilters() && (!HasFocus() || DoFilter(FilterCell, before + character));
}

bool Grid::DoFilterByCell() {
  return Holds(Row) && Offers(Col) && !Cell(Row, Col).empty() && DoFilter(Col, std::string(Cell(Row, Col)));
}

bool Grid::DoSort(int column) {
  return DoSort(column, SortColumn == column && !SortDescending);
}

bool Grid::DoSort(int column, bool descending) {
  if (!Offers(column)) {
    return false;
  }
  if (!DoFocus()) {
    return true;
  }
  SortDescending = descending;
  SortColumn = column;
  if (HeadClick) {
    Fire([&] { HeadClick(column); });
  }
  return true;
}

bool Grid::DoMoveRow(int from, int to) {
  if (!RowsMove || !Holds(from) || !Holds(to)) {
    return false;
  }
  if (!DoFocus() || from == to) {
    return true;
  }
  auto* table = dynamic_cast<TableRows*>(Rows.get().get());
  if (table != nullptr) {
    MoveWithin(table->rows, from, to);
    Refresh();
  }
  Select({});
  if (RowMoved && !RowMoved(from, to)) {
    if (table != nullptr) {
      MoveWithin(table->rows, to, from);
      Refresh();
    }
  } else if (Holds(to)) {
    MoveTo(to, Col);
  }
  return true;
}

void Grid::Changed(Aspect aspect) {
  if (aspect == Aspect::Items) {
    visible_.clear();
    for (std::size_t i = 0; i < Columns->size(); ++i) {
      if (Columns.get()[i].visible) {
        visible_.push_back(static_cast<int>(i));
      }
    }
    if (std::exchange(selected_in_, Rows.get().get()) != Rows.get().get()) {
      selected_.clear();
      anchor_ = -1;
    }
  }
  Control::Changed(aspect);
}

}  // namespace forms
