#include "database/odbc/odbc_connection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>

#include "database/database.h"
#include "database/postgres/postgres_error.h"
#include "database/unix/throwaway_cluster.h"
#include "support/odbc_url.h"

namespace host {
namespace {

using session::DatabaseError;
using session::FieldType;
using session::Value;
using testing::HasSubstr;

class OdbcConnectionTest : public testing::Test {
 protected:
  void TearDown() override {
    connection_.reset();
    SharedCluster().DropDatabase(name_);
  }

  std::unique_ptr<session::Recordset> Run(const std::string& sql) { return connection_->Execute(sql); }
  std::string Ask(const std::string& sql) { return session::ToText(Run(sql)->Get(0)); }
  DatabaseError Refused(const std::string& sql) {
    try {
      Run(sql);
    } catch (const DatabaseError& error) {
      return error;
    }
    throw std::logic_error("not refused: " + sql);
  }
  // As the server's administrator ends them.
  void KillAll() {
    SharedCluster().Run("SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE datname='" + name_ + "'");
  }

  std::string name_ = SharedCluster().MakeDatabase("odbc");
  std::string url_ = OdbcUrl(SharedCluster().Url(name_));
  std::unique_ptr<OdbcConnection> connection_ =
      std::make_unique<OdbcConnection>(PostgresSource(url_.substr(url_.find(':') + 1)));
};

TEST_F(OdbcConnectionTest, GivesValuesByTheirTypes) {
  const auto row = Run(
      "SELECT 7::smallint AS small, 8::int4 AS \"Whole \xF0\x9F\x98\x80\", 9::int8, true, 1.25::numeric(19,4), "
      "(-922337203685477.5808)::numeric(19,4), 2.5::float8, 0.5::numeric, '? {d ''x''} \\ \"; \xF0\x9F\x98\x80'::text, "
      "timestamp '0001-01-01 00:00:00', timestamp '9999-12-31 23:59:59', date '1582-10-10', "
      "uuid '01234567-89ab-cdef-0123-456789abcdef', '\\x00ff'::bytea, NULL::int4, ''::varchar(12)");
  const auto values = row->GetRows(1).at(0);
  const auto& fields = row->Fields();
  EXPECT_EQ(fields[0].name, "small");
  EXPECT_EQ(fields[1].name, "Whole \xF0\x9F\x98\x80");
  EXPECT_THAT(values, testing::ElementsAre(Value(std::int64_t{7}), Value(std::int64_t{8}), Value(std::int64_t{9}),
                                           Value(std::int64_t{1}), Value(forms::Currency::FromTenThousandths(12500)),
                                           Value(forms::Currency::FromTenThousandths(INT64_MIN)), Value(2.5),
                                           Value(0.5), Value("? {d 'x'} \\ \"; \xF0\x9F\x98\x80"),
                                           Value(forms::AtMidnight(std::chrono::year(1) / 1 / 1)),
                                           Value(*forms::ParseIso("9999-12-31 23:59:59")),
                                           Value(*forms::ParseIso("1582-10-10")),
                                           Value(*session::ParseGuid("0123456789abcdef0123456789abcdef")),
                                           Value(session::Blob{std::byte{0}, std::byte{255}}), Value(), Value("")));
  EXPECT_EQ(fields[14].type, FieldType::Integer);
  EXPECT_EQ(fields[15].defined_size, 12);
}

TEST_F(OdbcConnectionTest, FetchesTextWhole) {
  // Around what is fetched in one piece; a smile takes two units of UTF-16, and may lie across two pieces.
  for (const int size : {0, 1, 127, 128, 129, 255, 256, 257, 512, 100000}) {
    const std::string repeated = ", " + std::to_string(size) + ")";
    const std::string smiles = Ask("SELECT 'a' || repeat('\xF0\x9F\x98\x80'" + repeated);
    ASSERT_EQ(smiles.size(), 1U + 4U * static_cast<unsigned>(size));
    EXPECT_TRUE(size == 0 || smiles.ends_with("\xF0\x9F\x98\x80"));
    EXPECT_EQ(Ask("SELECT repeat('x'" + repeated), std::string(static_cast<unsigned>(size), 'x'));
  }
}

TEST_F(OdbcConnectionTest, ReadsAHalfReadListWhileItWrites) {
  Run("CREATE TABLE t (a int); INSERT INTO t SELECT generate_series(1, 20000)");
  const auto rows = Run("SELECT a FROM t ORDER BY a");
  const auto nested = Run("SELECT a FROM t ORDER BY a DESC");
  Run("UPDATE t SET a=a+1");
  EXPECT_EQ(session::ToText(nested->Get(0)), "20000");
  EXPECT_EQ(rows->GetRows(20001).size(), 20000U);
  EXPECT_TRUE(rows->Eof());
  EXPECT_THROW(rows->Get(0), DatabaseError);
  EXPECT_EQ(Ask("SELECT min(a) FROM t"), "2") << "a reader's transaction ends with its list";
  EXPECT_EQ(Ask("SELECT 1; SELECT count(*) FROM pg_stat_activity WHERE datname=current_database() AND state<>'idle'"),
            "2")
      << "this one, and the list that is half read";
  Refused("SELECT nothing");
  EXPECT_EQ(Ask("SELECT max(a) FROM t"), "20001") << "after a refusal";
}

TEST_F(OdbcConnectionTest, GivesTheRowsOfABatchsLastSelect) {
  EXPECT_EQ(Ask("SELECT 1; CREATE TABLE t (a int); INSERT INTO t VALUES (5) RETURNING a; UPDATE t SET a=6"), "5");
  EXPECT_TRUE(Run("UPDATE t SET a=7;")->Eof());
  EXPECT_TRUE(Run("  ")->Fields().empty());
  EXPECT_EQ(Refused("INSERT INTO t VALUES (1); INSERT INTO t VALUES (1/0)").Code(), CodeOfState("22012"));
  EXPECT_EQ(Ask("SELECT count(*) FROM t"), "1") << "whole or not at all";
}

TEST_F(OdbcConnectionTest, TellsTheServerWhomItWorksFor) {
  Run("CREATE TABLE t (a int)");
  const ChangeAuthor ada{"Ada O'Neill", [] { return forms::DateTime(); }};
  connection_->use = {.author = &ada, .office = 3};
  const std::string told =
      "current_setting('practice.author') || current_setting('practice.office') || current_setting('search_path')";
  {
    session::Transaction transaction(*connection_);
    EXPECT_EQ(Ask("INSERT INTO t VALUES (1) RETURNING " + told), "Ada O'Neill3practice, public");
    Refused("no statement");
  }
  EXPECT_EQ(Ask("INSERT INTO t VALUES (1) RETURNING " + told), "Ada O'Neill3practice, public") << "a rollback";
  KillAll();
  EXPECT_TRUE(Refused("INSERT INTO t VALUES (1)").Unanswered());
  EXPECT_EQ(Ask("INSERT INTO t VALUES (1) RETURNING " + told), "Ada O'Neill3practice, public") << "a loss";
  EXPECT_EQ(Ask("SELECT current_setting('practice.office')"), "3");
  EXPECT_EQ(Refused("SELECT pg_catalog.nextval('x') FROM t").Code(), CodeOfState("42P01"));
}

TEST_F(OdbcConnectionTest, ReadsOnAfterALossWithoutAWord) {
  EXPECT_EQ(Ask("SELECT 1"), "1");
  const auto half_read = Run("SELECT generate_series(1, 100000)");
  KillAll();
  EXPECT_EQ(Ask("SELECT 2"), "2");
  try {
    half_read->GetRows(100000);
    ADD_FAILURE() << "rows of a server that has gone";
  } catch (const DatabaseError& error) {
    EXPECT_TRUE(error.ConnectionLost());
  }
}

TEST_F(OdbcConnectionTest, LosesATransactionWithItsConnection) {
  Run("CREATE TABLE t (a int)");
  connection_->BeginTrans();
  Run("INSERT INTO t VALUES (1)");
  KillAll();
  const DatabaseError rolled_back = Refused("INSERT INTO t VALUES (2)");
  EXPECT_TRUE(rolled_back.ConnectionLost());
  EXPECT_FALSE(rolled_back.Unanswered());
  EXPECT_TRUE(Refused("INSERT INTO t VALUES (3)").ConnectionLost()) << "not outside the transaction";
  EXPECT_THROW(connection_->CommitTrans(), DatabaseError);
  EXPECT_NO_THROW(connection_->RollbackTrans());
  connection_->BeginTrans();
  Run("INSERT INTO t VALUES (4)");
  KillAll();
  EXPECT_THROW(connection_->CommitTrans(), DatabaseError);
  EXPECT_NO_THROW(connection_->RollbackTrans());
  EXPECT_THROW(connection_->RollbackTrans(), DatabaseError) << "there is none";
  EXPECT_EQ(Ask("SELECT count(*) FROM t"), "0");
}

TEST_F(OdbcConnectionTest, EndsAStatementFromAnotherThread) {
  for (const char* sql : {"SELECT pg_sleep(60)", "SELECT pg_sleep(60); SELECT 1"}) {
    auto running = std::async(std::launch::async, [&] { return Refused(sql).Code(); });
    // It may not have begun yet.
    while (running.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready) {
      connection_->Cancel();
    }
    EXPECT_EQ(running.get(), CodeOfState("57014"));
  }
  connection_->Cancel();
  EXPECT_EQ(Ask("SELECT 1"), "1");
}

TEST_F(OdbcConnectionTest, LooksAtOtherServersAlone) {
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
  EXPECT_THAT(why(url_), HasSubstr("This database holds no practice."));
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
