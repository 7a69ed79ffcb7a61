#include "people/frmDatabaseSearch.h"

#include "support/fake_host.h"

namespace {

using people::frmDatabaseSearch;

// What follows the first page is fetched while the person pauses, and may be refused.
TEST(DatabaseSearch, TellsOnceWhatCouldNotBeRead) {
  test_support::FakeHost host;
  host.session.columns = {"pID",   "pFIRNAM", "pLASNAM", "pHOMPHO", "pBUSPHO", "pSSN",
                          "pADD1", "pADD2",   "pCIT",    "pSTA",    "pZIP",    "pBIRDAT"};
  host.session.rows.assign(300, test_support::Row(12));
  host.session.breaks_at = 150;
  frmDatabaseSearch search(host.Context());
  search.SearchText = "S";
  EXPECT_EQ(search.Search(), 100);
  EXPECT_EQ(search.RowLabel.Caption, "100 persons so far ...");
  while (search.DoIdle()) {
  }
  search.Name_List.FetchMore();
  EXPECT_EQ(host.user.told.size(), 1U);
  EXPECT_EQ(search.RowLabel.Caption, "150 persons; the others could not be read");

  host.session.refuses = true;
  search.Name_List.DoSort(1);
  EXPECT_EQ(host.user.told.size(), 2U);
  EXPECT_EQ(search.Name_List.SortColumn, 0) << "as the rows are";
  EXPECT_EQ(search.Name_List.RowCount(), 150);
}

}  // namespace
