#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace forms {

class Button;

struct GridColumn {
  // The text of a colour cell is "#RRGGBB"; it is not typed but picked.
  enum class Kind { Text, Check, DropDown, Color };
  enum class Align { Left, Right, Center };

  std::string key;      // the data field's name
  std::string caption;  // what a person reads, and calls the column by
  int width = 100;      // pixels at 100 %
  bool visible = true;
  Kind kind = Kind::Text;
  Align align = Align::Left;
  bool editable = false;
  bool keeps_colors = false;              // in the current row, too: they tell something
  bool long_text = false;                 // remarks of any length
  std::vector<std::string> choices = {};  // of a drop-down cell
  std::string filter = {};                // what stands in the filter cell
  int cell = -1;                          // its place in the rows; -1 for the column's own in `Columns`

  friend bool operator==(const GridColumn&, const GridColumn&) = default;
};

// Where a column stands, apart from what it shows.
struct ColumnPlace {
  int cell = 0;  // tells which column it is
  int width = 0;
  bool visible = true;

  friend bool operator==(const ColumnPlace&, const ColumnPlace&) = default;
};

// Where a grid's cells come from: asked for the cells that it paints, by their place in the row.
class GridRows {
 public:
  virtual ~GridRows() = default;

  // Rows that can be asked for now.
  virtual int Count() const = 0;
  // A check cell is "1" or "0". The text lives until the rows change or more are fetched.
  virtual std::string_view Text(int row, int cell) const = 0;
  virtual std::optional<Color> Fore(int /*row*/, int /*cell*/) const { return std::nullopt; }
  virtual std::optional<Color> Back(int /*row*/, int /*cell*/) const { return std::nullopt; }
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
    int colored_cell = -1;  // the one that has the colours; -1 for all
  };

  std::vector<Row> rows;

  int Count() const override { return static_cast<int>(rows.size()); }
  std::string_view Text(int row, int cell) const override;
  std::optional<Color> Fore(int row, int cell) const override;
  std::optional<Color> Back(int row, int cell) const override;
};

class Grid : public Control {
 public:
  // Between these a column's width stays.
  static constexpr int kLeastWidth = 8;
  static constexpr int kMostWidth = 10'000;

  // In the order in which they are shown, which a person may change.
  Property<std::vector<GridColumn>> Columns{*this, {}, Aspect::Items};
  Property<std::shared_ptr<GridRows>> Rows{*this, std::make_shared<TableRows>(), Aspect::Items};
  // The current row, and the current column in `Columns`; -1 for none.
  Property<int> Row{*this, -1, Aspect::Value};
  Property<int> Col{*this, -1, Aspect::Value};
  // A row of filter cells under the captions.
  Property<bool> FilterBar{*this, false};
  // The column whose filter cell has the keyboard; -1 while the rows have it.
  Property<int> FilterCell{*this, -1, Aspect::Value};
  // The caption of the column that typing over the rows filters; empty for the one that the rows are sorted by.
  std::string TypingField;
  // What stands in place of the rows where there are none.
  Property<std::string> EmptyText{*this};
  // What the menu of a cell offers.
  std::vector<Button*> CellMenu;
  // A person may select several rows.
  Property<bool> MultiSelect{*this, false};
  // A person may drag rows to other places.
  Property<bool> RowsMove{*this, false};
  // Index into `Columns` of the column that the rows are sorted by; -1 for none.
  Property<int> SortColumn{*this, -1, Aspect::Items};
  Property<bool> SortDescending{*this, false, Aspect::Items};
  // Pixels at 100 %; no row is lower than its text asks for.
  Property<int> RowHeight{*this, 0};

  // The columns that the slots are given are places in `Columns`.
  std::function<void()> RowColChange;
  std::function<void()> SelectionChange;
  std::function<void()> DblClick;
  // A person changed filter cells; they stand in `Columns`.
  std::function<void()> FilterChanged;
  std::function<void(int column)> HeadClick;
  // A person entered a cell of the current row; false refuses and leaves the cell as it was.
  std::function<bool(int column, const std::string& text)> CellEdited;
  // Set by the view: whether keys wait that will change the filters, so that the rows of those before are not wanted.
  std::function<bool()> TypingAhead;
  // What a drop-down cell offers, where that is not the same in every row.
  std::function<std::vector<std::string>(int row, int column)> Choices;
  // Lets the person pick for a colour cell of the current row: the new text, nothing when given up.
  std::function<std::optional<std::string>(int column)> Pick;
  // The tip of a cell, or of a caption for row -1; empty for none.
  std::function<std::string(int row, int column)> Tip;
  // A person moved, sized, hid or showed columns.
  std::function<void()> LayoutChanged;
  // A person wants the columns as they were built; null where no layout is kept.
  std::function<void()> RestoreLayout;
  // A person dragged a row to the place that another had; false refuses. `TableRows` move, other rows are the rule's to
  // move.
  std::function<bool(int from, int to)> RowMoved;

  // The place in the rows of a column of `Columns`.
  int CellOf(int column) const { return Column(column).cell < 0 ? column : Column(column).cell; }
  int RowCount() const { return Rows.get()->Count(); }
  std::string_view Cell(int row, int column) const { return Rows.get()->Text(row, CellOf(column)); }
  std::optional<Color> Fore(int row, int column) const { return Rows.get()->Fore(row, CellOf(column)); }
  std::optional<Color> Back(int row, int column) const { return Rows.get()->Back(row, CellOf(column)); }
  // By caption, then by key; -1 when there is none.
  int ColumnIndex(std::string_view caption) const;
  // Positions in `Columns` of the visible ones, in order.
  const std::vector<int>& VisibleColumns() const { return visible_; }
  std::vector<std::string> ChoicesOf(int row, int column) const;
  // Rows in order: those that are selected, or the current row alone where none are. Rows read anew are not selected.
  std::vector<int> Selected() const;
  bool IsSelected(int row) const;
  // Where typing over the rows starts a filter; -1 where it cannot.
  int TypingColumn() const;
  // With the current cell: "List: Last Name Smith, row 4".
  std::string SpokenName() const override;

  // The columns' places from left to right, the hidden ones among them.
  std::vector<ColumnPlace> Layout() const;
  // Puts the same columns elsewhere. The current column and the one that the rows are sorted by stay what they are.
  void Arrange(const std::vector<ColumnPlace>& places);

  // Tells the view that cells changed or rows came.
  void Refresh() { Changed(Aspect::Items); }
  bool FetchMore();
  void ClearFilters();

  // The `Do` members are false when a person sees no such row, column or choice there, or cannot edit the cell.
  // The row alone, in the column that was current.
  bool DoRow(int row);
  bool DoGoTo(int row, int column);
  // Where several may be selected: takes the row in or out, selects up to the row from where that began, or all,
  // those that are still to be fetched too.
  bool DoToggleRow(int row);
  bool DoExtendTo(int row);
  bool DoSelectAll();
  bool DoOpenRow();
  bool DoCell(int column, const std::string& text);
  bool DoPick(int column);
  bool DoFilter(int column, std::string text);
  // The keyboard goes to the filter cell where typing over the rows would begin.
  bool DoEnterFilters();
  // A character over the rows begins a filter anew; in a filter cell it goes on there.
  bool DoTypeFilter(const std::string& character);
  // Filters by what stands in the current cell.
  bool DoFilterByCell();
  // The other way round when the rows are sorted by it already.
  bool DoSort(int column);
  bool DoSort(int column, bool descending);
  // Places in `Columns`; pixels at 100 %.
  bool DoMoveColumn(int from, int to);
  bool DoSizeColumn(int column, int width);
  // A hidden column takes its filter along. The last one that is seen stays.
  bool DoShowColumn(int column, bool shown);
  bool DoRestoreLayout();
  bool DoMoveRow(int from, int to);

  void Changed(Aspect aspect) override;

 private:
  const GridColumn& Column(int column) const { return Columns.get()[static_cast<std::size_t>(column)]; }
  bool HasColumn(int column) const { return column >= 0 && column < static_cast<int>(Columns->size()); }
  bool Holds(int row) const { return row >= 0 && row < RowCount(); }
  bool Offers(int column) const;
  bool Accepts(int column, const std::string& text) const;
  void MoveTo(int row, int column);
  void Select(std::vector<int> rows);

  std::vector<int> visible_;
  std::vector<int> selected_;  // in order
  int anchor_ = -1;            // where a selection that is extended begins
  const GridRows* selected_in_ = nullptr;
};

}  // namespace forms
