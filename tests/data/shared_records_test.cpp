#include "data/shared_records.h"

#include "data/shared_record_texts.h"
#include "support/practice_host.h"

namespace {

using data::SharedRecord;
using data::SharedRecords;

// Ann holds plan 11, 12 and 21 through the mill, and covers her child by the first and the last.
class SharedRecordsTest : public testing::Test {
 protected:
  SharedRecordsTest() {
    for (const char* sql :
         {"INSERT INTO PATable (pID, pLASNAM) VALUES (1, 'Ann'), (2, 'Child')",
          "INSERT INTO EmpTable (EmpInd, EmpNam) VALUES (1, 'Mill'), (2, 'Shop')",
          "INSERT INTO InsCoTable (InsCoInd, InsCoNam) VALUES (1, 'North'), (2, 'South')",
          "INSERT INTO GroPlaTable (GroPlaInd, GroPlaInsID, GroPlaGroNum) VALUES (11, 1, 'A1'), (12, 1, 'A2'), (21, 2, "
          "'B1')",
          "INSERT INTO ELTable (elID, elEmpID, elInsID, elGroID) VALUES (100, 1, 0, 0), (101, 1, 1, 11), (102, 1, 1, "
          "12), (103, 1, 2, 21), (203, 2, 2, 21)",
          "INSERT INTO PatEmpTable (PatEmpID, PatEmpPatID, PatEmpElID, PatEmpOrd) VALUES (1, 1, 101, 1), (2, 1, 102, "
          "2), (3, 1, 103, 3)",
          "INSERT INTO CovTable (CovID, CovPatID, CovSubPatEmpID, CovOrd, CovRel, CovYTD) VALUES (1, 1, 1, 1, 1, 250), "
          "(2, 1, 2, 2, 1, 20), (3, 1, 3, 3, 1, 30), (4, 2, 3, 1, 3, 4), (5, 2, 1, 2, 22, 5)"}) {
      statements_.Execute(data::Sql::OfHost(sql));
    }
  }

  // The links that Ann holds, in order.
  std::string Held() {
    return host_.Value(
        "SELECT group_concat(PatEmpElID) FROM (SELECT * FROM PatEmpTable WHERE PatEmpFla=0 AND PatEmpPatID=1 ORDER BY "
        "PatEmpOrd)");
  }
  // What covers a patient, in order: holding/relationship/used.
  std::string Covered(int patient) {
    return host_.Value(
        "SELECT group_concat(CovSubPatEmpID || '/' || CovRel || '/' || CovYTD, ' ') FROM (SELECT * FROM "
        "CovTable WHERE CovFla=0 AND CovPatID=" +
        std::to_string(patient) + " ORDER BY CovOrd)");
  }

  test_support::PracticeHost host_{host::CreatePractice("sqlite::memory:")};
  data::Statements statements_{host_.session};
  SharedRecords records_{host_.session};
};

TEST_F(SharedRecordsTest, HoldTheNewPlanOnceInTheEarlierPlace) {
  EXPECT_EQ(records_.Uses(SharedRecord::Carrier, 1), 2);
  EXPECT_EQ(records_.CoveragesOfCarrier(1), 3);
  records_.Replace(SharedRecord::GroupPlan, 11, 21);
  EXPECT_EQ(Held(), "103,102");
  EXPECT_EQ(Covered(1), "3/1/250 2/1/20");
  EXPECT_EQ(Covered(2), "3/3/4");
  EXPECT_EQ(host_.Value("SELECT group_concat(PatEmpOrd) FROM PatEmpTable WHERE PatEmpFla=0"), "2,1");
  EXPECT_EQ(host_.Value("SELECT group_concat(CovOrd) FROM CovTable WHERE CovFla=0 AND CovPatID=1"), "2,1");
  EXPECT_EQ(host_.Value("SELECT COUNT(*) FROM LogTable"), "1");
}

TEST_F(SharedRecordsTest, ReplaceALinkByThePlanOfAnotherEmployersLink) {
  records_.Replace(SharedRecord::PlanLink, 101, 203);
  EXPECT_EQ(Held(), "103,102");
  EXPECT_EQ(host_.Value("SELECT elFla FROM ELTable WHERE elID=101"), "0");
  EXPECT_EQ(host_.Value("SELECT LogCat || ' ' || LogText FROM LogTable"),
            "LogEmp Insurance coverage for the following employer was replaced by user Ann on 11/21/2026 at 12:00 "
            "am.\r\nEmployer : Mill\r\n---- Original Plan ----\r\nInsurance Company : North\r\nGroup Number : A1\r\n"
            "---- New Plan ----\r\nInsurance Company : South\r\nGroup Number : B1");
}

TEST_F(SharedRecordsTest, RemoveALink) {
  EXPECT_EQ(data::NameOf(host_.session, SharedRecord::PlanLink, 101), "North [A1]");
  records_.Delete(SharedRecord::PlanLink, 101);
  EXPECT_EQ(Held(), "102,103");
  EXPECT_EQ(Covered(2), "3/3/4");
  EXPECT_EQ(host_.Value("SELECT elFla FROM ELTable WHERE elID=101"), "1");
  EXPECT_EQ(host_.Value("SELECT LogCat || ' ' || LogText FROM LogTable"),
            "LogEmp Insurance coverage for the following employer was removed by user Ann on 11/21/2026 at 12:00 "
            "am.\r\nEmployer : Mill\r\nInsurance Company : North\r\nGroup Number : A1");
}

// Two links and two subscribers of the carrier; the window paints with each.
TEST_F(SharedRecordsTest, TellEveryLinkAndSubscriberThatIsDone) {
  std::vector<double> told;
  records_.Progress = [&](double done) { told.push_back(done); };
  records_.Replace(SharedRecord::Carrier, 1, 2);
  EXPECT_THAT(told, testing::ElementsAre(0.25, 0.5, 0.75, 1));
}

TEST_F(SharedRecordsTest, AreNotReplacedByWhatIsNotThere) {
  EXPECT_THROW(records_.Replace(SharedRecord::Employer, 1, 9), session::DatabaseError);
  EXPECT_EQ(Held(), "101,102,103");
}

TEST_F(SharedRecordsTest, CoveragesAndHoldingsAreAddedChangedAndRemovedInOrder) {
  const data::Holdings holdings(host_.session);
  const data::Coverages coverages(host_.session);
  const std::int32_t holding = holdings.Add(2, 203);
  const std::int32_t coverage = coverages.Add(2, holding, 1);
  EXPECT_EQ(Covered(2), "3/3/4 1/22/5");
  EXPECT_EQ(coverages.Count(2), 3);
  EXPECT_EQ(coverages.LinkOf(coverage), 203);
  EXPECT_EQ(holdings.SubscriberOf(holding), 2);
  coverages.Remove(4);
  coverages.Change(5, 2);
  coverages.SetRelationship(coverage, 20);
  EXPECT_EQ(
      host_.Value("SELECT group_concat(CovSubPatEmpID || '/' || CovRel || '/' || CovOrd, ' ') FROM CovTable WHERE "
                  "CovFla=0 AND CovPatID=2"),
      "4/20/2 2/22/1");
  holdings.Change(1, 101, 203);
  holdings.Remove(2);
  EXPECT_EQ(Held(), "203,103");
  EXPECT_EQ(holdings.Count(1), 2);
  EXPECT_EQ(coverages.Count(2), 1);
}

}  // namespace
