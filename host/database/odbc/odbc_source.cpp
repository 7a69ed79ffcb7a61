#include "database/odbc/odbc_source.h"

#include <algorithm>

#include "forms/text.h"

namespace host {
namespace {

// Behind the value that begins here: a brace holds semicolons, and is doubled where it ends nothing.
std::size_t EndOfValue(std::string_view text) {
  if (!forms::Trim(text).starts_with('{')) {
    return std::min(text.find(';'), text.size());
  }
  std::size_t end = text.find('}');
  while (end != std::string_view::npos && text.substr(end + 1).starts_with('}')) {
    end = text.find('}', end + 2);
  }
  return end == std::string_view::npos ? text.size() : std::min(text.find(';', end), text.size());
}

std::string Unbraced(std::string_view value) {
  value = forms::Trim(value);
  const bool braced = value.size() > 1 && value.front() == '{' && value.back() == '}';
  return std::string(braced ? value.substr(1, value.size() - 2) : value);
}

void AddDefault(std::string& connection_string, std::string_view keyword, std::string_view value) {
  if (!KeywordIn(connection_string, keyword)) {
    connection_string +=
        (connection_string.ends_with(';') ? "" : ";") + std::string(keyword) + "=" + std::string(value);
  }
}

}  // namespace

std::optional<std::string> KeywordIn(std::string_view connection_string, std::string_view keyword) {
  for (std::string_view rest = connection_string; !rest.empty();) {
    const std::size_t equals = rest.find('=');
    if (equals == std::string_view::npos) {
      return std::nullopt;
    }
    const std::string_view name = forms::Trim(rest.substr(0, equals));
    rest.remove_prefix(equals + 1);
    const std::size_t end = EndOfValue(rest);
    if (forms::EqualsIgnoringCase(name, keyword)) {
      return Unbraced(rest.substr(0, end));
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return std::nullopt;
}

OdbcSource PostgresSource(const std::string& connection_string) {
  OdbcSource source{.connection_string = connection_string, .is_postgres = true, .fixed = FixedSettings()};
  source.fixed["application_name"] = "practice";
  source.fixed_for_reading = ForReaders(source.fixed);
  // Booleans are numbers, and citext has no size of the driver's.
  std::string text = connection_string;
  AddDefault(text, "BoolsAsChar", "0");
  AddDefault(text, "UnknownsAsLongVarchar", "1");
  const auto server = KeywordIn(text, KeywordIn(text, "Servername") ? "Servername" : "Server");
  if (!KeywordIn(text, "DSN") && !IsThisMachine(server.value_or(""))) {
    AddDefault(text, "SSLmode", "require");
  }
  // The driver takes nothing back by itself in a transaction, and all of what a reader asked.
  source.connection_string = text;
  AddDefault(source.connection_string, "Protocol", "7.4-0");
  // The first rows of a list are there before its last ones are found.
  source.for_reading = text;
  AddDefault(source.for_reading, "Protocol", "7.4-1");
  AddDefault(source.for_reading, "UseDeclareFetch", "1");
  AddDefault(source.for_reading, "Fetch", "200");
  return source;
}

}  // namespace host
