#include "database/postgres/postgres_engine.h"

#include "database/dialect/prepare_sql.h"
#include "database/migration.h"
#include "database/postgres/office_connection.h"
#include "database/postgres/office_directory.h"
#include "database/postgres/office_tables.h"
#include "database/postgres/postgres_connection.h"
#include "database/postgres/postgres_error.h"
#include "database/postgres/postgres_ground.h"
#include "database/postgres/postgres_office_group.h"
#include "database/postgres/postgres_url.h"

namespace host {
namespace {

const PostgresSchema kSchema;
const OfficeTables kOfficeTables;

// What writes the tables that a URL leads to.
const PostgresSchema& SchemaAt(const std::string& url) {
  const std::string schema = ParsePostgresUrl(url).schema;
  return schema.empty() || schema == kAllOffices ? kSchema : kOfficeTables;
}

// Nobody can give up the statements that lock a record.
constexpr std::chrono::seconds kLongestOfLocks{10};

session::DatabaseError CannotBeOpened(const std::string& url, const std::string& why, int code) {
  return {"The database " + ParsePostgresUrl(url).Shown() + " cannot be opened: " + why, {}, code};
}

std::unique_ptr<PostgresConnection> Connect(const std::string& url) {
  auto connection = std::make_unique<PostgresConnection>(url);
  if (const std::string why = WhyTextIsUnfit(*connection); !why.empty()) {
    throw CannotBeOpened(url, why, 0);
  }
  return connection;
}

PracticeDatabase Opened(const std::string& url, std::unique_ptr<PostgresConnection> connection,
                        const CreationOptions& options) {
  auto* opened = connection.get();
  return {.connection = std::move(connection),
          .prepare = PreparePostgres,
          .schema = &SchemaAt(url),
          .options = options,
          .write_as = [opened](const ChangeAuthor* author) { opened->WriteAs(author); },
          .enter_office = [opened](int office) { opened->EnterOffice(office); },
          .locks = nullptr,
          .connect =
              [url](const std::string& name) {
                return std::make_unique<PostgresConnection>(
                    url, PostgresWay{.application_name = name, .readers = false, .longest = kLongestOfLocks});
              },
          .shared = true};
}

}  // namespace

PracticeDatabase PostgresEngine::OpenNew(const std::string& url, const CreationOptions& options) const {
  return Opened(url, Connect(url), options);
}

PracticeDatabase PostgresEngine::Open(const std::string& url) const {
  return FollowOffices(OpenAlone(url), url, [this](const std::string& other) { return OpenAlone(other); });
}

PracticeDatabase PostgresEngine::OpenAlone(const std::string& url) const {
  auto connection = Connect(url);
  try {
    const CreationOptions options = MigrateSchema(*connection, SchemaAt(url));
    if (!MayWrite(*connection, SchemaAt(url))) {
      connection = std::make_unique<PostgresConnection>(url, PostgresWay{.only_looks = true});
    }
    return Opened(url, std::move(connection), options);
  } catch (const session::DatabaseError& error) {
    throw CannotBeOpened(url, error.what(), error.Code());
  }
}

bool PostgresEngine::IsVacant(const std::string& url) const {
  const auto connection = Connect(url);
  return IsEmpty(*connection, SchemaAt(url));
}

std::string PostgresEngine::PlaceOf(const std::string& url) const {
  return ParsePostgresUrl(url).Place();
}

void PostgresEngine::CreateOfficeGroup(const GroupServer& first, const CreationOptions& options) const {
  PostgresOfficeGroup::Create(first, options);
}

std::unique_ptr<OfficeGroup> PostgresEngine::OpenOfficeGroup(const std::string& url) const {
  return std::make_unique<PostgresOfficeGroup>(url);
}

}  // namespace host
