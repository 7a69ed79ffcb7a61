#include "host/database/conformance/tested_engine.h"

namespace host {
namespace {

using session::ToId;

class Keys : public OnEngine {
 protected:
  std::int32_t Insert(const std::string& columns, const std::string& values) {
    return ToId(FirstValue(
        *Database().Run("INSERT INTO EmpTable (" + columns + ") VALUES (" + values + "); SELECT @@IDENTITY")));
  }
  std::int32_t Identity() { return ToId(FirstValue(*Database().Run("SELECT @@IDENTITY"))); }
};

TEST_P(Keys, AreHandedOutOnce) {
  MakePractice({.kind = 7, .offices = 2});
  EXPECT_TRUE(session::IsNull(FirstValue(*Database().Run("SELECT @@IDENTITY")))) << "before the first";
  EXPECT_EQ(Insert("EmpNam", "'a'"), 1);
  EXPECT_EQ(Insert("EmpInd, OfficeID", "1, 2"), 1) << "another office may have the key too";
  EXPECT_THROW(Insert("EmpInd, OfficeID", "1, 2"), session::DatabaseError);
  EXPECT_EQ(Insert("EmpInd", "40"), 40);
  EXPECT_EQ(Insert("EmpInd, EmpNam", "Null, 'b'"), 41);
  EXPECT_EQ(Insert("EmpInd", "7"), 7) << "a gap filled";
  Run("DELETE * FROM EmpTable");
  EXPECT_EQ(Insert("EmpNam", "'c'"), 42);
  // The last that there can be uses none up, nor does it where rows come without one behind it.
  EXPECT_EQ(Insert("EmpInd", "2147483647"), 2147483647);
  EXPECT_EQ(Insert("EmpNam", "'d'"), 43);
  EXPECT_EQ(Insert("EmpInd, EmpNam", "Null, 'e'"), 44);
  // Asked for on its own, whatever was read or changed since, or did not work.
  Run("UPDATE EmpTable SET EmpNam='d'; SELECT * FROM EmpTable");
  EXPECT_NE(Refusal("INSERT INTO EmpTable (nothing) VALUES (1)"), "");
  EXPECT_NE(Refusal("INSERT INTO EmpTable (EmpInd) VALUES (44)"), "");
  EXPECT_EQ(Identity(), 44);
  EXPECT_EQ(Run("INSERT INTO ZipCodTable (ZipCodCit) VALUES ('Oslo'); INSERT INTO EmpTable (EmpNam) SELECT ZipCodCit "
                "FROM ZipCodTable; SELECT EmpNam FROM EmpTable WHERE EmpInd=@@IDENTITY"),
            Rows({"Oslo"}));
}

TEST_P(Keys, OfSeveralRowsAtOnce) {
  EXPECT_EQ(Insert("EmpNam", "'a'), ('b'), ('c'"), 3);
  EXPECT_EQ(Insert("EmpInd, EmpNam", "10, 'd'), (Null, 'e'), (12, 'f'"), 12);
  Run("INSERT INTO EmpTable (EmpNam) SELECT EmpNam FROM EmpTable");
  EXPECT_EQ(Run("SELECT Count(DISTINCT EmpInd), Count(*) FROM EmpTable"), Rows({"12|12"}));
  const std::int32_t last = Identity();
  EXPECT_EQ(Run("SELECT Max(EmpInd) FROM EmpTable"), Rows({std::to_string(last)}));
  EXPECT_GT(Insert("EmpNam", "'g'"), last);
}

TEST_P(Keys, OfTransactions) {
  session::Connection& connection = *Database().connection;
  {
    session::Transaction lost(connection);
    EXPECT_EQ(Insert("EmpNam", "'a'"), 1);
    EXPECT_EQ(Identity(), 1);
  }
  const std::int32_t first = Insert("EmpNam", "'b'");
  session::Transaction kept(connection);
  EXPECT_GT(Insert("EmpNam", "'c'"), first);
  EXPECT_GT(Insert("EmpNam", "'d'"), first + 1);
  kept.Commit();
  const std::int32_t last = Identity();
  EXPECT_EQ(Run("SELECT EmpNam FROM EmpTable WHERE EmpInd=" + std::to_string(last)), Rows({"d"}));
}

TEST_P(Keys, RowGuidsComeWithThem) {
  EXPECT_NE(Refusal("INSERT INTO ELTable (UniqueID) VALUES (newid())"), "") << "a practice that keeps none";
  EXPECT_EQ(Run("Select count(*) FROM INFORMATION_SCHEMA.COLUMNS WHERE Column_Name='UNIQUEID'"), Rows({"0"}));
  MakePractice({.row_guids = true});
  const auto rows = Run(
      "SET NOCOUNT ON; declare @UniqueID uniqueidentifier; set @UniqueID = newid(); INSERT INTO ELTable (elEmpID, "
      "elInsID, elGroID, elStaDat, elEndDat, elFla, UniqueID) OUTPUT inserted.UniqueID VALUES (1, 2, 3, #11/21/2026#, "
      "NULL, 0, @UniqueID); SELECT @UniqueID, @@IDENTITY");
  const std::string guid = Run("SELECT UniqueID FROM ELTable WHERE elID=1").at(0);
  EXPECT_EQ(guid.size(), 38U);
  EXPECT_EQ(rows, Rows({guid + "|1"}));
  EXPECT_EQ(Run("SELECT elID FROM ELTable WHERE UniqueID='" + guid + "'"), Rows({"1"}));
  // A row that brings none is given one.
  Run("INSERT INTO ELTable (elEmpID) VALUES (1), (2)");
  const auto given = Database().Run("SELECT UniqueID FROM ELTable WHERE elID=2");
  EXPECT_TRUE(std::holds_alternative<session::Guid>(given->Get(0)));
  EXPECT_EQ(Run("SELECT Count(DISTINCT UniqueID) FROM ELTable"), Rows({"3"}));
  EXPECT_EQ(Run("INSERT INTO ELTable (elEmpID) OUTPUT inserted.UniqueID VALUES (3)").size(), 1U);
}

TEST_P(Keys, BelongToTheirOffice) {
  MakePractice({.kind = 7, .office = 2, .offices = 3});
  Run("INSERT INTO EmpTable (EmpInd, EmpNam, OfficeID) VALUES (1, 'a', 1), (1, 'c', 3); INSERT INTO EmpTable (EmpInd, "
      "EmpNam) VALUES (1, 'b')");
  Run("INSERT INTO ELTable (elEmpID, OfficeID) VALUES (1, 1), (1, 3)");
  EXPECT_EQ(Run("SELECT EmpNam, OfficeID FROM EmpTable WHERE EmpInd=1 ORDER BY OfficeID"), Rows({"a|1", "b|2", "c|3"}));
  EXPECT_EQ(Run("SELECT EmpNam FROM ELTable INNER JOIN EmpTable ON elEmpID=EmpTable.EmpInd and (ELTable.OfficeID = "
                "EmpTable.OfficeID) WHERE elFla=0 AND (ELTable.OfficeID=3)"),
            Rows({"c"}));
  Run("UPDATE EmpTable SET EmpNam='mine' WHERE EmpInd=1 AND (OfficeID = 2) ");
  Run("DELETE * FROM EmpTable WHERE EmpInd=1 AND (OfficeID=3)");
  EXPECT_EQ(Run("SELECT EmpNam FROM EmpTable ORDER BY OfficeID"), Rows({"a", "mine"}));
  Run("INSERT INTO AccountTable (AccPid, OfficeID) VALUES (5, 1), (5, 2)");
  EXPECT_NE(Refusal("INSERT INTO AccountTable (AccPid) VALUES (5)"), "") << "one an office";
}

class KeysOfSeveral : public OnEngine {};

TEST_P(KeysOfSeveral, ConnectionsHaveTheirOwnIdentity) {
  Run("INSERT INTO EmpTable (EmpNam) VALUES ('mine')");
  const auto there = OpenDatabase(Url());
  EXPECT_EQ(Run(there, "SELECT @@IDENTITY"), Rows({"(null)"}));
  EXPECT_EQ(Run(there, "INSERT INTO EmpTable (EmpNam) VALUES ('theirs'); SELECT @@IDENTITY"), Rows({"2"}));
  EXPECT_EQ(Run("SELECT @@IDENTITY"), Rows({"1"}));
  EXPECT_EQ(Run("INSERT INTO EmpTable (EmpNam) VALUES ('mine'); SELECT @@IDENTITY"), Rows({"3"}));
}

INSTANTIATE_TEST_SUITE_P(Conformance, Keys, testing::ValuesIn(EveryEngine()), NameOfEngine);
INSTANTIATE_TEST_SUITE_P(Conformance, KeysOfSeveral, testing::ValuesIn(SharedEngines()), NameOfEngine);

}  // namespace
}  // namespace host
