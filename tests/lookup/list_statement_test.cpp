#include "lookup/list_statement.h"

namespace {

using data::Sql;
using lookup::FirstSortTerm;
using lookup::ListStatement;

TEST(ListStatement, KnowsWhatStandsUnderEachCaption) {
  const ListStatement statement{
      Sql("SELECT DISTINCTROW T.A+', '+T.B AS Name, (SELECT Max(X) FROM U WHERE U.Y=1) AS [Last, or FROM], "
          "'it''s AS is' as [ID #], Left(T.C, 3), T.[Group Number] FROM T")};
  const auto& columns = statement.Columns();
  ASSERT_EQ(columns.size(), 5U);
  EXPECT_EQ(columns[0].caption, "Name");
  EXPECT_EQ(columns[0].expression, "T.A+', '+T.B");
  EXPECT_EQ(statement.Expression("last, OR from"), "(SELECT Max(X) FROM U WHERE U.Y=1)");
  EXPECT_EQ(statement.Expression("ID #"), "'it''s AS is'");
  EXPECT_EQ(columns[3].caption, "Left(T.C, 3)");
  EXPECT_EQ(statement.Expression("Group Number"), "T.[Group Number]");
  EXPECT_EQ(statement.Expression("elsewhere"), "[elsewhere]");
}

TEST(ListStatement, AddsConditionsToItsOwn) {
  const Sql sql("SELECT A AS X FROM (T LEFT JOIN U ON T.B = U.B) WHERE (A='1') OR (A=' where ') ");
  const ListStatement statement(sql);
  EXPECT_EQ(statement.With({}, Sql("X")), sql + " ORDER BY X");
  EXPECT_EQ(statement.With({Sql("(c)"), Sql("(d)")}, Sql("X DESC")),
            "SELECT A AS X FROM (T LEFT JOIN U ON T.B = U.B) WHERE ((A='1') OR (A=' where ')) AND ((c) AND (d)) "
            "ORDER BY X DESC");
  EXPECT_EQ(ListStatement(Sql("SELECT A FROM T ")).With({Sql("(c)")}, {}), "SELECT A FROM T WHERE ((c))");
}

TEST(ListStatement, PutsConditionsBeforeGroupingAndSorting) {
  const Sql sql("SELECT A, Count(*) AS N FROM T WHERE B=1 GROUP BY A ORDER BY A");
  const ListStatement statement(sql);
  EXPECT_EQ(statement.With({}, {}), sql);
  EXPECT_EQ(statement.With({}, Sql("N")), "SELECT A, Count(*) AS N FROM T WHERE B=1 GROUP BY A  ORDER BY N");
  EXPECT_EQ(statement.With({Sql("(c)")}, {}),
            "SELECT A, Count(*) AS N FROM T WHERE (B=1) AND ((c)) GROUP BY A  ORDER BY A");
}

TEST(ListStatement, ReadsTheFirstSortTerm) {
  EXPECT_EQ(FirstSortTerm("[Insurance Company], [Group Number]").caption, "Insurance Company");
  EXPECT_FALSE(FirstSortTerm("Name").descending);
  EXPECT_EQ(FirstSortTerm("[ID #] desc").caption, "ID #");
  EXPECT_TRUE(FirstSortTerm("[ID #] desc").descending);
  EXPECT_EQ(FirstSortTerm("").caption, "");
}

// Text that no one would call a statement is still only text.
TEST(ListStatement, SurvivesWhatItCannotRead) {
  for (const char* sql : {"", "SELECT", "SELECT 'open", "SELECT TOP", "UPDATE T SET A=1", "SELECT )) AS [ FROM"}) {
    const ListStatement statement(Sql::OfHost(sql));
    EXPECT_EQ(statement.With({}, {}), sql);
    statement.With({Sql("(c)")}, Sql("X"));
  }
}

}  // namespace
