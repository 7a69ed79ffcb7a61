#include "database/postgres/office_server.h"

#include <set>
#include <string_view>

#include "database/migration.h"
#include "database/postgres/office_tables.h"
#include "database/postgres/postgres_engine.h"
#include "database/postgres/postgres_session.h"

namespace host {
namespace {

// "PRACTICE" and a number of ours.
constexpr const char* kChangingTheGroup = "1347371331, 7";

// Joins of an office's tables are left to its server whole; rows of many offices come from all servers at once.
constexpr const char* kReading =
    "connect_timeout '10', use_remote_estimate 'true', fetch_size '1000', async_capable 'true', updatable 'false', "
    "extensions 'citext', options '-c enable_partitionwise_join=on -c enable_partitionwise_aggregate=on'";

// The tables of the practice alone, in the order of their making.
constexpr const char* kPattern = "pattern";

std::string OptionOf(const PostgresUrl& url, std::string_view name) {
  const auto found = url.options.find(std::string(name));
  return found == url.options.end() ? std::string() : found->second;
}

std::string List(const OfficeDirectory& directory, const std::string& server) {
  std::string offices;
  for (const auto& [office, home] : directory.homes) {
    if (home == server) {
      offices += (offices.empty() ? "" : ", ") + std::to_string(office);
    }
  }
  return offices;
}

bool HasSchema(session::Connection& connection, const std::string& schema) {
  return !connection.Execute("SELECT 1 FROM pg_namespace WHERE nspname=" + Quoted(schema))->Eof();
}

}  // namespace

std::vector<std::string> FirstColumn(session::Connection& connection, const std::string& statement) {
  std::vector<std::string> values;
  for (const auto rows = connection.Execute(statement); !rows->Eof(); rows->MoveNext()) {
    values.push_back(session::ToText(rows->Get(0)));
  }
  return values;
}

std::vector<std::string> OfficeServer::Tables() const {
  return FirstColumn(Connection(), std::string("SELECT tablename::text FROM pg_tables WHERE schemaname='") +
                                       kAllOffices + "' ORDER BY 1");
}

void OfficeServer::Found(const CreationOptions& options, int version) const {
  session::Transaction transaction(Connection());
  Run("CREATE EXTENSION IF NOT EXISTS postgres_fdw; CREATE SCHEMA offices; CREATE SCHEMA home");
  for (const std::string& statement : database_.schema->Ground()) {
    Run(statement);
  }
  MakeParents(options, version);
  Run(CreateOfficeDirectory(name_));
  transaction.Commit();
}

// The tables are made once as any practice's are, and those of all offices after their pattern.
void OfficeServer::MakeParents(const CreationOptions& options, int version) const {
  Run(std::string("CREATE SCHEMA ") + kPattern + "; SET LOCAL search_path = " + kPattern + ", " +
      std::string(kSearchPath));
  CreateSchema(Connection(), OfficeTables(), options, version);
  // By it the database is known as a practice of its kind and version.
  Run("SET LOCAL client_min_messages = warning; CREATE TABLE IF NOT EXISTS " + std::string(kPracticeSchema) +
      ".schematable AS TABLE schematable; DROP TABLE schematable");
  for (const std::string& table : FirstColumn(Connection(), std::string("SELECT tablename::text FROM pg_tables WHERE "
                                                                        "schemaname='") +
                                                                kPattern + "' ORDER BY 1")) {
    Run("CREATE TABLE offices." + table + " (LIKE " + kPattern + "." + table +
        ") PARTITION BY LIST (officeid); CREATE VIEW home." + table + " AS SELECT * FROM offices." + table +
        " WHERE FALSE");
  }
  Run(std::string("DROP SCHEMA ") + kPattern + " CASCADE");
}

int OfficeServer::Version() const {
  return session::ToId(Connection().Execute("SELECT SchVersion FROM practice.schematable")->Get(0));
}

// What shows the offices' tables is made anew, as it holds no rows itself. The version comes last: until then nobody
// enters by this program, and the next call begins again.
void OfficeServer::Migrate(const OfficeDirectory& directory, const std::map<std::string, OfficeServer>& servers) const {
  DropParents();
  for (const auto& [office, home] : directory.homes) {
    if (home == name_) {
      const PracticeDatabase practice = PostgresEngine().OpenNew(UrlText(url_, OfficeSchema(office)), {});
      MigrateSchema(*practice.connection, *practice.schema);
    }
  }
  session::Transaction transaction(Connection());
  MakeParents(ReadOptions(Connection()), kSchemaVersion);
  transaction.Commit();
  Settle(directory, servers);
  Run("UPDATE practice.schematable SET SchVersion=" + std::to_string(kSchemaVersion));
}

void OfficeServer::DropParents() const {
  for (const std::string& table : Tables()) {
    const std::string parent = std::string(kAllOffices) + "." + table;
    session::Transaction transaction(Connection());
    for (const std::string& change :
         FirstColumn(Connection(),
                     "SELECT CASE relkind WHEN 'f' THEN format('DROP FOREIGN TABLE %s', inhrelid::regclass) "
                     "ELSE format('ALTER TABLE %s DETACH PARTITION %s', inhparent::regclass, inhrelid::regclass) END "
                     "FROM pg_inherits JOIN pg_class ON oid=inhrelid WHERE inhparent=" +
                         Quoted(parent) + "::regclass")) {
      Run(change);
    }
    Run("SET LOCAL client_min_messages = warning; DROP TABLE " + parent + " CASCADE");
    transaction.Commit();
  }
}

void OfficeServer::Reserve() const {
  // No select: it would run on a connection that only reads.
  Run(std::string("DO $$ BEGIN IF NOT pg_try_advisory_lock(") + kChangingTheGroup +
      ") THEN RAISE EXCEPTION 'Another program is changing the group''s offices. Please wait until it has finished.'; "
      "END IF; END $$");
}

void OfficeServer::Settle(const OfficeDirectory& directory, const std::map<std::string, OfficeServer>& servers) const {
  LetOfficesGo(directory);
  session::Transaction transaction(Connection());
  Run("SET LOCAL client_min_messages = warning");
  for (const auto& [name, server] : servers) {
    if (name != name_) {
      Reach(server);
    }
  }
  TakeOfficesIn(directory);
  ShowOffices(directory);
  Run(WriteOfficeDirectory(directory));
  transaction.Commit();
}

// Makes another server known, once.
void OfficeServer::Reach(const OfficeServer& other) const {
  const std::string server = "server_" + other.name_;
  if (!Connection().Execute("SELECT 1 FROM pg_foreign_server WHERE srvname=" + Quoted(server))->Eof()) {
    return;
  }
  std::string options;
  for (const std::string_view option : kServerOptions) {
    if (const std::string value = OptionOf(other.url_, option); !value.empty()) {
      options += std::string(option) + " " + Quoted(value) + ", ";
    }
  }
  Run("CREATE SERVER " + server + " FOREIGN DATA WRAPPER postgres_fdw OPTIONS (" + options + kReading + ")");
  Run("CREATE SCHEMA at_" + other.name_);
  std::string login = "user " + Quoted(OptionOf(other.url_, "user"));
  const std::string password = OptionOf(other.url_, "password");
  // Without a password the server logs in as its own user's files, or the other server, say.
  login += password.empty() ? std::string(", password_required 'false'") : ", password " + Quoted(password);
  try {
    if (!password.empty() &&
        session::ToText(Connection().Execute("SELECT current_setting('is_superuser')")->Get(0)) == "on") {
      // Nor does the server's log hear of it.
      Run("SET LOCAL log_statement = 'none'; SET LOCAL log_min_duration_statement = -1; "
          "SET LOCAL log_min_error_statement = 'panic'");
    }
    Run("CREATE USER MAPPING FOR CURRENT_USER SERVER " + server + " OPTIONS (" + login + ")");
  } catch (const session::DatabaseError& error) {
    // The statement holds the password.
    throw session::DatabaseError(
        "The login at the server " + other.name_ + " cannot be kept at " + name_ + ": " + error.what(), {},
        error.Code());
  }
}

// Tables at other servers are made anew: what they show is nothing but a name there and a list of offices.
void OfficeServer::ShowOffices(const OfficeDirectory& directory) const {
  const std::string offices = List(directory, name_);
  for (const std::string& table : Tables()) {
    std::string statements;
    for (const auto& [name, url] : directory.servers) {
      if (name != name_) {
        statements += "DROP FOREIGN TABLE IF EXISTS at_" + name + "." + table + "; ";
      }
    }
    for (const auto& [name, url] : directory.servers) {
      const std::string others = List(directory, name);
      if (name != name_ && !others.empty()) {
        statements += "CREATE FOREIGN TABLE at_" + name + "." + table + " PARTITION OF offices." + table +
                      " FOR VALUES IN (" + others + ") SERVER server_" + name +
                      " OPTIONS (schema_name 'home', table_name '" + table + "'); ";
      }
    }
    statements += "CREATE OR REPLACE VIEW home." + table + " AS SELECT * FROM offices." + table + " WHERE " +
                  (offices.empty() ? "FALSE" : "officeid IN (" + offices + ")");
    Run(statements);
  }
}

// A partition takes nobody else's rows, which needs no look at its rows when they are known to be the office's own.
void OfficeServer::TakeOfficesIn(const OfficeDirectory& directory) const {
  for (const auto& [office, home] : directory.homes) {
    const std::string schema = OfficeSchema(office);
    if (home != name_) {
      continue;
    }
    const std::string number = std::to_string(office);
    const std::vector<std::string> newcomers =
        FirstColumn(Connection(),
                    "SELECT p.relname::text FROM pg_class p JOIN pg_class t ON t.relname=p.relname "
                    "WHERE p.relnamespace='offices'::regnamespace AND t.relnamespace=" +
                        Quoted(schema) + "::regnamespace AND NOT t.relispartition AND t.relkind='r'");
    for (const std::string& table : newcomers) {
      const std::string own = schema + "." + table;
      // What another server showed of it until now goes first.
      for (const auto& [name, url] : directory.servers) {
        if (name != name_) {
          Run("DROP FOREIGN TABLE IF EXISTS at_" + name + "." + table);
        }
      }
      Run("ALTER TABLE " + own + " DROP CONSTRAINT IF EXISTS own_office, ADD CONSTRAINT own_office CHECK (officeid=" +
          number + "); ALTER TABLE offices." + table + " ATTACH PARTITION " + own + " FOR VALUES IN (" + number + ")");
    }
    if (!newcomers.empty()) {
      Run(AdmitDesksTo(office, schema));
    }
  }
}

void OfficeServer::Admit(const DeskLogin& login, const OfficeDirectory& directory) const {
  session::Transaction transaction(Connection());
  Run("SET LOCAL client_min_messages = warning");
  std::set<std::int32_t> offices(login.offices.begin(), login.offices.end());
  for (const std::string& before :
       FirstColumn(Connection(), "SELECT DeskOffice FROM practice.DeskTable WHERE DeskLogin=" + Quoted(login.name))) {
    offices.insert(std::stoi(before));
  }
  NoteDesk(Connection(), login);
  for (const std::int32_t office : offices) {
    if (directory.HomeOf(office) == name_) {
      Run(AdmitDesksTo(office, OfficeSchema(office)));
    }
  }
  transaction.Commit();
}

bool OfficeServer::Knows(const std::string& login) const {
  return !Connection().Execute("SELECT 1 FROM practice.DeskTable WHERE DeskLogin=" + Quoted(login))->Eof();
}

void OfficeServer::TakeDesksOf(const OfficeServer& other) const {
  session::Transaction transaction(Connection());
  for (const auto rows = other.Connection().Execute("SELECT DeskLogin::text, DeskOffice FROM practice.DeskTable");
       !rows->Eof(); rows->MoveNext()) {
    Run("INSERT INTO practice.DeskTable VALUES (" + Quoted(session::ToText(rows->Get(0))) + ", " +
        session::ToText(rows->Get(1)) + ")");
  }
  Run("DO $$ DECLARE desk name; BEGIN FOR desk IN SELECT DISTINCT DeskLogin FROM practice.DeskTable JOIN pg_roles ON "
      "rolname=DeskLogin LOOP EXECUTE format('GRANT USAGE ON SCHEMA practice TO %I', desk); END LOOP; END $$");
  Run(std::string(kAdmitDesks));
  transaction.Commit();
}

std::vector<std::string> OfficeServer::DesksMissingAt(const OfficeServer& other, std::int32_t office) const {
  std::vector<std::string> missing;
  for (const std::string& login : FirstColumn(
           Connection(), "SELECT DeskLogin::text FROM practice.DeskTable WHERE DeskOffice=" + std::to_string(office) +
                             " ORDER BY 1")) {
    if (other.Connection().Execute("SELECT 1 FROM pg_roles WHERE rolname=" + Quoted(login))->Eof()) {
      missing.push_back(login);
    }
  }
  return missing;
}

// Drops the tables of offices that are at home elsewhere; whoever still reads them has to connect again.
void OfficeServer::LetOfficesGo(const OfficeDirectory& directory) const {
  for (const auto& [office, home] : directory.homes) {
    if (home == name_) {
      continue;
    }
    const std::string number = std::to_string(office);
    for (const std::string& schema : {OfficeSchema(office), "left_" + number, "moving_" + number}) {
      if (HasSchema(Connection(), schema)) {
        Run("DO $$ BEGIN PERFORM pg_terminate_backend(l.pid) FROM pg_locks l JOIN pg_class c ON c.oid=l.relation "
            "WHERE l.database=(SELECT oid FROM pg_database WHERE datname=current_database()) AND c.relnamespace=" +
            Quoted(schema) + "::regnamespace AND l.pid<>pg_backend_pid(); END $$");
        Run("SET client_min_messages = warning; DROP SCHEMA " + schema + " CASCADE; RESET client_min_messages");
      }
    }
  }
}

}  // namespace host
