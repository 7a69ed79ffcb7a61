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
