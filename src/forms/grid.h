#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace forms {

struct GridColumn {
  enum class Kind { Text, Check, DropDown };
  enum class Align { Left, Right, Center };

  std::string key;      // the data field's name
  std::string caption;  // what a person reads, and calls the column by
  int width = 100;      // pixels at 100 %
  bool visible = true;
  Kind kind = Kind::Text;
  Align align = Align::Left;
  bool editable = false;
  std::vector<std::string> choices = {};  // of a drop-down cell
  std::string filter = {};                // what stands in the filter cell

  friend bool operator==(const GridColumn&, const GridColumn&) = default;
};

// Where a grid's cells come from: asked for the cells that it paints.
class GridRows {
 public:
  virtual ~GridRows() = default;

  // Rows that can be asked for now.
  virtual int Count() const = 0;
  // A check cell is "1" or "0".
  virtual std::string Text(int row, int column) const = 0;
  virtual std::optional<Color> Fore(int /*row*/) const { return std::nullopt; }
  virtual std::optional<Color> Back(int /*row*/) const { return std::nullopt; }
  // Fetches some more; false when there are no more.
  virtual bool FetchMore() { return false; }
};

// Rows held in memory.
class TableRows : public GridRows {
 public:
  struct Row {
    std::vector<std::string> cells;
    std::optional<Color> fore = {};
    std::optional<Color> back = {};
  };

  std::vector<Row> rows;

  int Count() const override { return static_cast<int>(rows.size()); }
  std::string Text(int row, int column) const override;
  std::optional<Color> Fore(int row) const override { return rows[static_cast<std::size_t>(row)].fore; }
  std::optional<Color> Back(int row) const override { return rows[static_cast<std::size_t>(row)].back; }
};

class Grid : public Control {
 public:
  Property<std::vector<GridColumn>> Columns{*this, {}, Aspect::Items};
  Property<std::shared_ptr<GridRows>> Rows{*this, std::make_shared<TableRows>(), Aspect::Items};
  // The current row; -1 for none.
  Property<int> Row{*this, -1, Aspect::Value};
  // A row of filter cells under the captions.
  Property<bool> FilterBar{*this, false};
  Property<bool> MultiSelect{*this, false};
  // Index into `Columns` of the column that the rows are sorted by; -1 for none.
  Property<int> SortColumn{*this, -1, Aspect::Items};
  Property<bool> SortDescending{*this, false, Aspect::Items};

  std::function<void()> RowColChange;
  std::function<void()> DblClick;
  // A person changed filter cells; they stand in `Columns`.
  std::function<void()> FilterChanged;
  std::function<void(int column)> HeadClick;
  // A person entered a cell of the current row; false refuses and leaves the cell as it was.
  std::function<bool(int column, const std::string& text)> CellEdited;

  int RowCount() const { return Rows.get()->Count(); }
  std::string Cell(int row, int column) const { return Rows.get()->Text(row, column); }
  // By caption, then by key; -1 when there is none.
  int ColumnIndex(std::string_view caption) const;
  // Positions in `Columns` of the visible ones, in order.
  std::vector<int> VisibleColumns() const;
  // Tells the view that cells changed or rows came.
  void Refresh() { Changed(Aspect::Items); }
  bool FetchMore();
  void ClearFilters();

  // The `Do` members are false when a person sees no such row, column or choice there, or cannot edit the cell.
  bool DoRow(int row);
  bool DoOpenRow();
  bool DoCell(int column, const std::string& text);
  bool DoFilter(int column, std::string text);
  bool DoSort(int column);

 private:
  const GridColumn& Column(int column) const { return Columns.get()[static_cast<std::size_t>(column)]; }
  bool HasRow() const { return Row >= 0 && Row < RowCount(); }
  bool Offers(int column) const;
  bool Accepts(int column, const std::string& text) const;
};

}  // namespace forms
