#include "database/postgres/postgres_session.h"

#include "database/postgres/postgres_schema.h"
#include "forms/text.h"

namespace host {
namespace {

// How long another program is waited for where nobody can give it up.
constexpr const char* kLongestWait = "10s";

// Of a select alone; what stands in quotes is passed over.
bool IsSingleSelect(std::string_view sql) {
  sql = forms::Trim(sql);
  if (!forms::EqualsIgnoringCase(sql.substr(0, 6), "SELECT")) {
    return false;
  }
  char quote = 0;
  for (std::size_t i = 0; i < sql.size(); ++i) {
    const char c = sql[i];
    if (quote != 0) {
      quote = c == quote ? '\0' : quote;
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (c == ';') {
      return forms::Trim(sql.substr(i + 1)).empty();
    }
  }
  return true;
}

}  // namespace

bool IsThisMachine(std::string_view server) {
  return server.empty() || server.front() == '/' || server.front() == '@' || server == "localhost" ||
         server.starts_with("127.") || server == "::1";
}

PostgresSettings FixedSettings(const std::string& search_path) {
  return {{"search_path", search_path.empty() ? std::string(kSearchPath) : search_path},
          {"DateStyle", "ISO"},
          {"bytea_output", "hex"},
          {"standard_conforming_strings", "on"}};
}

PostgresSettings ForReaders(PostgresSettings fixed) {
  fixed["default_transaction_read_only"] = "on";
  return fixed;
}

PostgresSettings PostgresUse::ForReading() const {
  return {{"practice.office", office == 0 ? "" : std::to_string(office)}};
}

PostgresSettings PostgresUse::ForWriting(bool can_give_up) const {
  PostgresSettings settings = ForReading();
  settings["practice.author"] = author == nullptr ? "" : author->name;
  settings["practice.moment"] = author == nullptr ? "" : forms::FormatIso(author->clock());
  settings["lock_timeout"] = can_give_up ? "0" : kLongestWait;
  return settings;
}

bool CanReadApart(std::string_view batch) {
  // The main connection alone knows its last key.
  return IsSingleSelect(batch) && batch.find("practice_identity") == std::string_view::npos;
}

}  // namespace host
