#include <malloc.h>

#include <atomic>
#include <set>
#include <thread>

#include "host/database/conformance/tested_engine.h"

namespace host {
namespace {

using session::Busy;
using session::ToText;

// What other connections and threads do meanwhile.
class Sharing : public OnEngine {
 protected:
  // A thousand rows that a statement may join with themselves to as many as it likes.
  void AddThousand() { AddEmployers(1000); }
};

constexpr const char* kMillionRows = "SELECT a.EmpNam, b.EmpNam AS other FROM EmpTable a, EmpTable b";
constexpr const char* kEndless =
    "SELECT Count(*) FROM EmpTable a, EmpTable b, EmpTable c, EmpTable d, EmpTable e "
    "WHERE a.EmpInd+b.EmpInd+c.EmpInd+d.EmpInd<>e.EmpInd";

TEST_P(Sharing, HalfReadListNeitherBlocksNorAges) {
  AddEmployers(300);
  const auto there = OpenDatabase(Url());
  const auto list = Database().Run("SELECT EmpNam FROM EmpTable ORDER BY EmpInd");
  Run(there, "UPDATE EmpTable SET EmpNam='changed' WHERE EmpInd=1");
  EXPECT_EQ(Run("SELECT EmpNam FROM EmpTable WHERE EmpInd=1"), Rows({"changed"}));
  Run("UPDATE EmpTable SET EmpNam='mine' WHERE EmpInd=300");
  EXPECT_EQ(Run(there, "SELECT EmpNam FROM EmpTable WHERE EmpInd=300"), Rows({"mine"}));
  {
    session::Transaction transaction(*Database().connection);
    Run("DELETE * FROM EmpTable WHERE EmpInd=299");
    transaction.Commit();
  }
  EXPECT_EQ(list->GetRows(299).size(), 299U);
  EXPECT_EQ(ToText(list->Get(0)), "Employer 299");
}

TEST_P(Sharing, SeeWhatIsCommittedAlone) {
  const auto there = OpenDatabase((Database(), Url()));
  session::Transaction transaction(*Database().connection);
  Run("INSERT INTO EmpTable (EmpNam) VALUES ('a')");
  EXPECT_EQ(Run(there, "SELECT Count(*) FROM EmpTable"), Rows({"0"}));
  transaction.Commit();
  EXPECT_EQ(Run(there, "SELECT Count(*) FROM EmpTable"), Rows({"1"}));
}

TEST_P(Sharing, WaitForAnotherCanBeGivenUp) {
  AddEmployers(1);
  const auto there = OpenDatabase(Url());
  const std::string update = "UPDATE EmpTable SET EmpNam='here'";
  auto other = std::make_optional<session::Transaction>(*there.connection);
  Run(there, "UPDATE EmpTable SET EmpNam='there'");
  std::vector<Busy> heard;
  Database().connection->WhileBusy = [&](Busy busy) {
    heard.push_back(busy);
    return busy == Busy::Waiting;
  };
  EXPECT_NE(Refusal(update), "");
  EXPECT_THAT(heard, testing::AllOf(testing::Contains(Busy::Waiting), testing::Contains(Busy::Done)));
  EXPECT_EQ(heard.back(), Busy::Done);
  Database().connection->WhileBusy = [&](Busy busy) {
    if (busy == Busy::Waiting) {
      other.reset();  // done in the meantime
    }
    return false;
  };
  EXPECT_EQ(Refusal(update), "");
  EXPECT_EQ(Run("SELECT EmpNam FROM EmpTable"), Rows({"here"}));
}

TEST_P(Sharing, CancelEndsTheRunningStatement) {
  AddThousand();
  session::Connection& connection = *Database().connection;
  const auto list = Database().Run(kMillionRows);
  for (const bool inside : {false, true}) {
    std::optional<session::Transaction> transaction;
    if (inside) {
      transaction.emplace(connection);
      Run("UPDATE EmpTable SET EmpCIT='kept' WHERE EmpInd=1");
    }
    std::atomic<bool> ended = false;
    std::thread canceller([&] {
      while (!ended) {
        connection.Cancel();
        std::this_thread::yield();
      }
    });
    EXPECT_NE(Refusal(kEndless), "");
    ended = true;
    canceller.join();
    connection.WhileBusy = [](Busy) { return true; };  // the other way, where it runs
    EXPECT_NE(Refusal(kEndless), "");
    connection.WhileBusy = nullptr;
    EXPECT_EQ(Run("SELECT Count(*) FROM EmpTable"), Rows({"1000"})) << "no late end of another";
    if (inside) {
      transaction->Commit();
    }
  }
  EXPECT_EQ(Run("SELECT EmpInd FROM EmpTable WHERE EmpCIT='kept'"), Rows({"1"}));
  EXPECT_EQ(list->GetRows(50'000).size(), 50'000U) << "a list that is half read goes on";
}

TEST_P(Sharing, NextKeyEndsAListThatIsRead) {
  AddThousand();
  session::Connection& connection = *Database().connection;
  std::set<Busy> heard;
  connection.WhileBusy = [&](Busy busy) {
    heard.insert(busy);
    return false;
  };
  int pauses = 0;
  EXPECT_FALSE(RunUnless(
      connection, [&] { return ++pauses > 3; }, [&] { Database().Run(kEndless); }));
  EXPECT_THAT(heard, testing::ElementsAre(Busy::Reading, Busy::Done));
  EXPECT_TRUE(RunUnless(
      connection, [] { return false; }, [&] { Run("SELECT Count(*) FROM EmpTable"); }));
}

// A list shows its first page at once, however many rows there are.
TEST_P(Sharing, RowsAreFetchedAsTheyAreAskedFor) {
  AddThousand();
  Run("SELECT EmpNam FROM EmpTable");
  const auto in_use = [] {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
  };
  constexpr std::size_t kMost = 4U << 20U;  // the rows together are some 60 megabytes
  const std::size_t before = in_use();
  const auto list = Database().Run(kMillionRows);
  EXPECT_LT(in_use(), before + kMost);
  for (int page = 0; page < 100; ++page) {
    ASSERT_EQ(list->GetRows(200).size(), 200U);
    ASSERT_LT(in_use(), before + kMost);
  }
  EXPECT_FALSE(list->Eof());
}

TEST_P(Sharing, ManyListsMayBeOpen) {
  AddThousand();
  std::vector<std::unique_ptr<session::Recordset>> lists;
  for (int i = 0; i < 20; ++i) {
    lists.push_back(Database().Run(kMillionRows));
    lists.back()->GetRows(static_cast<std::size_t>(i));
  }
  Run("UPDATE EmpTable SET EmpNam='x' WHERE EmpInd=1000");
  for (const auto& list : lists) {
    EXPECT_EQ(list->GetRows(300).size(), 300U);
  }
  lists.clear();
  EXPECT_EQ(Run("SELECT Count(*) FROM EmpTable WHERE EmpNam='x'"), Rows({"1"}));
}

INSTANTIATE_TEST_SUITE_P(Conformance, Sharing, testing::ValuesIn(SharedEngines()), NameOfEngine);

}  // namespace
}  // namespace host
