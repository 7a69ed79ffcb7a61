#pragma once

#include <string>

#include "database/postgres/postgres_url.h"

namespace host {

// A PostgreSQL database, as its ODBC driver reaches it.
inline std::string OdbcUrl(const std::string& postgres_url) {
  const auto options = ParsePostgresUrl(postgres_url).options;
  const auto part = [&](const char* keyword, const char* option) {
    const auto found = options.find(option);
    return found == options.end() ? std::string() : ";" + std::string(keyword) + "=" + found->second;
  };
  return "odbc:Driver={PostgreSQL Unicode}" + part("Servername", "host") + part("Port", "port") +
         part("Database", "dbname") + part("Username", "user") + part("Password", "password");
}

}  // namespace host
