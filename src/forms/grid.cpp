#include "forms/grid.h"

#include <algorithm>

namespace forms {

std::string TableRows::Text(int row, int column) const {
  const auto& cells = rows[static_cast<std::size_t>(row)].cells;
  return static_cast<std::size_t>(column) < cells.size() ? cells[static_cast<std::size_t>(column)] : std::string();
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

std::vector<int> Grid::VisibleColumns() const {
  std::vector<int> visible;
  for (std::size_t i = 0; i < Columns->size(); ++i) {
    if (Columns.get()[i].visible) {
      visible.push_back(static_cast<int>(i));
    }
  }
  return visible;
}

bool Grid::Offers(int column) const {
  return column >= 0 && column < static_cast<int>(Columns->size()) && Column(column).visible;
}

bool Grid::Accepts(int column, const std::string& text) const {
  const GridColumn& edited = Column(column);
  if (edited.kind == GridColumn::Kind::Check) {
    return text == "0" || text == "1";
  }
  return edited.kind != GridColumn::Kind::DropDown || std::ranges::find(edited.choices, text) != edited.choices.end();
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

bool Grid::DoRow(int row) {
  if (row < 0 || row >= RowCount()) {
    return false;
  }
  if (DoFocus() && !(Row == row)) {
    Row = row;
    Fire(RowColChange);
  }
  return true;
}

bool Grid::DoOpenRow() {
  if (!HasRow()) {
    return false;
  }
  if (DoFocus()) {
    Fire(DblClick);
  }
  return true;
}

bool Grid::DoCell(int column, const std::string& text) {
  if (!HasRow() || !Offers(column) || !Column(column).editable || !Accepts(column, text)) {
    return false;
  }
  if (!DoFocus() || (CellEdited && !CellEdited(column, text))) {
    return true;
  }
  if (auto* table = dynamic_cast<TableRows*>(Rows.get().get()); table != nullptr && HasRow()) {
    auto& cells = table->rows[static_cast<std::size_t>(Row.get())].cells;
    cells.resize(std::max(cells.size(), static_cast<std::size_t>(column) + 1));
    cells[static_cast<std::size_t>(column)] = text;
  }
  Refresh();
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

bool Grid::DoSort(int column) {
  if (!Offers(column)) {
    return false;
  }
  if (!DoFocus()) {
    return true;
  }
  SortDescending = SortColumn == column && !SortDescending;
  SortColumn = column;
  if (HeadClick) {
    HeadClick(column);
  }
  return true;
}

}  // namespace forms
