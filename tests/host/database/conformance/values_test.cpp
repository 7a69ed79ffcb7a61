#include "host/database/conformance/tested_engine.h"

namespace host {
namespace {

using session::FieldType;
using session::ToText;

class Values : public OnEngine {};

TEST_P(Values, HostileTextComesBackAsTyped) {
  for (const std::string& text :
       {std::string("'; DROP TABLE PATable; --"), std::string("100% [x] _ \\ \"q\" #1/2/1980# @@IDENTITY TOP 5"),
        std::string("$1 ? :name {fn now()} E'\\n' $$x$$"), std::string("line\r\nbreak\ttab \x01\x7f"),
        std::string("Ærø \u65E5\u672C \U0001F9B7 e\u0301"), std::string(10000, '\''), std::string("\\"),
        std::string("")}) {
    Run("DELETE * FROM NoteTable");
    Run("INSERT INTO NoteTable (nNote) VALUES (" + Quoted(text) + ")");
    EXPECT_EQ(Run("SELECT nNote FROM NoteTable WHERE nNote=" + Quoted(text)), Rows({text}));
    EXPECT_EQ(Run("SELECT nNote FROM NoteTable WHERE nNote<>" + Quoted(text)), Rows({})) << text;
    EXPECT_EQ(Run("SELECT " + Quoted(text) + " AS t FROM NoteTable"), Rows({text}));
  }
}

TEST_P(Values, WhatIsNoTextIsStoredOrRefused) {
  for (const auto& [text, read] : std::vector<std::pair<std::string, std::string>>{
           {std::string("nul\0inside", 10), std::string("nul\0inside", 10)}, {"M\xFCller", "Müller"}}) {
    Run("DELETE * FROM NoteTable");
    const std::string said = Refusal("INSERT INTO NoteTable (nNote) VALUES (" + Quoted(text) + ")");
    EXPECT_EQ(said.empty(), GetParam().stores_any_bytes) << said;
    EXPECT_EQ(Run("SELECT nNote FROM NoteTable"), GetParam().stores_any_bytes ? Rows({read}) : Rows({}));
  }
}

TEST_P(Values, CaptionsKeepTheirWriting) {
  Run("INSERT INTO EmpTable (EmpNam, EmpCIT) VALUES ('Mill', 'Boston')");
  const auto rows = Database().Run(
      "SELECT EmpNam AS [Employer Name], EmpTable.EmpCIT AS [\"; DROP TABLE EmpTable; --], EmpInd AS [Select], "
      "EmpNam AS [it's # % \\ ], EmpNam AS ToWN, Count(*) AS [B-City] FROM EmpTable GROUP BY EmpNam, EmpCIT, EmpInd "
      "ORDER BY [Employer Name], [Select]");
  std::vector<std::string> names;
  for (const auto& field : rows->Fields()) {
    names.push_back(field.name);
  }
  EXPECT_THAT(names, testing::ElementsAre("Employer Name", "\"; DROP TABLE EmpTable; --", "Select", "it's # % \\ ",
                                          "ToWN", "B-City"));
  EXPECT_EQ(ToText((*rows)["employer name"]), "Mill");
  // A column without a caption: its name, whatever its capitals.
  EXPECT_EQ(ToText((*Database().Run("SELECT * FROM EmpTable"))["EmpNam"]), "Mill");
  EXPECT_EQ(Database().Run("SELECT * FROM EmpTable")->FieldIndex("EMPNAM"), 1);
}

// The same of a list that has no rows: its grid has columns all the same.
TEST_P(Values, FieldsHaveTypeAndSize) {
  MakePractice({.row_guids = true});
  const std::string columns =
      "SELECT EBID, EBDep, EBAPPDAT, EBAnnSalAmt, EBAnnVacHou, EBFulTimFla, nNote, EmpTable.UniqueID, EBDep AS [De p] "
      "FROM EBTable, NoteTable, EmpTable";
  for (const bool empty : {true, false}) {
    if (!empty) {
      Run("INSERT INTO EBTable (EBDep) VALUES ('Desk'); INSERT INTO NoteTable (nNote) VALUES (''); "
          "INSERT INTO EmpTable (EmpNam) VALUES ('Mill')");
    }
    const auto rows = Database().Run(columns);
    EXPECT_EQ(rows->Eof(), empty);
    std::vector<std::pair<FieldType, int>> fields;
    for (const auto& field : rows->Fields()) {
      fields.emplace_back(field.type, field.defined_size);
    }
    EXPECT_THAT(fields, testing::ElementsAre(std::pair(FieldType::Integer, 0), std::pair(FieldType::Text, 40),
                                             std::pair(FieldType::DateTime, 0), std::pair(FieldType::Currency, 0),
                                             std::pair(FieldType::Double, 0), std::pair(FieldType::Integer, 0),
                                             std::pair(FieldType::Text, 0), std::pair(FieldType::Guid, 0),
                                             std::pair(FieldType::Text, 40)))
        << (empty ? "empty" : "a row");
  }
}

TEST_P(Values, ComeByTheirColumns) {
  Run("INSERT INTO EBTable (EBDep, EBAPPDAT, EBAnnSalAmt, EBAnnVacHou) VALUES ('Desk', #11/21/2026 14:05:00#, 0.0003, "
      "1.5)");
  const auto rows = Database().Run(
      "SELECT EBID, EBDep, EBAPPDAT, EBAnnSalAmt, EBAnnVacHou, EBReaCha, EBID+1 AS n, Count(*) AS c "
      "FROM EBTable GROUP BY EBID, EBDep, EBAPPDAT, EBAnnSalAmt, EBAnnVacHou, EBReaCha");
  EXPECT_EQ(rows->Get(0), session::Value(std::int64_t{1}));
  EXPECT_EQ(rows->Get(1), session::Value("Desk"));
  EXPECT_EQ(rows->Get(2), session::Value(*forms::ParseIso("2026-11-21 14:05:00")));
  EXPECT_EQ(rows->Get(3), session::Value(forms::Currency::FromTenThousandths(3)));
  EXPECT_EQ(rows->Get(4), session::Value(1.5));
  EXPECT_TRUE(session::IsNull(rows->Get(5)));
  EXPECT_EQ((*rows)["N"], session::Value(std::int64_t{2}));
  EXPECT_EQ((*rows)["c"], session::Value(std::int64_t{1}));
  EXPECT_THROW((*rows)["nothing"], session::DatabaseError);
  EXPECT_THROW(rows->Get(8), session::DatabaseError);
  rows->MoveNext();
  EXPECT_TRUE(rows->Eof());
  EXPECT_THROW(rows->Get(0), session::DatabaseError);
  EXPECT_THROW(rows->MoveNext(), session::DatabaseError);
}

TEST_P(Values, EmptyTextIsNotNull) {
  Run("INSERT INTO PATable (pLASNAM, pFIRNAM, pBIRDAT, pPROIND) VALUES ('', Null, '', '')");
  EXPECT_EQ(Run("SELECT pLASNAM, pFIRNAM FROM PATable WHERE pLASNAM='' and pFIRNAM IS NULL"), Rows({"|(null)"}));
  EXPECT_EQ(Run("SELECT pID FROM PATable WHERE pLASNAM IS NULL or pFIRNAM='' or pFIRNAM<>''"), Rows({}));
  Run("UPDATE PATable SET pLASNAM=Null, pFIRNAM='', pBIRDAT=''");
  EXPECT_EQ(Run("SELECT pLASNAM, pFIRNAM FROM PATable"), Rows({"(null)|"}));
  // No date, and no number.
  const auto rows = Database().Run("SELECT pBIRDAT, pPROIND FROM PATable");
  EXPECT_FALSE(session::ToDateTime(rows->Get(0)));
  EXPECT_EQ(session::ToId(rows->Get(1)), 0);
}

TEST_P(Values, WhatDoesNotFitIsRefusedWhereTheEngineCan) {
  Run("INSERT INTO EmpTable (EmpSTA) VALUES ('ÄÖ')");  // counted in characters
  const std::string said = Refusal("INSERT INTO EmpTable (EmpNam, EmpSTA) VALUES ('Mill', 'MAX')");
  const std::string changed = Refusal("UPDATE EmpTable SET EmpSTA='MAX'");
  const std::string number = Refusal("INSERT INTO PDLTable (pdlShoInLoc) VALUES (70000)");
  if (GetParam().refuses_misfits) {
    EXPECT_THAT(said, testing::AllOf(testing::HasSubstr("EmpSTA"), testing::HasSubstr("2")));
    EXPECT_NE(changed, "");
    EXPECT_NE(number, "");
    EXPECT_EQ(Run("SELECT EmpSTA FROM EmpTable"), Rows({"ÄÖ"}));
  } else {
    EXPECT_EQ(Run("SELECT EmpSTA FROM EmpTable"), Rows({"MAX", "MAX"}));
  }
}

TEST_P(Values, MoneyIsExact) {
  for (const auto& [written, read] :
       std::vector<std::pair<std::string, std::string>>{{"0", "0"},
                                                        {"-0.01", "-0.01"},
                                                        {"0.1", "0.1"},
                                                        {"12.34", "12.34"},
                                                        {"1234567.8901", "1234567.8901"},
                                                        {"99999999999.9999", "99999999999.9999"},
                                                        {"-99999999999.9999", "-99999999999.9999"},
                                                        {"0.00004", "0"},
                                                        {"0.00006", "0.0001"},
                                                        {"-0.00006", "-0.0001"}}) {
    Run("DELETE * FROM DTTable; INSERT INTO DTTable (traAmt) VALUES (" + written + ")");
    const auto rows = Database().Run("SELECT traAmt FROM DTTable");
    EXPECT_TRUE(std::holds_alternative<forms::Currency>(rows->Get(0)));
    EXPECT_EQ(ToText(rows->Get(0)), read) << written;
  }
  Run("DELETE * FROM DTTable");
  for (int i = 0; i < 10; ++i) {
    Run("INSERT INTO DTTable (traAmt, TrapID) VALUES (0.1, 5)");
  }
  EXPECT_EQ(
      Run("SELECT TrapID FROM DTTable GROUP BY TrapID HAVING Count(*)=10 and Min(traAmt)=0.1 and Max(traAmt)<0.11"),
      Rows({"5"}));
  Run("UPDATE DTTable SET traAmt=traAmt*3 WHERE traAmt=0.1");
  EXPECT_EQ(Run("SELECT DISTINCT traAmt FROM DTTable"), Rows({"0.3"}));
}

TEST_P(Values, DatesOfAnyYear) {
  for (const auto& [written, read] :
       std::vector<std::pair<std::string, std::string>>{{"#1/1/0100#", "0100-01-01"},
                                                        {"#2/29/1600#", "1600-02-29"},
                                                        {"#12/30/1899#", "1899-12-30"},
                                                        {"#08:30 am#", "1899-12-30 08:30:00"},
                                                        {"#11/21/2026#", "2026-11-21"},
                                                        {"#11/21/2026 00:00:01#", "2026-11-21 00:00:01"},
                                                        {"#3/29/2026 02:30:00#", "2026-03-29 02:30:00"},
                                                        {"#12/31/9999 23:59:59#", "9999-12-31 23:59:59"}}) {
    Run("DELETE * FROM ApTable; INSERT INTO ApTable (APDat) VALUES (" + written + ")");
    EXPECT_EQ(Run("SELECT APDat FROM ApTable WHERE APDat=" + written + " and APDat>=" + written), Rows({read}))
        << written;
  }
  Run("INSERT INTO ApTable (APDat) VALUES (#1/1/2026#); INSERT INTO ApTable (APDat) VALUES (#1/1/2026 08:00:00#)");
  EXPECT_EQ(Run("SELECT APDat FROM ApTable WHERE APDat BETWEEN #1/1/2026# and #1/1/2026 23:59:59# ORDER BY APDat DESC"),
            Rows({"2026-01-01 08:00:00", "2026-01-01"}));
  EXPECT_NE(Refusal("INSERT INTO ApTable (APDat) VALUES (#31/31/2026#)"), "");
}

TEST_P(Values, NumbersAsTextAreFoundEitherWay) {
  Run("INSERT INTO PATable (pLASNAM, pTypPat, pTypEmp, pFAMHEAIND) VALUES ('Reed', '1', 1, '7')");
  EXPECT_EQ(Run("SELECT pLASNAM FROM PATable WHERE pTypPat=1 and pTypEmp='1' and pFAMHEAIND='7' and pID='1' and "
                "pTypPat>='1' and pFAMHEAIND IN (7, 8)"),
            Rows({"Reed"}));
  Run("INSERT INTO PDLTable (pdlPID, pdlShoInLoc) VALUES (1, TRUE)");
  EXPECT_EQ(Run("SELECT pdlShoInLoc FROM PDLTable WHERE pdlShoInLoc=TRUE and pdlShoInLoc<>FALSE and pdlShoInLoc<>0"),
            Rows({"1"}));
}

TEST_P(Values, NullsComeFirst) {
  Run("INSERT INTO EmpTable (EmpNam, EmpCIT) VALUES ('b', 'x'), (Null, 'x'), ('A', Null), ('', 'y')");
  EXPECT_EQ(Run("SELECT EmpNam FROM EmpTable ORDER BY EmpNam"), Rows({"(null)", "", "A", "b"}));
  EXPECT_EQ(Run("SELECT EmpNam AS [N n] FROM EmpTable ORDER BY [N n] DESC"), Rows({"b", "A", "", "(null)"}));
  EXPECT_EQ(Run("SELECT TOP 2 EmpNam FROM EmpTable ORDER BY EmpNam"), Rows({"(null)", ""}));
  EXPECT_EQ(Run("SELECT EmpCIT, EmpNam FROM EmpTable ORDER BY EmpCIT, 2 DESC"),
            Rows({"(null)|A", "x|b", "x|(null)", "y|"}));
  EXPECT_EQ(Run("SELECT DISTINCT EmpCIT FROM EmpTable ORDER BY EmpCIT ASC"), Rows({"(null)", "x", "y"}));
  EXPECT_EQ(Run("SELECT EmpInd FROM EmpTable WHERE EmpNam=(SELECT TOP 1 EmpNam FROM EmpTable WHERE EmpCIT='x' ORDER BY "
                "EmpNam DESC)"),
            Rows({"1"}));
}

INSTANTIATE_TEST_SUITE_P(Conformance, Values, testing::ValuesIn(EveryEngine()), NameOfEngine);

}  // namespace
}  // namespace host
