#include "database/postgres/postgres_change_log.h"

namespace host {
namespace {

// A column's value as the log keeps it on every engine: dates without a time as such, numbers without zeros behind.
std::string LoggedText(const Column& column, const std::string& row) {
  const std::string value = row + "." + std::string(column.name);
  switch (column.type) {
    case ColumnType::DateTime:
      return "to_char(" + value + ", CASE WHEN " + value +
             "::time = '00:00' THEN 'YYYY-MM-DD' ELSE 'YYYY-MM-DD HH24:MI:SS' END)";
    case ColumnType::Money:
      return "trim_scale(" + value + ")::text";
    case ColumnType::Real:
      return value + "::numeric::text || CASE WHEN " + value + " = trunc(" + value + ") THEN '.0' ELSE '' END";
    default:
      return value + "::text";
  }
}

}  // namespace

std::vector<std::string> PostgresChangeLog(const Table& table, int version) {
  const std::string name(table.name);
  const std::string key(table.key);
  std::string values;
  for (const Column& column : table.columns) {
    if (column.name != table.key && column.since <= version) {
      values += (values.empty() ? "('" : ", ('") + std::string(column.name) + "', " + LoggedText(column, "OLD") + ", " +
                LoggedText(column, "NEW") + (column.secret ? ", true)" : ", false)");
    }
  }
  // An insert has no OLD and a deletion no NEW: their values are null. Nothing and an empty text are the same to a
  // person; another case is not, though columns compare so.
  const std::string body =
      "BEGIN INSERT INTO ChangeTable (ChaDat, ChaWho, ChaWhat, ChaTab, ChaRecID, ChaCol, ChaOld, ChaNew, OfficeID) "
      "SELECT nullif(current_setting('practice.moment', true), '')::timestamp, current_setting('practice.author'), "
      "CASE TG_OP WHEN 'INSERT' THEN 'added' WHEN 'DELETE' THEN 'deleted' ELSE 'changed' END, '" +
      name + "', coalesce(NEW." + key + ", OLD." + key +
      "), name, CASE WHEN NOT secret THEN before END, CASE WHEN NOT secret THEN after END, "
      "coalesce(NEW.OfficeID, OLD.OfficeID) FROM (VALUES " +
      values +
      ") AS logged (name, before, after, secret) WHERE coalesce(before, '') <> coalesce(after, ''); "
      "RETURN NULL; END";
  const std::string function = "log_" + name;
  return {"CREATE OR REPLACE FUNCTION " + function +
              "() RETURNS trigger LANGUAGE plpgsql SET search_path FROM CURRENT AS $$ " + body + " $$",
          "CREATE OR REPLACE TRIGGER " + name + "_logged AFTER INSERT OR UPDATE OR DELETE ON " + name +
              " FOR EACH ROW WHEN (current_setting('practice.author', true) <> '') EXECUTE FUNCTION " + function +
              "()"};
}

}  // namespace host
