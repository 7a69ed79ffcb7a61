#include "database/postgres/office_directory.h"

#include <string_view>

#include "database/postgres/postgres_session.h"
#include "forms/text.h"

namespace host {
namespace {

std::string Encoded(const std::string& value) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : value) {
    const auto byte = static_cast<unsigned char>(c);
    if (forms::IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '.' || c == '-' ||
        c == '/') {
      encoded += c;
    } else {
      encoded += {'%', kDigits[byte / 16], kDigits[byte % 16]};
    }
  }
  return encoded;
}

}  // namespace

std::string OfficeDirectory::HomeOf(std::int32_t office) const {
  const auto home = homes.find(office);
  return home == homes.end() ? std::string() : home->second;
}

std::string OfficeSchema(std::int32_t office) {
  return "office_" + std::to_string(office);
}

std::string CreateOfficeDirectory(const std::string& here) {
  return "CREATE TABLE practice.officegroup (here text NOT NULL, version int NOT NULL); "
         "CREATE TABLE practice.officeserver (name text PRIMARY KEY, url text NOT NULL); "
         "CREATE TABLE practice.officehome (office int PRIMARY KEY, server text NOT NULL); "
         "GRANT SELECT ON practice.officegroup, practice.officeserver, practice.officehome TO PUBLIC; "
         "INSERT INTO practice.officegroup VALUES (" +
         Quoted(here) + ", 0)";
}

std::optional<OfficeDirectory> ReadOfficeDirectory(session::Connection& connection) {
  if (session::ToText(connection.Execute("SELECT to_regclass('practice.officegroup')::text")->Get(0)).empty()) {
    return std::nullopt;
  }
  // One statement, so that it is one moment's.
  const auto rows = connection.Execute(
      "SELECT 1 AS kind, version AS number, here AS name, NULL AS url FROM practice.officegroup UNION ALL "
      "SELECT 2, NULL, name, url FROM practice.officeserver UNION ALL "
      "SELECT 3, office, server, NULL FROM practice.officehome");
  OfficeDirectory directory;
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::int32_t number = session::ToId(rows->Get(1));
    const std::string name = session::ToText(rows->Get(2));
    switch (session::ToId(rows->Get(0))) {
      case 1:
        directory.version = number;
        directory.here = name;
        break;
      case 2:
        directory.servers[name] = session::ToText(rows->Get(3));
        break;
      default:
        directory.homes[number] = name;
        break;
    }
  }
  return directory;
}

std::string WriteOfficeDirectory(const OfficeDirectory& directory) {
  std::string statements = "DELETE FROM practice.officeserver; DELETE FROM practice.officehome; ";
  for (const auto& [name, url] : directory.servers) {
    statements += "INSERT INTO practice.officeserver VALUES (" + Quoted(name) + ", " + Quoted(url) + "); ";
  }
  for (const auto& [office, server] : directory.homes) {
    statements += "INSERT INTO practice.officehome VALUES (" + std::to_string(office) + ", " + Quoted(server) + "); ";
  }
  return statements + "UPDATE practice.officegroup SET version=" + std::to_string(directory.version);
}

std::string UrlText(const PostgresUrl& url, const std::string& schema) {
  std::string text = "postgresql:///";
  char separator = '?';
  const auto add = [&](const std::string& name, const std::string& value) {
    if (!value.empty()) {
      text += separator + name + "=" + Encoded(value);
      separator = '&';
    }
  };
  for (const auto& [name, value] : url.options) {
    add(name, value);
  }
  add("schema", schema);
  return text;
}

std::string WithoutSecrets(const PostgresUrl& url) {
  PostgresUrl place;
  for (const std::string_view option : kServerOptions) {
    if (const auto known = url.options.find(std::string(option)); known != url.options.end()) {
      place.options.insert(*known);
    }
  }
  return UrlText(place);
}

void CheckNoReplica(const PostgresUrl& url) {
  if (!url.replica.empty()) {
    throw session::DatabaseError(
        "A group of practices reads no lists from a replica (" + url.replica + "). Please leave it out of the URL.", {},
        0);
  }
}

PostgresUrl WithLoginOf(const std::string& server, const PostgresUrl& entrance) {
  PostgresUrl url = entrance;
  for (const std::string_view option : kServerOptions) {
    url.options.erase(std::string(option));
  }
  const PostgresUrl place = ParsePostgresUrl(server);
  for (const std::string_view option : kServerOptions) {
    if (const auto known = place.options.find(std::string(option)); known != place.options.end()) {
      url.options.insert(*known);
    }
  }
  return url;
}

}  // namespace host
