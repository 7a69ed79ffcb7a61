#include "host/database/conformance/tested_engine.h"

namespace host {
namespace {

class Changes : public OnEngine {
 protected:
  void WriteAs(const std::string& name) {
    author_ = {name, [this] { return now_; }};
    Database().write_as(name.empty() ? nullptr : &author_);
  }
  // What was put down since it was asked for last, without a column's order in its table.
  std::vector<std::string> News() {
    auto news = Run("SELECT ChaWho, ChaWhat, ChaTab, ChaRecID, ChaCol, ChaOld, ChaNew FROM ChangeTable ORDER BY ChaID");
    Run("DELETE * FROM ChangeTable");
    return news;
  }

  forms::DateTime now_ = *forms::ParseIso("2026-11-21 14:05:00");

 private:
  ChangeAuthor author_;
};

TEST_P(Changes, ArePutDownByColumn) {
  using testing::UnorderedElementsAre;
  Run("INSERT INTO PATable (pLASNAM) VALUES ('Nobody')");
  EXPECT_THAT(News(), testing::IsEmpty()) << "nobody's";
  WriteAs("ann");
  EXPECT_EQ(Run("INSERT INTO PATable (pLASNAM, pBIRDAT, pPriBal, pInsPct, pMEDALEUPD) VALUES ('O''Hara', #1/2/1980#, "
                "12.50, 0.5, #1/2/2026 08:30:00#); SELECT @@IDENTITY"),
            Rows({"2"}))
      << "the row's, not the log's";
  EXPECT_THAT(News(), UnorderedElementsAre(
                          "ann|added|PATable|2|pLASNAM|(null)|O'Hara", "ann|added|PATable|2|pBIRDAT|(null)|1980-01-02",
                          "ann|added|PATable|2|pPriBal|(null)|12.5", "ann|added|PATable|2|pInsPct|(null)|0.5",
                          "ann|added|PATable|2|pMEDALEUPD|(null)|2026-01-02 08:30:00"));
  // Another case is a change, an empty text for nothing is none.
  Run("UPDATE PATable SET pLASNAM='O''HARA', pFIRNAM='', pBIRDAT=Null, pPriBal=12.5, pInsPct=2, pCRECARNUM='4000' "
      "WHERE "
      "pID=2");
  EXPECT_THAT(News(), UnorderedElementsAre("ann|changed|PATable|2|pLASNAM|O'Hara|O'HARA",
                                           "ann|changed|PATable|2|pBIRDAT|1980-01-02|(null)",
                                           "ann|changed|PATable|2|pInsPct|0.5|2.0",
                                           "ann|changed|PATable|2|pCRECARNUM|(null)|(null)"));
  WriteAs("bob");
  Run("UPDATE PATable SET pPROIND=pID; INSERT INTO PATable (pID, pLASNAM) VALUES (9, 'Lee'); INSERT INTO "
      "PATable (pID, pLASNAM) VALUES (Null, 'Roe')");
  EXPECT_THAT(News(), UnorderedElementsAre(
                          "bob|changed|PATable|1|pPROIND|(null)|1", "bob|changed|PATable|2|pPROIND|(null)|2",
                          "bob|added|PATable|9|pLASNAM|(null)|Lee", "bob|added|PATable|10|pLASNAM|(null)|Roe"));
  Run("DELETE * FROM PATable WHERE pID=9; INSERT INTO ZipCodTable (ZipCodCit) VALUES ('Boston')");
  EXPECT_THAT(News(), UnorderedElementsAre("bob|deleted|PATable|9|pLASNAM|Lee|(null)"));
  WriteAs("");
  Run("DELETE * FROM PATable");
  EXPECT_THAT(News(), testing::IsEmpty());
}

TEST_P(Changes, GoBackWithTheirTransaction) {
  MakePractice({.kind = 7, .office = 2, .offices = 3});
  WriteAs("ann");
  {
    session::Transaction lost(*Database().connection);
    Run("INSERT INTO PATable (pLASNAM) VALUES ('a')");
    WriteAs("bob");
  }
  Run("INSERT INTO PATable (pLASNAM, OfficeID) VALUES ('b', 3)");
  EXPECT_EQ(Run("SELECT ChaWho, ChaNew, ChaDat, OfficeID FROM ChangeTable"), Rows({"bob|b|2026-11-21 14:05:00|3"}));
  now_ += std::chrono::hours(1);
  Run("INSERT INTO PATable (pLASNAM) VALUES ('c')");
  EXPECT_EQ(Run("SELECT ChaDat, OfficeID FROM ChangeTable WHERE ChaNew='C'"), Rows({"2026-11-21 15:05:00|2"}));
}

INSTANTIATE_TEST_SUITE_P(Conformance, Changes, testing::ValuesIn(EveryEngine()), NameOfEngine);

}  // namespace
}  // namespace host
