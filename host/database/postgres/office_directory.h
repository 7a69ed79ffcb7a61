#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "database/postgres/postgres_url.h"
#include "session/connection.h"

namespace host {

// Where the tables of all offices are seen, for reports.
inline constexpr const char* kAllOffices = "offices";

// Where the offices of a group are at home. Each of its servers holds it; the highest version counts.
struct OfficeDirectory {
  std::int32_t version = 0;
  std::string here;                            // the server that it was read from
  std::map<std::string, std::string> servers;  // their URLs, without passwords, by their names
  std::map<std::int32_t, std::string> homes;   // servers by office

  // Empty for an office that there is not.
  std::string HomeOf(std::int32_t office) const;
};

// The schema that holds an office's tables.
std::string OfficeSchema(std::int32_t office);

// The tables that hold the directory, as statements.
std::string CreateOfficeDirectory(const std::string& here);
// Nothing where the database is no server of a group. Throws session::DatabaseError.
std::optional<OfficeDirectory> ReadOfficeDirectory(session::Connection& connection);
std::string WriteOfficeDirectory(const OfficeDirectory& directory);

// What every session of a group may know of a server; the rest is who comes, and how.
inline constexpr std::array<std::string_view, 8> kServerOptions = {
    "host", "hostaddr", "port", "dbname", "sslmode", "sslrootcert", "sslcrl", "target_session_attrs"};

// The text of a URL with all its options; `schema` names the one that the tables stand in, empty for the usual one.
std::string UrlText(const PostgresUrl& url, const std::string& schema = {});
// What of a URL may be known to others.
std::string WithoutSecrets(const PostgresUrl& url);
// The server at a URL of the directory, for whoever came in by another one.
PostgresUrl WithLoginOf(const std::string& server, const PostgresUrl& entrance);

// Refuses a replica, which follows one server while a group has several. Throws session::DatabaseError.
void CheckNoReplica(const PostgresUrl& url);

}  // namespace host
