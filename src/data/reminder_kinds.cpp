#include "data/reminder_kinds.h"

#include "data/literal.h"
#include "data/statements.h"

namespace data {

std::int32_t FindReminderKindRow(session::Database& database, ReminderKind kind) {
  const Statements statements(database);
  return session::ToId(statements.SelectValue(
      "Select emmID from emmTable where emmAppDefTyp=" + Literal(static_cast<std::int32_t>(kind)) +
      statements.Office() + " ORDER BY (case when OffLocID=" + Literal(kAllLocations) + " then 0 else 1 end), emmID"));
}

std::int32_t ReminderKindRow(session::Database& database, ReminderKind kind) {
  const std::int32_t row = FindReminderKindRow(database, kind);
  if (row != 0) {
    return row;
  }
  return Statements(database).Insert("emmTable", {{"emmDes", Literal(NameOf(kind))},
                                                  {"emmHasCutOff", Literal(0)},
                                                  {"emmEna", Literal(1)},
                                                  {"emmAppDefTyp", Literal(static_cast<std::int32_t>(kind))},
                                                  {"OffLocID", Literal(kAllLocations)}});
}

}  // namespace data
