#include "forms/grid.h"

namespace forms {
namespace {

class GridTest : public testing::Test {
 protected:
  GridTest() {
    grid.Columns = {
        {.key = "pID", .caption = "ID", .visible = false, .editable = true},
        {.key = "pLASNAM", .caption = "Name", .editable = true},
        {.key = "pTypPat", .caption = "Patient", .kind = GridColumn::Kind::Check, .editable = true},
        {.key = "pSEX", .caption = "Sex", .kind = GridColumn::Kind::DropDown, .editable = true, .choices = {"F", "M"}},
        {.key = "pCIT", .caption = "City"}};
    auto rows = std::make_shared<TableRows>();
    rows->rows = {{{"1", "Smith", "1", "M", "Rye"}}, {{"2", "Jones"}}};
    grid.Rows = rows;
  }

  Grid grid;
};

TEST_F(GridTest, ColumnsAreFoundByCaptionBeforeKey) {
  EXPECT_EQ(grid.ColumnIndex("Name"), 1);
  EXPECT_EQ(grid.ColumnIndex("pCIT"), 4);
  EXPECT_EQ(grid.ColumnIndex("Zip"), -1);
  EXPECT_THAT(grid.VisibleColumns(), testing::ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(grid.Cell(1, 4), "") << "a short row has empty cells";
}

TEST_F(GridTest, ARowIsMadeCurrentOnce) {
  int moved = 0;
  int opened = 0;
  grid.RowColChange = [&moved] { ++moved; };
  grid.DblClick = [&opened] { ++opened; };
  EXPECT_FALSE(grid.DoOpenRow()) << "no row is current";
  EXPECT_TRUE(grid.DoRow(1));
  EXPECT_TRUE(grid.DoRow(1));
  EXPECT_FALSE(grid.DoRow(2));
  EXPECT_EQ(moved, 1);
  EXPECT_TRUE(grid.DoOpenRow());
  grid.Rows = std::make_shared<TableRows>();
  EXPECT_FALSE(grid.DoOpenRow()) << "the row went away";
  EXPECT_EQ(opened, 1);
}

TEST_F(GridTest, TheCurrentColumnMovesWithThePerson) {
  int moved = 0;
  grid.RowColChange = [&moved] { ++moved; };
  grid.DoRow(0);
  EXPECT_EQ(grid.Col, 1) << "the first that is seen";
  EXPECT_FALSE(grid.DoGoTo(0, 0)) << "hidden";
  EXPECT_TRUE(grid.DoGoTo(0, 4));
  EXPECT_TRUE(grid.DoGoTo(0, 4));
  grid.DoRow(1);
  EXPECT_EQ(grid.Col, 4);
  EXPECT_EQ(moved, 3);
}

TEST_F(GridTest, SeveralRowsAreSelected) {
  auto rows = std::make_shared<TableRows>();
  rows->rows.resize(6);
  grid.Rows = rows;
  int changes = 0;
  grid.SelectionChange = [&changes] { ++changes; };
  EXPECT_THAT(grid.Selected(), testing::IsEmpty());
  EXPECT_FALSE(grid.DoToggleRow(1)) << "one alone";
  grid.MultiSelect = true;
  grid.DoRow(4);
  EXPECT_THAT(grid.Selected(), testing::ElementsAre(4));
  EXPECT_TRUE(grid.DoToggleRow(1));
  EXPECT_THAT(grid.Selected(), testing::ElementsAre(1, 4));
  EXPECT_EQ(grid.Row, 1);
  EXPECT_TRUE(grid.DoExtendTo(3));
  EXPECT_THAT(grid.Selected(), testing::ElementsAre(1, 2, 3));
  EXPECT_TRUE(grid.DoExtendTo(0)) << "from where it began";
  EXPECT_THAT(grid.Selected(), testing::ElementsAre(0, 1));
  EXPECT_FALSE(grid.DoExtendTo(6));
  EXPECT_TRUE(grid.DoToggleRow(0));
  EXPECT_THAT(grid.Selected(), testing::ElementsAre(1));
  EXPECT_EQ(changes, 4);
  grid.DoSelectAll();
  grid.DoRow(2);
  EXPECT_THAT(grid.Selected(), testing::ElementsAre(2)) << "a plain click";
  grid.DoSelectAll();
  rows->rows.resize(2);
  grid.Refresh();
  EXPECT_THAT(grid.Selected(), testing::ElementsAre(0, 1)) << "those that are left";
  grid.Row = -1;
  grid.Rows = std::make_shared<TableRows>(*rows);
  EXPECT_THAT(grid.Selected(), testing::IsEmpty()) << "read anew";
}

TEST_F(GridTest, AMovedColumnTakesItsCellsAlong) {
  int told = 0;
  grid.LayoutChanged = [&told] { ++told; };
  grid.DoGoTo(0, 4);
  grid.SortColumn = 2;
  EXPECT_FALSE(grid.DoMoveColumn(0, 2)) << "hidden";
  EXPECT_TRUE(grid.DoMoveColumn(4, 1));
  EXPECT_THAT(grid.VisibleColumns(), testing::ElementsAre(1, 2, 3, 4));
  EXPECT_EQ(grid.ColumnIndex("City"), 1);
  EXPECT_EQ(grid.Cell(0, 1), "Rye");
  EXPECT_EQ(grid.Cell(0, 2), "Smith");
  EXPECT_EQ(grid.Col, 1);
  EXPECT_EQ(grid.SortColumn, 3) << "still the same column";
  EXPECT_TRUE(grid.DoCell(2, "Smythe"));
  EXPECT_EQ(grid.Cell(0, 2), "Smythe");
  EXPECT_TRUE(grid.DoMoveColumn(1, 4));
  EXPECT_EQ(grid.Cell(0, 4), "Rye");
  EXPECT_EQ(grid.SortColumn, 2);
  EXPECT_TRUE(grid.DoSizeColumn(1, 250));
  EXPECT_TRUE(grid.DoSizeColumn(1, 250));
  EXPECT_FALSE(grid.DoSizeColumn(0, 250)) << "hidden";
  EXPECT_EQ(grid.Columns.get()[1].width, 250);
  EXPECT_EQ(told, 3);
}

TEST_F(GridTest, ColumnsAreHiddenAndComeBack) {
  int told = 0;
  std::vector<std::string> filters;
  grid.LayoutChanged = [&told] { ++told; };
  grid.FilterChanged = [&] { filters.push_back(grid.Columns.get()[4].filter); };
  grid.FilterBar = true;
  grid.DoFilter(4, "Rye");
  grid.DoGoTo(0, 4);
  grid.SortColumn = 4;
  EXPECT_TRUE(grid.DoShowColumn(4, false));
  EXPECT_THAT(filters, testing::ElementsAre("Rye", "")) << "nothing filters unseen";
  EXPECT_EQ(grid.Col, 1);
  EXPECT_EQ(grid.SortColumn, 4);
  EXPECT_TRUE(grid.DoShowColumn(0, true));
  EXPECT_TRUE(grid.DoShowColumn(0, true));
  EXPECT_TRUE(grid.DoMoveColumn(0, 4)) << "to where a hidden one stands";
  EXPECT_THAT(grid.VisibleColumns(), testing::ElementsAre(0, 1, 2, 4));
  EXPECT_EQ(grid.Cell(0, 4), "1");
  EXPECT_EQ(told, 3);
  for (const int column : {0, 1, 2}) {
    EXPECT_TRUE(grid.DoShowColumn(column, false));
  }
  EXPECT_FALSE(grid.DoShowColumn(4, false)) << "the last";
  EXPECT_FALSE(grid.DoShowColumn(5, true));
}

TEST_F(GridTest, ARowIsDraggedToAnothersPlace) {
  std::vector<std::pair<int, int>> moves;
  bool agrees = true;
  grid.RowMoved = [&](int from, int to) {
    moves.emplace_back(from, to);
    return agrees;
  };
  EXPECT_FALSE(grid.DoMoveRow(0, 1)) << "rows stay where they are";
  grid.RowsMove = true;
  EXPECT_TRUE(grid.DoMoveRow(0, 1));
  EXPECT_TRUE(grid.DoMoveRow(1, 1));
  EXPECT_FALSE(grid.DoMoveRow(0, 2));
  EXPECT_EQ(grid.Cell(0, 1), "Jones");
  EXPECT_EQ(grid.Row, 1);
  EXPECT_THAT(moves, testing::ElementsAre(std::pair(0, 1)));
  agrees = false;
  EXPECT_TRUE(grid.DoMoveRow(1, 0));
  EXPECT_EQ(grid.Cell(0, 1), "Jones") << "what is refused stays where it was";
  EXPECT_EQ(grid.Row, 1);
}

TEST_F(GridTest, ColoursAreOfTheRowOrOfOneCell) {
  auto rows = std::make_shared<TableRows>();
  rows->rows = {{.cells = {"1"}, .fore = Color{255, 0, 0}},
                {.cells = {"2"}, .back = Color{0, 0, 9}, .colored_cell = 4}};
  grid.Rows = rows;
  EXPECT_EQ(grid.Fore(0, 1), (Color{255, 0, 0}));
  EXPECT_EQ(grid.Back(1, 1), std::nullopt);
  grid.DoMoveColumn(4, 1);
  EXPECT_EQ(grid.Back(1, 1), (Color{0, 0, 9})) << "the cell, wherever it is shown";
}

TEST_F(GridTest, AColourIsPickedAndChoicesMayDependOnTheRow) {
  auto columns = grid.Columns.get();
  columns[4].kind = GridColumn::Kind::Color;
  columns[4].editable = true;
  grid.Columns = columns;
  grid.Row = 1;
  std::optional<std::string> picked;
  grid.Pick = [&picked](int /*column*/) { return picked; };
  EXPECT_TRUE(grid.DoPick(4));
  EXPECT_EQ(grid.Cell(1, 4), "") << "given up";
  picked = "#0080FF";
  EXPECT_TRUE(grid.DoPick(4));
  EXPECT_EQ(grid.Cell(1, 4), "#0080FF");
  EXPECT_FALSE(grid.DoPick(1)) << "typed into";
  EXPECT_FALSE(grid.DoCell(4, "blue"));

  grid.Choices = [](int row, int /*column*/) { return std::vector<std::string>{std::to_string(row)}; };
  EXPECT_FALSE(grid.DoCell(3, "F"));
  EXPECT_TRUE(grid.DoCell(3, "1"));
}

TEST_F(GridTest, CellsTakeWhatTheirKindAllows) {
  EXPECT_FALSE(grid.DoCell(1, "Smythe")) << "no row is current";
  grid.Row = 1;
  EXPECT_TRUE(grid.DoCell(1, "O'Neil"));
  EXPECT_TRUE(grid.DoCell(2, "1"));
  EXPECT_TRUE(grid.DoCell(3, "F"));
  EXPECT_FALSE(grid.DoCell(0, "9")) << "hidden";
  EXPECT_FALSE(grid.DoCell(2, "yes")) << "no state of a check cell";
  EXPECT_FALSE(grid.DoCell(3, "X")) << "none of the choices";
  EXPECT_FALSE(grid.DoCell(4, "Rye")) << "not editable";
  EXPECT_FALSE(grid.DoCell(5, "x"));
  EXPECT_EQ(grid.Cell(1, 1), "O'Neil");
  EXPECT_EQ(grid.Cell(1, 2), "1");
  EXPECT_EQ(grid.Cell(1, 3), "F");
}

TEST_F(GridTest, ARuleMayRefuseACell) {
  grid.Row = 0;
  grid.CellEdited = [](int /*column*/, const std::string& text) { return !text.empty(); };
  EXPECT_TRUE(grid.DoCell(1, ""));
  EXPECT_EQ(grid.Cell(0, 1), "Smith");
  grid.CellEdited = [this](int /*column*/, const std::string& /*text*/) {
    grid.Rows = std::make_shared<TableRows>();
    return true;
  };
  EXPECT_TRUE(grid.DoCell(1, "Smythe")) << "the rule wrote it and reads anew";
}

TEST_F(GridTest, FiltersActWhenTheyChange) {
  int filtered = 0;
  grid.FilterChanged = [&filtered] { ++filtered; };
  EXPECT_FALSE(grid.DoFilter(1, "Sm")) << "no filter cells";
  grid.FilterBar = true;
  EXPECT_TRUE(grid.DoFilter(1, "Sm"));
  EXPECT_TRUE(grid.DoFilter(1, "Sm"));
  EXPECT_FALSE(grid.DoFilter(0, "1"));
  EXPECT_EQ(filtered, 1);
  grid.ClearFilters();
  EXPECT_EQ(grid.Columns.get()[1].filter, "");
}

TEST_F(GridTest, TheSameHeaderAgainTurnsTheOrderAround) {
  EXPECT_TRUE(grid.DoSort(1));
  EXPECT_FALSE(grid.SortDescending);
  EXPECT_TRUE(grid.DoSort(1));
  EXPECT_TRUE(grid.SortDescending);
  EXPECT_TRUE(grid.DoSort(4));
  EXPECT_FALSE(grid.SortDescending);
  EXPECT_EQ(grid.SortColumn, 4);
}

}  // namespace
}  // namespace forms
