#include "database/odbc/odbc_connection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "database/database.h"
#include "database/postgres/postgres_connection.h"
#include "database/unix/throwaway_cluster.h"
#include "support/odbc_url.h"

namespace host {
namespace {

using session::DatabaseError;
using session::Value;
using testing::HasSubstr;

TEST(OdbcGlue, LooksAtOtherServersAlone) {
  const auto why = [](const std::string& url) {
    try {
      OpenDatabase(url);
    } catch (const DatabaseError& error) {
      return std::string(error.what());
    }
    return std::string("opened");
  };
  EXPECT_THAT(why("odbc:Driver={No such driver};PWD=geheim"),
              testing::AllOf(HasSubstr("No such driver"), HasSubstr("PWD=***")));
  EXPECT_THAT(why(OdbcUrl(SharedCluster().Url("nowhere"))), HasSubstr("database \"nowhere\" does not exist"));
  EXPECT_THAT(why("odbc:Driver=SQLite3;Database=:memory:"), HasSubstr("sqlite:PATH"));
  const std::string group = SharedCluster().MakeDatabase("group");
  PostgresConnection(SharedCluster().Url(group))
      .Execute("CREATE SCHEMA practice; CREATE TABLE practice.officegroup ()");
  EXPECT_THAT(why(OdbcUrl(SharedCluster().Url(group))), HasSubstr("not reached by ODBC"));
  SharedCluster().DropDatabase(group);
}

// A driver that knows neither PostgreSQL's settings nor batches.
TEST(OdbcGlue, HoldsWithAnotherDriver) {
  OdbcConnection connection({.connection_string = "Driver=SQLite3;Database=:memory:", .reads_apart = false});
  connection.Execute("CREATE TABLE t (a int, b nvarchar(20), d datetime)");
  connection.BeginTrans();
  connection.Execute("INSERT INTO t VALUES (1, 'x', '2001-02-03 04:05:06')");
  connection.RollbackTrans();
  connection.BeginTrans();
  connection.Execute("INSERT INTO t VALUES (2, '\xC3\xA4', '2001-02-03 04:05:06')");
  connection.CommitTrans();
  const auto rows = connection.Execute("SELECT a, b, d FROM t");
  EXPECT_THAT(rows->GetRows(9),
              testing::ElementsAre(testing::ElementsAre(Value(std::int64_t{2}), Value("\xC3\xA4"),
                                                        Value(*forms::ParseIso("2001-02-03 04:05:06")))));
  EXPECT_EQ(rows->Fields()[1].defined_size, 20);
  EXPECT_THROW(connection.Execute("SELECT nothing"), DatabaseError);
}

}  // namespace
}  // namespace host
