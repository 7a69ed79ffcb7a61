#include "editing/grid_layout.h"

namespace {

using editing::ColumnKeys;
using editing::ReadLayout;
using editing::WriteLayout;

class GridLayout : public testing::Test {
 protected:
  GridLayout() {
    grid_.Columns = {{.key = "pID", .caption = "ID", .width = 50, .visible = false},
                     {.key = "pLASNAM", .caption = "Name", .width = 120},
                     {.key = "pCIT", .caption = "City", .width = 90},
                     {.key = "pNOTES", .caption = {}, .width = 200, .long_text = true}};
  }

  // The keys of the columns from left to right with their widths, those in brackets hidden.
  std::string Shown() const {
    std::string text;
    for (const forms::GridColumn& column : grid_.Columns.get()) {
      const std::string one = column.key + " " + std::to_string(column.width);
      text += (text.empty() ? "" : ", ") + (column.visible ? one : "(" + one + ")");
    }
    return text;
  }
  void Read(std::string_view text, std::string_view key = "frmTGList_TEST") { ReadLayout(text, key, grid_); }

  forms::Grid grid_;
};

TEST_F(GridLayout, IsWrittenInTheOrderOfBuilding) {
  EXPECT_EQ(WriteLayout(grid_), "pID,0,0,0\npLASNAM,1,120,0\npCIT,2,90,0\npNOTES,3,200,0\n");
  grid_.DoMoveColumn(3, 0);
  EXPECT_EQ(WriteLayout(grid_), "pID,1,0,0\npLASNAM,2,120,0\npCIT,3,90,0\npNOTES,0,200,0\n");
  grid_.RowHeight = 22;
  EXPECT_EQ(WriteLayout(grid_, ColumnKeys::Numbers, true), "ROWHEIGHT=22\n0,1,0,0\n1,2,120,0\n2,3,90,0\n3,0,200,0\n");
}

TEST_F(GridLayout, IsReadByPosition) {
  Read("ROWHEIGHT=21.6\r\npCIT,10,75,0\r\npnotes,2,60.4,0\r\npID, 9,40,0");
  EXPECT_EQ(Shown(), "pNOTES 60, pID 40, pCIT 75, pLASNAM 120") << "as numbers; what the file lacks follows";
  EXPECT_EQ(grid_.RowHeight, 22);
  Read("pLASNAM,100000,120,0\npID,99999,0,0\npCIT,7,0,0\n");
  EXPECT_EQ(Shown(), "(pCIT 75), pLASNAM 120, (pID 40), pNOTES 60") << "five digits count, and a width outlives hiding";
  ReadLayout("3,0,8,0\n1,1,9,0\n", {}, grid_, ColumnKeys::Numbers);
  EXPECT_EQ(Shown(), "pNOTES 8, pLASNAM 9, (pCIT 75), (pID 40)");
}

TEST_F(GridLayout, PutsSplitsSideBySide) {
  Read("pCIT,0,80,0\npLASNAM,1,0,0\npNOTES,2,0,0\npCIT,0,0,1\npLASNAM,2,130,1\npNOTES,1,210,1\n");
  EXPECT_EQ(Shown(), "pCIT 80, pNOTES 210, pLASNAM 130, (pID 50)");
}

TEST_F(GridLayout, TakesWhatItCanOfAnyText) {
  const std::string built = Shown();
  for (const std::string_view text : {"", "\n\n", "pCIT,0,5", "pCIT,0,5,0,0", ",,,", "xROWHEIGHT=9", "pCIT;0;5;0",
                                      "pLASNAM,0,0,0\npCIT,0,0,0\npNOTES,0,0,0"}) {
    Read(text);
    EXPECT_EQ(Shown(), built) << text;
  }
  Read("ROWHEIGHT=x\npLASNAM,0,-5,z\npCIT,\xff\xfe,1e300,0\npNOTES,zz,1,0\npID,,nan,0");
  EXPECT_EQ(Shown(), "(pID 50), pLASNAM 120, pNOTES 8, pCIT 90") << "no width hides or bursts the grid by mistake";
  EXPECT_EQ(grid_.RowHeight, 0);
}

TEST_F(GridLayout, CallsLongTextsComments) {
  Read("pCIT,2,90,0");
  EXPECT_EQ(grid_.Columns.get()[3].caption, "");
  Read("pCIT,2,90,0", "CCT_1");
  EXPECT_EQ(grid_.Columns.get()[3].caption, "Comments");
}

}  // namespace
