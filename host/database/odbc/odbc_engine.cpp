#include "database/odbc/odbc_engine.h"

#include "database/dialect/prepare_sql.h"
#include "database/migration.h"
#include "database/odbc/odbc_connection.h"
#include "database/odbc/server_schema.h"
#include "database/postgres/postgres_ground.h"
#include "database/postgres/postgres_schema.h"
#include "database/shown_url.h"

namespace host {
namespace {

const PostgresSchema kPostgresSchema;
const ServerSchema kServerSchema;

session::DatabaseError CannotBeOpened(const std::string& url, const std::string& why, int code) {
  return {"The database \"" + ShownUrl(url) + "\" cannot be opened: " + why, {}, code};
}

OdbcSource SourceOf(const std::string& url) {
  const std::string connection_string = url.substr(url.find(':') + 1);
  const session::WhileBusy nobody;
  const std::string server = OdbcHandle(connection_string, {}, nobody).ServerName();
  if (server == "PostgreSQL") {
    return PostgresSource(connection_string);
  }
  if (server.starts_with("SQLite")) {
    throw CannotBeOpened(url, "its driver lacks what a practice needs; its file is opened by sqlite:PATH.", 0);
  }
  return {.connection_string = connection_string, .for_reading = connection_string};
}

const SchemaWriter& SchemaOf(const OdbcSource& source) {
  if (source.is_postgres) {
    return kPostgresSchema;
  }
  return kServerSchema;
}

std::unique_ptr<OdbcConnection> Connect(const std::string& url, const OdbcSource& source) {
  auto connection = std::make_unique<OdbcConnection>(source);
  if (source.is_postgres) {
    if (const std::string why = WhyTextIsUnfit(*connection); !why.empty()) {
      throw CannotBeOpened(url, why, 0);
    }
    if (!session::IsNull(connection->Execute("SELECT to_regclass('officegroup')::text")->Get(0))) {
      throw CannotBeOpened(url, "it is a server of a group of practices, whose offices are not reached by ODBC.", 0);
    }
  }
  return connection;
}

// The server holds records for whoever is connected, under the name that it knows the connection by.
std::unique_ptr<session::Connection> ConnectAs(const std::string& name, OdbcSource source) {
  source.fixed["application_name"] = name;
  source.reads_apart = false;
  return std::make_unique<OdbcConnection>(std::move(source));
}

PracticeDatabase Opened(const OdbcSource& source, std::unique_ptr<OdbcConnection> connection,
                        const CreationOptions& options) {
  auto* opened = connection.get();
  PracticeDatabase database{.connection = std::move(connection),
                            .prepare = source.is_postgres ? PreparePostgres : PrepareServer,
                            .schema = &SchemaOf(source),
                            .options = options,
                            .write_as = [opened](const ChangeAuthor* author) { opened->use.author = author; },
                            .locks = nullptr,
                            .shared = true};
  if (source.is_postgres) {
    database.enter_office = [opened](int office) { opened->use.office = office; };
    database.connect = [source](const std::string& name) { return ConnectAs(name, source); };
  }
  return database;
}

}  // namespace

PracticeDatabase OdbcEngine::OpenNew(const std::string& url, const CreationOptions& options) const {
  const OdbcSource source = SourceOf(url);
  if (!source.is_postgres) {
    throw CannotBeOpened(url, "a practice can be made on a PostgreSQL server only.", 0);
  }
  return Opened(source, Connect(url, source), options);
}

PracticeDatabase OdbcEngine::Open(const std::string& url) const {
  OdbcSource source = SourceOf(url);
  auto connection = Connect(url, source);
  try {
    const CreationOptions options = MigrateSchema(*connection, SchemaOf(source));
    if (!MayWrite(*connection, SchemaOf(source))) {
      source.fixed = OnlyLooking(std::move(source.fixed));
      connection = std::make_unique<OdbcConnection>(source);
    }
    return Opened(source, std::move(connection), options);
  } catch (const session::DatabaseError& error) {
    throw CannotBeOpened(url, error.what(), error.Code());
  }
}

bool OdbcEngine::IsVacant(const std::string& url) const {
  const OdbcSource source = SourceOf(url);
  return source.is_postgres && IsEmpty(*Connect(url, source), kPostgresSchema);
}

std::string OdbcEngine::PlaceOf(const std::string& url) const {
  std::string place;
  for (const char* keyword : {"DSN", "Servername", "Server", "Port", "Database"}) {
    if (const auto value = KeywordIn(url.substr(url.find(':') + 1), keyword)) {
      place += "/" + *value;
    }
  }
  return place;
}

}  // namespace host
