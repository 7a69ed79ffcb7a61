// What a connection to a PostgreSQL server does beyond what the conformance suite asks of every engine, whichever
// library it is made by.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "database/odbc/odbc_connection.h"
#include "database/postgres/postgres_connection.h"
#include "database/unix/throwaway_cluster.h"
#include "support/odbc_url.h"

namespace host {
namespace {

using session::DatabaseError;
using session::FieldType;
using session::Value;

// A connection of one library, which works for a person in an office from when it is told.
class Line {
 public:
  virtual ~Line() = default;
  virtual session::Connection& Connection() = 0;
  virtual void WorkFor(const ChangeAuthor* author, int office) = 0;
};

class PostgresLine final : public Line {
 public:
  explicit PostgresLine(const std::string& url) : connection_(url) {}
  session::Connection& Connection() override { return connection_; }
  void WorkFor(const ChangeAuthor* author, int office) override {
    connection_.WriteAs(author);
    connection_.EnterOffice(office);
  }

 private:
  PostgresConnection connection_;
};

class OdbcLine final : public Line {
 public:
  explicit OdbcLine(const std::string& url) : connection_(PostgresSource(OdbcUrl(url).substr(kScheme.size()))) {}
  session::Connection& Connection() override { return connection_; }
  void WorkFor(const ChangeAuthor* author, int office) override {
    connection_.use = {.author = author, .office = office};
  }

 private:
  static constexpr std::string_view kScheme = "odbc:";
  OdbcConnection connection_;
};

struct Library {
  std::string name;
  std::unique_ptr<Line> (*connect)(const std::string& url);
};

template <class Made>
std::unique_ptr<Line> Connect(const std::string& url) {
  return std::make_unique<Made>(url);
}

class ServerConnection : public testing::TestWithParam<Library> {
 protected:
  void TearDown() override {
    line_.reset();
    SharedCluster().DropDatabase(name_);
  }

  session::Connection& Connection() { return line_->Connection(); }
  std::unique_ptr<session::Recordset> Run(const std::string& sql) { return Connection().Execute(sql); }
  std::string Ask(const std::string& sql) { return session::ToText(Run(sql)->Get(0)); }
  DatabaseError Refused(const std::string& sql) {
    try {
      Run(sql);
    } catch (const DatabaseError& error) {
      return error;
    }
    throw std::logic_error("not refused: " + sql);
  }
  // As the server's administrator ends all connections to the database.
  void Kill() {
    SharedCluster().Run("SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE datname='" + name_ + "'");
  }

  std::string name_ = SharedCluster().MakeDatabase("connection");
  std::unique_ptr<Line> line_ = GetParam().connect(SharedCluster().Url(name_));
};

TEST_P(ServerConnection, GivesValuesByTheirTypes) {
  const auto row = Run(
      "SELECT 7::smallint AS small, 8::int4 AS \"Whole \xF0\x9F\x98\x80\", 9::int8, true, 1.25::numeric(19,4), "
      "(-922337203685477.5808)::numeric(19,4), 2.5::float8, 0.5::numeric, '? {d ''x''} \\ \"; \xF0\x9F\x98\x80'::text, "
      "uuid '01234567-89ab-cdef-0123-456789abcdef', '\\x00ff'::bytea, NULL::int4, ''::varchar(12)");
  const auto values = row->GetRows(1).at(0);
  const auto& fields = row->Fields();
  EXPECT_EQ(fields[0].name, "small");
  EXPECT_EQ(fields[1].name, "Whole \xF0\x9F\x98\x80");
  EXPECT_THAT(values, testing::ElementsAre(Value(std::int64_t{7}), Value(std::int64_t{8}), Value(std::int64_t{9}),
                                           Value(std::int64_t{1}), Value(forms::Currency::FromTenThousandths(12500)),
                                           Value(forms::Currency::FromTenThousandths(INT64_MIN)), Value(2.5),
                                           Value(0.5), Value("? {d 'x'} \\ \"; \xF0\x9F\x98\x80"),
                                           Value(*session::ParseGuid("0123456789abcdef0123456789abcdef")),
                                           Value(session::Blob{std::byte{0}, std::byte{255}}), Value(), Value("")));
  EXPECT_EQ(fields[11].type, FieldType::Integer);
  EXPECT_EQ(fields[12].defined_size, 12);
}

// Dates of the practice have the years 100 to 9999. Others that another program left stay text: no library makes dates
// of them that are not theirs.
TEST_P(ServerConnection, ReadsDatesOfTheirYears) {
  for (const std::string moment : {"0100-01-01 00:00:00", "1582-10-10 00:00:00", "9999-12-31 23:59:59"}) {
    EXPECT_EQ(Run("SELECT timestamp '" + moment + ".4'")->Get(0), Value(*forms::ParseIso(moment)));
    EXPECT_EQ(Run("SELECT date '" + moment + "'")->Get(0), Value(*forms::ParseIso(moment.substr(0, 10))));
  }
  for (const std::string year : {"0001", "0050", "0099"}) {
    EXPECT_EQ(Run("SELECT timestamp '" + year + "-02-03 04:05:06'")->Get(0), Value(year + "-02-03 04:05:06"));
    EXPECT_EQ(Run("SELECT date '" + year + "-02-03'")->Get(0), Value(year + "-02-03"));
  }
  for (const char* other : {"timestamp '10000-01-01'", "date '20000-02-29'", "timestamp '0001-02-03 BC'"}) {
    EXPECT_FALSE(session::ToDateTime(Run("SELECT " + std::string(other))->Get(0))) << other;
  }
}

TEST_P(ServerConnection, FetchesTextWhole) {
  // Around what is fetched in one piece; a smile takes two units of UTF-16, and may lie across two pieces.
  for (const int size : {0, 1, 127, 128, 129, 255, 256, 257, 512, 100000}) {
    const std::string repeated = ", " + std::to_string(size) + ")";
    const std::string smiles = Ask("SELECT 'a' || repeat('\xF0\x9F\x98\x80'" + repeated);
    ASSERT_EQ(smiles.size(), 1U + 4U * static_cast<unsigned>(size));
    EXPECT_TRUE(size == 0 || smiles.ends_with("\xF0\x9F\x98\x80"));
    EXPECT_EQ(Ask("SELECT repeat('x'" + repeated), std::string(static_cast<unsigned>(size), 'x'));
  }
}

TEST_P(ServerConnection, LeavesNoTransactionBehindAList) {
  Run("CREATE TABLE t (a int)");
  Run("INSERT INTO t SELECT generate_series(1, 200000)");
  const auto open = [this] {
    return Ask(
        "SELECT 1; SELECT count(*) FROM pg_stat_activity WHERE datname=current_database() AND "
        "pid<>pg_backend_pid() AND state<>'idle'");
  };
  // A list may be ended behind the caller's back.
  const auto open_in_the_end = [&] {
    constexpr int kMostLooks = 10000;
    for (int looks = 0; looks < kMostLooks && open() != "0"; ++looks) {
    }
    return open();
  };
  auto rows = Run("SELECT a FROM t");
  EXPECT_EQ(open(), "1");
  rows.reset();
  EXPECT_EQ(open_in_the_end(), "0") << "half read";
  rows = Run("SELECT a FROM t");
  EXPECT_EQ(rows->GetRows(200001).size(), 200000U);
  EXPECT_EQ(open_in_the_end(), "0") << "read to its end";
  Refused("SELECT nothing");
  EXPECT_EQ(open_in_the_end(), "0") << "refused";
}

TEST_P(ServerConnection, WorksForSomebodyAndConnectsAgainWithoutAWord) {
  Run("CREATE TABLE t (a int)");
  const ChangeAuthor ada{"Ada O'Neill", [] { return forms::DateTime(); }};
  line_->WorkFor(&ada, 3);
  const std::string insert =
      "INSERT INTO t VALUES (1) RETURNING current_setting('practice.author') || current_setting('practice.office') || "
      "current_setting('search_path')";
  const std::string told = "Ada O'Neill3practice, public";
  {
    session::Transaction transaction(Connection());
    EXPECT_EQ(Ask(insert), told);
    Refused("no statement");
  }
  EXPECT_EQ(Ask(insert), told) << "a rollback";
  EXPECT_EQ(Ask("SELECT count(*) FROM t"), "1");
  Kill();
  EXPECT_EQ(Ask(insert), told) << "a loss";
  Kill();
  {
    session::Transaction transaction(Connection());
    EXPECT_EQ(Ask(insert), told);
    transaction.Commit();
  }
  Kill();
  EXPECT_EQ(Ask("SELECT current_setting('practice.office') || count(*) FROM t"), "33");
}

TEST_P(ServerConnection, LosesATransactionWithItsConnection) {
  Run("CREATE TABLE t (a int)");
  Connection().BeginTrans();
  Run("INSERT INTO t VALUES (1)");
  Kill();
  const DatabaseError lost = Refused("INSERT INTO t VALUES (2)");
  EXPECT_TRUE(lost.ConnectionLost());
  EXPECT_FALSE(lost.Unanswered());
  EXPECT_TRUE(Refused("INSERT INTO t VALUES (3)").ConnectionLost()) << "not outside the transaction";
  EXPECT_THROW(Connection().CommitTrans(), DatabaseError);
  EXPECT_NO_THROW(Connection().RollbackTrans());
  for (const bool commit : {true, false}) {
    Connection().BeginTrans();
    Run("INSERT INTO t VALUES (4)");
    Kill();
    if (commit) {
      EXPECT_THROW(Connection().CommitTrans(), DatabaseError);
    }
    EXPECT_NO_THROW(Connection().RollbackTrans());
  }
  EXPECT_THROW(Connection().RollbackTrans(), DatabaseError) << "there is none";
  EXPECT_EQ(Ask("SELECT count(*) FROM t"), "0");
}

TEST_P(ServerConnection, SaysWhatMayHaveBeenDone) {
  Run("CREATE TABLE t (a int)");
  const std::string ends = " WHERE pg_terminate_backend(pg_backend_pid())";
  EXPECT_TRUE(Refused("INSERT INTO t SELECT 1" + ends).Unanswered());
  {
    session::Transaction transaction(Connection());
    const DatabaseError rolled_back = Refused("INSERT INTO t SELECT 2" + ends);
    EXPECT_TRUE(rolled_back.ConnectionLost());
    EXPECT_FALSE(rolled_back.Unanswered());
  }
  const auto half_read = Run("SELECT generate_series(1, 1000000)");
  Kill();
  try {
    half_read->GetRows(1000000);
    ADD_FAILURE() << "rows of a server that has gone";
  } catch (const DatabaseError& error) {
    EXPECT_TRUE(error.ConnectionLost());
    EXPECT_FALSE(error.Unanswered());
  }
  EXPECT_EQ(Ask("SELECT count(*) FROM t"), "0");
}

INSTANTIATE_TEST_SUITE_P(By, ServerConnection,
                         testing::Values(Library{"Postgres", Connect<PostgresLine>},
                                         Library{"Odbc", Connect<OdbcLine>}),
                         [](const auto& library) { return library.param.name; });

}  // namespace
}  // namespace host
