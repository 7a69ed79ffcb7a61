#include "host/database/conformance/tested_engine.h"

namespace host {
namespace {

class Transactions : public OnEngine {
 protected:
  std::vector<std::string> Names() { return Run("SELECT EmpNam FROM EmpTable ORDER BY EmpInd"); }
};

TEST_P(Transactions, CommitOrRollBack) {
  {
    session::Transaction lost(*Database().connection);
    Run("INSERT INTO EmpTable (EmpNam) VALUES ('a')");
    EXPECT_EQ(Names(), Rows({"a"})) << "seen inside";
  }
  EXPECT_EQ(Names(), Rows({}));
  session::Transaction kept(*Database().connection);
  Run("INSERT INTO EmpTable (EmpNam) VALUES ('b')");
  kept.Commit();
  EXPECT_EQ(Names(), Rows({"b"}));
  EXPECT_THROW(Database().connection->CommitTrans(), session::DatabaseError) << "there is none";
  EXPECT_THROW(Database().connection->RollbackTrans(), session::DatabaseError);
}

TEST_P(Transactions, GoOnAfterARefusedStatement) {
  session::Transaction kept(*Database().connection);
  Run("INSERT INTO EmpTable (EmpInd, EmpNam) VALUES (1, 'before')");
  for (const std::string refused : {"INSERT INTO EmpTable (EmpInd) VALUES (1)", "SELECT nothing FROM EmpTable",
                                    "SELECT * FROM Nowhere", "SELECT (", "UPDATE EmpTable SET nothing=1"}) {
    EXPECT_NE(Refusal(refused), "") << refused;
    EXPECT_EQ(Names(), Rows({"before"})) << refused;
  }
  Run("INSERT INTO EmpTable (EmpNam) VALUES ('after')");
  kept.Commit();
  EXPECT_EQ(Names(), Rows({"before", "after"}));
}

TEST_P(Transactions, BatchStopsAtTheFailure) {
  Run("INSERT INTO EmpTable (EmpInd, EmpNam) VALUES (1, 'first')");
  const std::string batch =
      "INSERT INTO EmpTable (EmpNam) VALUES ('one'); INSERT INTO EmpTable (EmpInd) VALUES (1); INSERT INTO EmpTable "
      "(EmpNam) VALUES ('three')";
  const auto left = GetParam().whole_batches ? Rows({"first"}) : Rows({"first", "one"});
  EXPECT_NE(Refusal(batch), "");
  EXPECT_EQ(Names(), left);
  Run("DELETE * FROM EmpTable WHERE EmpNam='one'");
  session::Transaction kept(*Database().connection);
  EXPECT_NE(Refusal(batch), "");
  kept.Commit();
  EXPECT_EQ(Names(), left);
}

TEST_P(Transactions, BatchAnswersTheLastRows) {
  EXPECT_EQ(Run("INSERT INTO EmpTable (EmpNam) VALUES ('a'); SELECT EmpNam FROM EmpTable; SELECT 7 AS n; UPDATE "
                "EmpTable SET EmpNam='b'"),
            Rows({"7"}));
  EXPECT_EQ(Run("UPDATE EmpTable SET EmpNam='c'; ; "), Rows({}));
  EXPECT_TRUE(Database().Run("UPDATE EmpTable SET EmpNam='c'")->Fields().empty());
  EXPECT_EQ(Names(), Rows({"c"}));
}

TEST_P(Transactions, RecordsetsNestWhileWriting) {
  for (const bool inside : {false, true}) {
    Run("DELETE * FROM EmpTable");
    AddEmployers(5);
    std::optional<session::Transaction> transaction;
    if (inside) {
      transaction.emplace(*Database().connection);
    }
    int seen = 0;
    for (auto outer = Database().Run("SELECT EmpInd FROM EmpTable WHERE EmpNam Like 'Emp%'"); !outer->Eof();
         outer->MoveNext()) {
      const std::string id = session::ToText(outer->Get(0));
      const auto inner = Database().Run("SELECT EmpNam FROM EmpTable WHERE EmpInd<=" + id + " ORDER BY EmpInd DESC");
      Run("UPDATE EmpTable SET EmpCIT='seen' WHERE EmpInd=" + id);
      EXPECT_FALSE(inner->Eof());
      ++seen;
    }
    EXPECT_EQ(seen, 5);
    if (inside) {
      transaction->Commit();
    }
    EXPECT_EQ(Run("SELECT Count(*) FROM EmpTable WHERE EmpCIT='seen'"), Rows({"5"}));
  }
}

TEST_P(Transactions, FailuresNameStatementAndCode) {
  for (const std::string statement :
       {"SELECT nothing FROM PATable", "SELECT * FROM PATable WHERE pID=@Unknown",
        "SELECT * FROM PATable WHERE pBIRDAT=#31/31/2026#", "SELECT 'open", "DELETE * FROM Nowhere"}) {
    try {
      Database().Run(statement);
      FAIL() << statement;
    } catch (const session::DatabaseError& error) {
      EXPECT_NE(error.Code(), 0) << statement;
      EXPECT_THAT(error.Statement(), testing::StartsWith(statement.substr(0, 6)));
      EXPECT_FALSE(error.ConnectionLost());
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Conformance, Transactions, testing::ValuesIn(EveryEngine()), NameOfEngine);

}  // namespace
}  // namespace host
