#include "database/dialect/prepare_sql.h"

#include "database/database.h"

namespace host {
namespace {

TEST(PrepareSqlite, TranslatesTheDialect) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      // dates, in the one form that sorts
      {"APDat>=#11/21/2026#", "APDat>='2026-11-21'"},
      {"x=#1/2/1980 2:05:00 pm#", "x='1980-01-02 14:05:00'"},
      {"x=#01/02/1980 00:00:00#", "x='1980-01-02'"},
      {"x=#1980-01-02 12:00 AM#", "x='1980-01-02'"},
      {"x=#08:30 am#", "x='1899-12-30 08:30:00'"},
      {"x=#13/45/2026#", "x=#13/45/2026#"},
      {"x=#1/288/2026#", "x=#1/288/2026#"},
      // text and names
      {"x='#1/2/1980#'", "x='#1/2/1980#'"},
      {R"(x="O'Brien ""Bob"" TRUE")", R"(x='O''Brien "Bob" TRUE')"},
      {"[Group #] = [a]]b]", "[Group #] = \"a]b\""},
      {std::string("x='a\0b'", 7), "x=CAST(x'610062' AS TEXT)"},
      {"x=1 -- TOP 5\n and y=2 /* ; */", "x=1 and y=2"},
      // words
      {"delete * from T where a=TRUE or b<>FALSE", "delete from T where a=1 or b<>0"},
      {"Select Top 5 a from T where b in (select top 1 c from S);",
       "Select a from T where b in (select c from S LIMIT 1) LIMIT 5"},
      {"SELECT DISTINCTROW a FROM T", "SELECT DISTINCT a FROM T"},
      {"update TAVOWIN.DBO.rsTable set a=dbo.NoteTable.b", "update rsTable set a=NoteTable.b"},
      {"SELECT @@IDENTITY", "SELECT identity()"},
      {"UPDATE T SET T.a=[T].[a]-1, T.b=f(T.c, T.d) WHERE T.e=1",
       "UPDATE T SET a=[T].[a]-1, b=f(T.c, T.d) WHERE T.e=1"},
      {"INSERT INTO T (a, b, c) VALUES (0, GLOBAL, Null), (f(x), LOCAL, (SELECT (y))) ON CONFLICT (a) DO NOTHING",
       "INSERT INTO T (a, b, c) VALUES (0, 'GLOBAL', Null), (f(x), 'LOCAL', (SELECT (y))) ON CONFLICT (a) DO NOTHING"},
      {"set @a = (@b); set @b = @a+1; SELECT @a, @b, @c", "SELECT (@b), (@b)+1, @c"},
      // "+" by what stands beside it
      {"PATABLE.pLASNAM+', '+PATABLE.pFIRNAM",
       "PATABLE.pLASNAM COLLATE UNICODE_NOCASE||', ' COLLATE UNICODE_NOCASE||PATABLE.pFIRNAM"},
      {"cast(emsPer as nvarchar) + emsPerTyp", "cast(emsPer as nvarchar) COLLATE UNICODE_NOCASE || emsPerTyp"},
      {"(pLASNAM+' ')+upper(pFIRNAM)", "(pLASNAM COLLATE UNICODE_NOCASE||' ') COLLATE UNICODE_NOCASE||upper(pFIRNAM)"},
      {"CovOrd+1 + (emsPer+2)", "CovOrd+1 + (emsPer+2)"},
      // Like
      {"a Like 'Smi%'", "a Like 'Smi%'"},
      {R"(a Like '5[%]\[_]%')", R"(a Like '5\%\\\_%' ESCAPE '\')"},
      {"a Like 'x[[]1]%'", "a Like 'x[1]%'"},
      {"a Like '[a-f]%'", "a MATCH '[a-f]%'"},
      {"a not Like 'Mü%'", "a not MATCH 'Mü%'"},
      {"UPDATE T SET a='Ü' WHERE b='Ü' and c<>'–'", "UPDATE T SET a='Ü' WHERE b='Ü' COLLATE UNICODE_NOCASE and c<>'–'"},
      // what is not understood goes to the engine
      {"SELECT 'open", "SELECT 'open"},
  };
  for (const auto& [statement, expected] : cases) {
    EXPECT_EQ(PrepareSqlite(statement), expected);
  }
}

// Some letters in a column without an index, sorted by one that has an index.
TEST(PrepareSqlite, SortsTheFewRowsThatItFinds) {
  const auto sorted = [](const std::string& condition, const std::string& sort) {
    const std::string prepared =
        PrepareSqlite("SELECT P.pLASNAM AS [Last Name], pCIT AS City FROM P WHERE " + condition + " ORDER BY " + sort);
    return prepared.substr(prepared.find("ORDER BY ") + 9);
  };
  EXPECT_EQ(sorted("((P.pCIT) like '%ingf%')", "[Last Name], pFIRNAM"), "+[Last Name], pFIRNAM");
  EXPECT_EQ(sorted("pCIT like 'Spr%' and pZIP like '6%'", "P.pLASNAM DESC"), "+P.pLASNAM DESC");
  EXPECT_EQ(sorted("(P.pID = 12 OR P.pID BETWEEN 120 AND 129)", "[Last Name]"), "+[Last Name]");
  EXPECT_EQ(sorted("P.pID BETWEEN 50 AND 59 OR P.pID BETWEEN 500 AND 599", "[Last Name]"), "[Last Name]");
  EXPECT_EQ(sorted("pCIT like 'Sp%'", "[Last Name]"), "[Last Name]") << "too many";
  EXPECT_EQ(sorted("(P.pLASNAM) like '%mith%'", "[Last Name]"), "[Last Name]") << "the index of the order has it";
  EXPECT_EQ(sorted("pCIT like '%ingf%' and pSSN like '123%'", "[Last Name]"), "[Last Name]") << "an index finds it";
  EXPECT_EQ(sorted("pCIT like '%ingf%'", "1"), "1");
}

TEST(PrepareSqlite, RefusesWhatWouldBeCutOffOrGrow) {
  using std::string_literals::operator""s;
  for (const std::string& statement :
       {"DELETE * FROM T \0 WHERE a=1"s, "SELECT [a\0b] FROM T"s, "SELECT 'open\0"s, "SELECT #1/1/2020\0#"s}) {
    EXPECT_THROW(PrepareSqlite(statement), session::DatabaseError);
  }
  std::string doubling = "SET @a=1";
  for (int i = 0; i < 60; ++i) {
    doubling += "; SET @a=@a+@a";
  }
  EXPECT_THROW(PrepareSqlite(doubling), session::DatabaseError);
}

}  // namespace
}  // namespace host
