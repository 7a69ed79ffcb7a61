#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "database/postgres/postgres_session.h"

namespace host {

// How a database is connected to.
struct OdbcSource {
  std::string connection_string = {};
  std::string for_reading = {};  // the same for connections that only read
  // On a PostgreSQL server each connection is told what it needs to know: this once, and whom statements are run for.
  bool is_postgres = false;
  PostgresSettings fixed = {};
  PostgresSettings fixed_for_reading = {};
  // Selects outside a transaction read through connections of their own.
  bool reads_apart = true;
};

// What a connection string gives for a keyword, in whatever case.
std::optional<std::string> KeywordIn(std::string_view connection_string, std::string_view keyword);

// A database on a PostgreSQL server, through its own driver: what the practice needs of it is added where it is not
// given. Another machine is spoken to by TLS alone unless `SSLmode` or a data source says otherwise.
OdbcSource PostgresSource(const std::string& connection_string);

}  // namespace host
