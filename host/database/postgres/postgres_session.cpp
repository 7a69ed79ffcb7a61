#include "database/postgres/postgres_session.h"

#include "database/dialect/written.h"
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

// What stands outside of quotes and parentheses, in capitals; a blank in the place of anything else.
std::string OuterWords(std::string_view sql) {
  std::string words;
  char quote = 0;
  int depth = 0;
  for (const char c : sql) {
    if (quote != 0) {
      quote = c == quote ? '\0' : quote;
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (c == '(' || c == ')') {
      depth += c == '(' ? 1 : -1;
    }
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (quote == 0 && depth == 0 && letter) {
      words += static_cast<char>(c & ~0x20);
    } else if (!words.ends_with(' ')) {
      words += ' ';
    }
  }
  return words + ' ';
}

}  // namespace

bool IsThisMachine(std::string_view server) {
  return server.empty() || server.front() == '/' || server.front() == '@' || server == "localhost" ||
         server.starts_with("127.") || server == "::1";
}

std::string Quoted(const std::string& text) {
  return sql::Quoted(text, '\'');
}

PostgresSettings FixedSettings(const std::string& search_path) {
  return {{"search_path", search_path.empty() ? std::string(kSearchPath) : search_path},
          {"DateStyle", "ISO"},
          {"bytea_output", "hex"},
          {"standard_conforming_strings", "on"}};
}

PostgresSettings OnlyLooking(PostgresSettings fixed) {
  fixed["default_transaction_read_only"] = "on";
  return fixed;
}

PostgresSettings ForReaders(PostgresSettings fixed) {
  fixed = OnlyLooking(std::move(fixed));
  // A practice is in the server's memory for the most part, where rows in an index's order cost little more than rows
  // in a table's.
  fixed["random_page_cost"] = "1.1";
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

std::string LookUpTransaction(const std::string& transaction) {
  const std::size_t at = transaction.find('@');
  const std::string id = "'" + transaction.substr(0, at) + "'::xid8";
  const std::string same_history =
      "left(pg_walfile_name(pg_current_wal_insert_lsn()), 8) = '" + transaction.substr(at + 1) + "'";
  return "SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE backend_xid = (" + id + ")::xid AND " +
         same_history + "; SELECT CASE WHEN " + same_history + " THEN pg_xact_status(" + id + ") END";
}

bool CanReadApart(std::string_view batch) {
  // The main connection alone knows its last key, and writes.
  return IsSingleSelect(batch) && batch.find("practice_identity") == std::string_view::npos &&
         OuterWords(batch).find(" INTO ") == std::string::npos;
}

std::string ForFirstRows(const std::string& select) {
  const std::string words = OuterWords(select);
  if (words.find(" ORDER BY ") == std::string::npos) {
    return select;
  }
  for (const std::string_view word : {" LIMIT ", " OFFSET ", " FETCH ", " FOR "}) {
    if (words.find(word) != std::string::npos) {
      return select;
    }
  }
  // A limit that the planner does not know, and takes for a tenth of the rows; it is none.
  std::string_view text = forms::Trim(select);
  while (text.ends_with(';')) {
    text = forms::Trim(text.substr(0, text.size() - 1));
  }
  return std::string(text) + "\nLIMIT (SELECT NULL::int8)";
}

}  // namespace host
