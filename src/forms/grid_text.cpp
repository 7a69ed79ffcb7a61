#include "forms/grid_text.h"

#include <algorithm>

#include "forms/text.h"

namespace forms {

std::string CopiedRows(const Grid& grid) {
  const std::vector<int> rows = grid.Selected();
  if (rows.empty()) {
    return {};
  }
  std::string text;
  const auto add_line = [&](const auto& cell_of) {
    for (const int column : grid.VisibleColumns()) {
      text += OnOneLine(cell_of(column)) + '\t';
    }
    if (!grid.VisibleColumns().empty()) {
      text.back() = '\n';
    }
  };
  add_line(
      [&](int column) -> std::string_view { return grid.Columns.get()[static_cast<std::size_t>(column)].caption; });
  for (const int row : rows) {
    add_line([&](int column) { return grid.Cell(row, column); });
  }
  return text;
}

std::string CopiedCell(const Grid& grid) {
  const auto& visible = grid.VisibleColumns();
  if (grid.Row < 0 || grid.Row >= grid.RowCount() || visible.empty()) {
    return {};
  }
  const bool current = std::ranges::find(visible, grid.Col.get()) != visible.end();
  return std::string(grid.Cell(grid.Row, current ? grid.Col.get() : visible.front()));
}

}  // namespace forms
