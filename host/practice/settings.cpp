#include "practice/settings.h"

#include "data/literal.h"
#include "data/statements.h"

namespace host {
namespace {

using data::Literal;

std::string OfWhere(std::string_view prefix, std::string_view section, std::string_view key) {
  const std::string column(prefix);
  return "(" + column + "Section=" + Literal(section) + ") AND (" + column + "Key=" + Literal(key) + ")";
}

// Writes the one row that `where` finds, or the first.
void Write(const data::Statements& statements, const std::string& table, const std::string& key_column,
           const std::string& where, data::Assignments identity, data::Assignments::value_type value) {
  const std::int32_t id = session::ToId(
      statements.SelectValue("SELECT " + key_column + " FROM " + table + " WHERE " + where + statements.Office()));
  if (id != 0) {
    statements.Update(table, {value}, key_column, id);
    return;
  }
  identity.push_back(std::move(value));
  statements.Insert(table, std::move(identity));
}

}  // namespace

std::string ReadOfficeSetting(session::Database& database, std::string_view section, std::string_view key) {
  const data::Statements statements(database);
  return session::ToText(statements.SelectValue("SELECT OSValue FROM OfficeSettingTable WHERE " +
                                                OfWhere("OS", section, key) + statements.Office()));
}

void WriteOfficeSetting(session::Database& database, std::string_view section, std::string_view key,
                        std::string_view value) {
  Write(data::Statements(database), "OfficeSettingTable", "OSID", OfWhere("OS", section, key),
        {{"OSSection", Literal(section)}, {"OSKey", Literal(key)}}, {"OSValue", Literal(value)});
}

std::string ReadUserOption(session::Database& database, std::string_view user, std::string_view section,
                           std::string_view key) {
  const data::Statements statements(database);
  return session::ToText(statements.SelectValue("SELECT UOValue FROM UserOptionTable WHERE (UOUseNam=" + Literal(user) +
                                                ") AND " + OfWhere("UO", section, key) + statements.Office()));
}

void WriteUserOption(session::Database& database, std::string_view user, std::string_view section, std::string_view key,
                     std::string_view value) {
  Write(data::Statements(database), "UserOptionTable", "UOID",
        "(UOUseNam=" + Literal(user) + ") AND " + OfWhere("UO", section, key),
        {{"UOUseNam", Literal(user)}, {"UOSection", Literal(section)}, {"UOKey", Literal(key)}},
        {"UOValue", Literal(value)});
}

}  // namespace host
