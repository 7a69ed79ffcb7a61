#include "host/database/conformance/tested_engine.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "database/unix/throwaway_cluster.h"
#include "forms/text.h"
#include "practice/machine.h"
#include "support/odbc_url.h"

namespace host {
namespace {

class SqliteFilePlace : public TestedPlace {
 public:
  SqliteFilePlace()
      : folder_(std::filesystem::temp_directory_path() / ("conformance" + std::to_string(ThisProcess().number))) {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directory(folder_);
  }
  SqliteFilePlace(const SqliteFilePlace&) = delete;
  SqliteFilePlace& operator=(const SqliteFilePlace&) = delete;
  ~SqliteFilePlace() override { std::filesystem::remove_all(folder_); }
  std::string Url() override { return "sqlite:" + (folder_ / "a practice.db").string(); }

 private:
  std::filesystem::path folder_;
};

class SqliteMemoryPlace : public TestedPlace {
 public:
  std::string Url() override { return "sqlite::memory:"; }
};

// Practices are copies of one that is made once for the options.
class PostgresPlace : public TestedPlace {
 public:
  PostgresPlace() = default;
  PostgresPlace(const PostgresPlace&) = delete;
  PostgresPlace& operator=(const PostgresPlace&) = delete;
  ~PostgresPlace() override {
    if (!database_.empty()) {
      SharedCluster().DropDatabase(database_);
    }
  }
  std::string Url() override {
    if (database_.empty()) {
      database_ = SharedCluster().MakeDatabase("conformance");
    }
    return SharedCluster().Url(database_);
  }
  PracticeDatabase MakePractice(const CreationOptions& options) override {
    static std::map<std::string, std::string> made;
    std::string& original = made[std::to_string(options.kind) + std::to_string(options.office) +
                                 std::to_string(options.offices) + std::to_string(static_cast<int>(options.row_guids))];
    if (original.empty()) {
      original = SharedCluster().MakeDatabase("original");
      CreateDatabase(SharedCluster().Url(original), options);
    }
    database_ = SharedCluster().MakeDatabase("conformance", original);
    return OpenDatabase(Url());
  }

 private:
  std::string database_;
};

// The same by its ODBC driver.
class OdbcPlace : public PostgresPlace {
 public:
  std::string Url() override { return OdbcUrl(PostgresPlace::Url()); }
};

template <class Place>
std::unique_ptr<TestedPlace> Fresh() {
  return std::make_unique<Place>();
}

}  // namespace

std::vector<TestedEngine> EveryEngine() {
  constexpr std::string_view kByIndexes = "SET enable_seqscan=off; SET enable_hashjoin=off; SET enable_mergejoin=off";
  TestedEngine sqlite{.name = "SqliteFile",
                      .fresh = Fresh<SqliteFilePlace>,
                      .explain = "EXPLAIN QUERY PLAN ",
                      .one_writer = true,
                      .refuses_misfits = false,
                      .stores_any_bytes = true};
  TestedEngine memory = sqlite;
  memory.name = "SqliteMemory";
  memory.fresh = Fresh<SqliteMemoryPlace>;
  memory.shared = false;
  const TestedEngine postgres{.name = "Postgres",
                              .fresh = Fresh<PostgresPlace>,
                              .explain = "EXPLAIN ",
                              .plans_by_indexes = std::string(kByIndexes) + "; ANALYZE",
                              .plans_by_order = std::string(kByIndexes) + "; SET enable_sort=off",
                              .whole_batches = true};
  TestedEngine odbc = postgres;
  odbc.name = "Odbc";
  odbc.fresh = Fresh<OdbcPlace>;
  return {sqlite, memory, postgres, odbc};
}

std::vector<TestedEngine> SharedEngines() {
  std::vector<TestedEngine> engines = EveryEngine();
  std::erase_if(engines, [](const TestedEngine& engine) { return !engine.shared; });
  return engines;
}

std::string NameOfEngine(const testing::TestParamInfo<TestedEngine>& engine) {
  return engine.param.name;
}

void OnEngine::MakePractice(const CreationOptions& options) {
  practice_.reset();
  place_.reset();
  place_ = GetParam().fresh();
  practice_ = place_->MakePractice(options);
}

PracticeDatabase& OnEngine::Database() {
  if (!practice_) {
    MakePractice();
  }
  return *practice_;
}

std::vector<std::string> OnEngine::Run(const PracticeDatabase& practice, const std::string& statement) {
  std::vector<std::string> rows;
  for (auto set = practice.Run(statement); !set->Eof(); set->MoveNext()) {
    std::string& row = rows.emplace_back();
    for (std::size_t i = 0; i < set->Fields().size(); ++i) {
      row += (i == 0 ? "" : "|") + (session::IsNull(set->Get(i)) ? "(null)" : session::ToText(set->Get(i)));
    }
  }
  return rows;
}

std::string OnEngine::Refusal(const std::string& statement) {
  try {
    Database().Run(statement);
    return {};
  } catch (const session::DatabaseError& error) {
    return error.what();
  }
}

std::string OnEngine::Plan(const PracticeDatabase& practice, const std::string& statement) const {
  std::string plan = statement;
  for (auto rows = practice.connection->Execute(GetParam().explain + practice.prepare(statement)); !rows->Eof();
       rows->MoveNext()) {
    plan += "\n" + forms::ToLower(session::ToText(rows->Get(rows->Fields().size() - 1)));
  }
  return plan;
}

void OnEngine::AddEmployers(int count) {
  std::string insert = "INSERT INTO EmpTable (EmpNam) VALUES ('Employer 0')";
  for (int i = 1; i < count; ++i) {
    insert += ", ('Employer " + std::to_string(i) + "')";
  }
  Run(insert);
}

std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    quoted.append(c == '\'' ? 2 : 1, c);
  }
  return quoted + "'";
}

session::Value FirstValue(session::Recordset& rows) {
  return rows.Eof() ? session::Value() : rows.Get(0);
}

}  // namespace host
