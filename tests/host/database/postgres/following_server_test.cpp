#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "database/database.h"
#include "database/postgres/postgres_connection.h"
#include "database/unix/throwaway_cluster.h"

namespace host {
namespace {

using session::DatabaseError;
using session::ToText;
using testing::HasSubstr;

// A server with a practice, and one that follows it.
class FollowingServer : public testing::Test {
 protected:
  static std::string Ask(session::Connection& connection, const std::string& select) {
    return ToText(connection.Execute(select)->Get(0));
  }
  static std::string Refused(session::Connection& connection, const std::string& statement) {
    try {
      connection.Execute(statement);
    } catch (const DatabaseError& error) {
      return error.what();
    }
    return "done";
  }
  // The follower answers the question so in the end.
  void Await(const std::string& select, const std::string& answer) {
    PostgresConnection follower(second_.Url("postgres"), {.readers = false});
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (Ask(follower, select) != answer) {
      ASSERT_LT(std::chrono::steady_clock::now(), end) << select;
    }
  }
  void CatchUp() {
    PostgresConnection followed(first_.Url("postgres"), {.readers = false});
    const std::string position = Ask(followed, "SELECT pg_current_wal_flush_lsn()");
    Await("SELECT (pg_last_wal_replay_lsn() >= '" + position + "')::int", "1");
  }

  ThrowawayCluster first_{ThrowawayCluster::Own{}};
  std::string name_ = first_.MakeDatabase("practice");
  PracticeDatabase owner_ = CreateDatabase(first_.Url(name_));
  ThrowawayCluster second_{ThrowawayCluster::Following{first_}};
};

TEST_F(FollowingServer, IsReadWhereItHasEverything) {
  PostgresConnection desk(first_.Url(name_) + "&replica=" + second_.Folder().string());
  const std::string where = "SELECT CASE WHEN pg_is_in_recovery() THEN 'second ' ELSE 'first ' END";
  const std::string employers = where + " || count(*) FROM EmpTable";
  const std::string add = "INSERT INTO EmpTable (EmpNam) VALUES ('Acme')";
  desk.Execute(add);
  CatchUp();
  EXPECT_EQ(Ask(desk, employers), "second 1");
  {
    session::Transaction transaction(desk);
    desk.Execute(add);
    EXPECT_EQ(Ask(desk, employers), "first 2") << "what the transaction itself has written";
    transaction.Commit();
  }
  CatchUp();
  second_.Run("SELECT pg_wal_replay_pause()");
  Await("SELECT pg_get_wal_replay_pause_state()", "paused");
  desk.Execute(add);
  EXPECT_EQ(Ask(desk, employers), "first 3");
  second_.Run("SELECT pg_wal_replay_resume()");
  CatchUp();
  EXPECT_EQ(Ask(desk, employers), "second 3");
  second_.Halt();
  EXPECT_EQ(Ask(desk, employers), "first 3");
  // One that follows no more may have rows of its own.
  second_.Start();
  second_.Run("SELECT pg_promote()");
  second_.Run("INSERT INTO EmpTable (EmpNam) VALUES ('Stranger')", name_);
  PostgresConnection other(first_.Url(name_) + "&replica=" + second_.Folder().string());
  EXPECT_EQ(Ask(other, employers), "first 3");
}

TEST(ReplicaOfAnother, IsNotRead) {
  const ThrowawayCluster ours{ThrowawayCluster::Own{}};
  ThrowawayCluster other{ThrowawayCluster::Own{}};
  for (int i = 0; i < 3; ++i) {  // it is further on
    other.Run("CREATE TABLE t" + std::to_string(i) + " (a int)");
    other.Run("SELECT pg_switch_wal()");
  }
  const ThrowawayCluster stranger{ThrowawayCluster::Following{other}};
  PostgresConnection desk(ours.Url("postgres") + "&replica=" + stranger.Folder().string());
  EXPECT_EQ(ToText(desk.Execute("SELECT pg_is_in_recovery()::int")->Get(0)), "0");
}

TEST_F(FollowingServer, TakesOverWhenItIsPromoted) {
  const PracticeDatabase looking = OpenDatabase(second_.Url(name_));
  EXPECT_TRUE(looking.connection->ReadOnly());
  const std::string add = "INSERT INTO EmpTable (EmpNam) VALUES ('Acme')";
  EXPECT_THAT(Refused(*looking.connection, add), HasSubstr("protected against writing"));

  const PracticeDatabase desk =
      OpenDatabase(first_.Url(name_) + "," + second_.Folder().string() + "&target_session_attrs=read-write");
  EXPECT_FALSE(desk.connection->ReadOnly());
  desk.connection->Execute(add);
  CatchUp();
  first_.Halt();
  EXPECT_THAT(Refused(*desk.connection, add), HasSubstr("cannot be reached"));
  second_.Run("SELECT pg_promote()");
  EXPECT_EQ(Refused(*desk.connection, add), "done");
  EXPECT_EQ(Ask(*desk.connection, "SELECT count(*) FROM EmpTable"), "2");
}

}  // namespace
}  // namespace host
