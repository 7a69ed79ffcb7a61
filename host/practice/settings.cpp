#include "practice/settings.h"

#include "data/literal.h"
#include "data/statements.h"

namespace host {
namespace {

using data::Literal;

data::Sql OfWhere(data::Words prefix, std::string_view section, std::string_view key) {
  return "(" + data::Sql(prefix) + "Section=" + Literal(section) + ") AND (" + prefix + "Key=" + Literal(key) + ")";
}

// Writes the one row that `where` finds, or the first.
void Write(const data::Statements& statements, data::Words table, data::Words key_column, const data::Sql& where,
           data::Assignments identity, data::Assignment value) {
  const std::int32_t id = session::ToId(statements.SelectValue("SELECT " + data::Sql(key_column) + " FROM " + table +
                                                               " WHERE " + where + statements.Office()));
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
