#include "database/sqlite/sqlite_change_log.h"

#include "database/schema.h"

namespace host {
namespace {

const ChangeAuthor* AuthorOf(sqlite3_context* context) {
  return *static_cast<const ChangeAuthor* const*>(sqlite3_user_data(context));
}

void AnswerText(sqlite3_context* context, const std::string& text) {
  sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

// change_author(): null for none
void AnswerAuthor(sqlite3_context* context, int /*count*/, sqlite3_value** /*arguments*/) {
  if (const ChangeAuthor* author = AuthorOf(context)) {
    AnswerText(context, author->name);
  }
}

// change_time()
void AnswerTime(sqlite3_context* context, int /*count*/, sqlite3_value** /*arguments*/) {
  if (const ChangeAuthor* author = AuthorOf(context)) {
    AnswerText(context, forms::FormatIso(author->clock()));
  }
}

// Puts down each column whose values differ; a row that comes or goes has values on one side only.
std::string PutDown(const Table& table, const std::string& what, bool before, bool after) {
  std::string values;
  for (const Column& column : table.columns) {
    if (column.name == table.key) {
      continue;
    }
    const std::string name(column.name);
    values += (values.empty() ? "('" : ", ('") + name + "', " + (before ? "OLD." + name : "NULL") + ", " +
              (after ? "NEW." + name : "NULL") + (column.secret ? ", 1)" : ", 0)");
  }
  const std::string row = after ? "NEW." : "OLD.";
  // Nothing and an empty text are the same to a person; another case is not, though columns compare so.
  return " BEGIN INSERT INTO ChangeTable (ChaDat, ChaWho, ChaWhat, ChaTab, ChaRecID, ChaCol, ChaOld, ChaNew, OfficeID) "
         "SELECT change_time(), change_author(), '" +
         what + "', '" + std::string(table.name) + "', " + row + std::string(table.key) +
         ", name, CASE secret WHEN 0 THEN before END, CASE secret WHEN 0 THEN after END, " + row +
         "OfficeID FROM (SELECT NULL AS name, NULL AS before, NULL AS after, NULL AS secret WHERE FALSE UNION ALL "
         "VALUES " +
         values + ") WHERE ifnull(before, '') IS NOT ifnull(after, '') COLLATE BINARY; END;";
}

std::string TriggersOf(const Table& table) {
  const std::string name(table.name);
  const std::string key(table.key);
  const auto trigger = [&](const std::string& when, const std::string& event, const std::string& condition) {
    return "CREATE TEMP TRIGGER IF NOT EXISTS " + name + when + " AFTER " + event + " ON main." + name +
           " WHEN change_author() IS NOT NULL AND " + condition;
  };
  const std::string added = PutDown(table, "added", false, true);
  // A row that is inserted without a key is complete when it has been given one.
  return trigger("Added", "INSERT", "NEW." + key + " IS NOT NULL") + added +
         trigger("Completed", "UPDATE OF " + key, "OLD." + key + " IS NULL") + added +
         trigger("Changed", "UPDATE", "OLD." + key + " IS NOT NULL") + PutDown(table, "changed", true, true) +
         trigger("Deleted", "DELETE", "OLD." + key + " IS NOT NULL") + PutDown(table, "deleted", true, false);
}

}  // namespace

// Triggers of the connection, not of the file: another program, which knows no author, can write to the practice.
void LogChanges(SqliteHandle& handle, const ChangeAuthor* const& current) {
  handle.AddFunction("change_author", &current, AnswerAuthor);
  handle.AddFunction("change_time", &current, AnswerTime);
  std::string triggers = "PRAGMA temp_store=MEMORY;";
  for (const Table& table : PracticeTables()) {
    if (table.logged) {
      triggers += TriggersOf(table);
    }
  }
  handle.Run(triggers);
}

}  // namespace host
