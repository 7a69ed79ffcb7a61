#include "database/migration.h"

#include <gmock/gmock.h>

#include <set>
#include <thread>

#include "host/database/conformance/tested_engine.h"

namespace host {
namespace {

using session::DatabaseError;
using testing::HasSubstr;

// What there is besides rows, in whichever order: what tables have, what belongs to them, what they call.
const std::vector<std::string>& Catalogue(const std::string& url) {
  static const std::vector<std::string> sqlite = {
      "SELECT coalesce(sql, name) FROM sqlite_schema WHERE type<>'table'",
      "SELECT t.name || ' ' || c.name || ' ' || c.type || ' ' || coalesce(c.dflt_value, '') "
      "FROM sqlite_schema t, pragma_table_info(t.name) c"};
  static const std::vector<std::string> postgres = {
      R"(SELECT attrelid::regclass || ' ' || attname || ' ' || format_type(atttypid, atttypmod) || ' ' || attnotnull ||
                coalesce(pg_get_expr(adbin, adrelid), '')
         FROM pg_attribute JOIN pg_class c ON c.oid = attrelid
         LEFT JOIN pg_attrdef ON adrelid = attrelid AND adnum = attnum
         WHERE relnamespace = 'practice'::regnamespace AND attnum > 0 AND relkind <> 'i')",
      "SELECT indexdef FROM pg_indexes WHERE schemaname = 'practice'",
      "SELECT conname || pg_get_constraintdef(oid) FROM pg_constraint WHERE connamespace = 'practice'::regnamespace",
      "SELECT pg_get_triggerdef(oid) FROM pg_trigger WHERE NOT tgisinternal",
      "SELECT pg_get_functiondef(oid) FROM pg_proc WHERE pronamespace = 'practice'::regnamespace"};
  return url.starts_with("sqlite:") ? sqlite : postgres;
}

class Migration : public OnEngine {
 protected:
  std::string Url() { return place_->Url(); }
  void Renew() {
    place_.reset();
    place_ = GetParam().fresh();
  }
  // A practice as an older program has made it.
  PracticeDatabase MakeOld(int version, const CreationOptions& options = {}) {
    PracticeDatabase old = OpenNewDatabase(Url(), options);
    session::Transaction transaction(*old.connection);
    CreateSchema(*old.connection, *old.schema, options, version);
    transaction.Commit();
    return old;
  }
  std::set<std::string> Objects(const PracticeDatabase& database) {
    std::set<std::string> objects;
    for (const std::string& select : Catalogue(Url())) {
      for (const auto rows = database.connection->Execute(select); !rows->Eof(); rows->MoveNext()) {
        objects.insert(session::ToText(rows->Get(0)));
      }
    }
    return objects;
  }
  std::string WhyNot() {
    try {
      OpenDatabase(Url());
      return {};
    } catch (const DatabaseError& error) {
      return error.what();
    }
  }

 private:
  std::unique_ptr<TestedPlace> place_ = GetParam().fresh();
};

TEST_P(Migration, EveryOlderDatabaseBecomesLikeANewOne) {
  const CreationOptions options{.kind = 7, .office = 3, .offices = 4, .row_guids = true};
  const std::set<std::string> fresh = Objects(CreateDatabase(Url(), options));
  for (int version = 1; version < kSchemaVersion; ++version) {
    SCOPED_TRACE(version);
    Renew();
    {
      const PracticeDatabase old = MakeOld(version, options);
      EXPECT_NE(Objects(old), fresh);
      Run(old, "INSERT INTO ZipCodTable (ZipCodCit) VALUES ('Boston')");
      if (version < 3) {
        Run(old, "INSERT INTO PWMTable (PWMUseNam) VALUES ('ann'), ('bob'), ('ANN')");
      }
      if (version < 4) {
        Run(old, "CREATE TABLE RecordLockTable (RLID int)");
      }
    }
    const PracticeDatabase now = OpenDatabase(Url());
    EXPECT_EQ(now.options.offices, 4);
    EXPECT_TRUE(now.KeepsRowGuids("PATable"));
    EXPECT_EQ(Objects(now), fresh);
    EXPECT_EQ(Run(now, "SELECT OfficeID, ZipCodCit FROM ZipCodTable WHERE ZipCodID=1"), Rows({"3|Boston"}));
    if (version < 3) {
      EXPECT_EQ(Run(now, "SELECT PWMNamesake FROM PWMTable ORDER BY PWMID"), Rows({"0", "0", "1"}));
    }
  }
}

TEST_P(Migration, FailingHalfwayLeavesTheOldVersion) {
  const PracticeDatabase old = MakeOld(1);
  Run(old, "CREATE TABLE PickListTable (stranger int)");
  const std::set<std::string> before = Objects(old);
  EXPECT_NE(WhyNot(), "");
  EXPECT_EQ(Objects(old), before);
  EXPECT_EQ(Run(old, "SELECT SchVersion FROM SchemaTable"), Rows({"1"}));
}

TEST_P(Migration, ProgramsThatOpenItTogetherBringItUpToDateOnce) {
  MakeOld(1);
  std::vector<std::string> refusals(4);
  std::vector<std::thread> programs;
  programs.reserve(refusals.size());
  for (std::string& refusal : refusals) {
    programs.emplace_back([&] { refusal = WhyNot(); });
  }
  for (std::thread& program : programs) {
    program.join();
  }
  EXPECT_THAT(refusals, testing::Each(""));
}

TEST_P(Migration, NewerAndStrangeDatabasesAreRefused) {
  {
    const PracticeDatabase practice = CreateDatabase(Url());
    EXPECT_THROW(CreateDatabase(Url()), DatabaseError);
    Run(practice, "UPDATE SchemaTable SET SchVersion=99");
    EXPECT_THAT(WhyNot(), HasSubstr("newer version"));
    Run(practice, "DELETE FROM SchemaTable");
    EXPECT_THAT(WhyNot(), HasSubstr("holds no practice"));
  }
  Renew();
  EXPECT_TRUE(IsVacant(Url()));
  OpenNewDatabase(Url(), {}).connection->Execute("CREATE TABLE Songs (title int)");
  EXPECT_THAT(WhyNot(), HasSubstr("holds no practice"));
  EXPECT_FALSE(IsVacant(Url()));
}

INSTANTIATE_TEST_SUITE_P(Conformance, Migration, testing::ValuesIn(SharedEngines()), NameOfEngine);

}  // namespace
}  // namespace host
