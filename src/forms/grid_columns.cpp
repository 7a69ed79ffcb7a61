#include <algorithm>

#include "forms/grid.h"

// Where a grid's columns stand, and what a person does with them.
namespace forms {

std::vector<ColumnPlace> Grid::Layout() const {
  std::vector<ColumnPlace> places;
  for (int column = 0; HasColumn(column); ++column) {
    places.push_back({CellOf(column), Column(column).width, Column(column).visible});
  }
  return places;
}

void Grid::Arrange(const std::vector<ColumnPlace>& places) {
  const auto cell_of = [this](int column) { return HasColumn(column) ? CellOf(column) : -1; };
  const int current = cell_of(Col);
  const int sorted = cell_of(SortColumn);
  const int filtered = cell_of(FilterCell);
  std::vector<GridColumn> columns;
  for (const ColumnPlace& place : places) {
    int from = 0;
    while (CellOf(from) != place.cell) {
      ++from;
    }
    GridColumn& column = columns.emplace_back(Column(from));
    column.cell = place.cell;
    column.width = std::clamp(place.width, kLeastWidth, kMostWidth);
    column.visible = place.visible;
  }
  Columns = std::move(columns);
  const auto place_of = [&places](int cell) {
    const auto found = std::ranges::find(places, cell, &ColumnPlace::cell);
    return found == places.end() ? -1 : static_cast<int>(found - places.begin());
  };
  SortColumn = place_of(sorted);
  Col = place_of(current);
  if (HasColumn(Col) && !Offers(Col) && !visible_.empty()) {
    Col = visible_.front();
  }
  FilterCell = Offers(place_of(filtered)) ? place_of(filtered) : -1;
}

bool Grid::DoMoveColumn(int from, int to) {
  if (!Offers(from) || !HasColumn(to)) {
    return false;
  }
  if (DoFocus() && from != to) {
    std::vector<ColumnPlace> places = Layout();
    const ColumnPlace moved = places[static_cast<std::size_t>(from)];
    places.erase(places.begin() + from);
    places.insert(places.begin() + to, moved);
    Arrange(places);
    Fire(LayoutChanged);
  }
  return true;
}

bool Grid::DoSizeColumn(int column, int width) {
  if (!Offers(column) || width < 0) {
    return false;
  }
  if (DoFocus()) {
    const std::vector<ColumnPlace> before = Layout();
    std::vector<ColumnPlace> places = before;
    places[static_cast<std::size_t>(column)].width = width;
    Arrange(places);
    if (Layout() != before) {
      Fire(LayoutChanged);
    }
  }
  return true;
}

bool Grid::DoShowColumn(int column, bool shown) {
  if (!HasColumn(column) || (!shown && Offers(column) && visible_.size() == 1)) {
    return false;
  }
  if (Offers(column) == shown || !DoFocus()) {
    return true;
  }
  if (!shown) {
    DoFilter(column, {});
  }
  std::vector<ColumnPlace> places = Layout();
  places[static_cast<std::size_t>(column)].visible = shown;
  Arrange(places);
  Fire(LayoutChanged);
  return true;
}

bool Grid::DoRestoreLayout() {
  if (!RestoreLayout) {
    return false;
  }
  if (DoFocus()) {
    Fire(RestoreLayout);
    Fire(LayoutChanged);
  }
  return true;
}

}  // namespace forms
