#include "console/refusal.h"

#include "data/literal.h"
#include "database/postgres/postgres_schema.h"

namespace host {
namespace {

bool IsPostgres(const SchemaWriter& schema) {
  return dynamic_cast<const PostgresSchema*>(&schema) != nullptr;
}

std::string NameOf(std::size_t number) {
  return "refusal_" + std::to_string(number);
}

}  // namespace

std::vector<std::string> Refuse(const SchemaWriter& schema, const Refusal& refusal, std::size_t number) {
  const std::string name = NameOf(number);
  const std::string text = data::Literal(refusal.text).Text();
  const std::string trigger = "CREATE TRIGGER " + name + " BEFORE " + refusal.change +
                              (refusal.column.empty() ? "" : " OF " + refusal.column) + " ON " + refusal.table;
  if (!IsPostgres(schema)) {
    return {trigger + (refusal.when.empty() ? "" : " WHEN " + refusal.when) + " BEGIN SELECT RAISE(ABORT, " + text +
            "); END"};
  }
  return {"CREATE FUNCTION " + name + "() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION '%', " + text +
              "; END $$",
          trigger + " FOR EACH ROW" + (refusal.when.empty() ? "" : " WHEN (" + refusal.when + ")") +
              " EXECUTE FUNCTION " + name + "()"};
}

std::vector<std::string> Allow(const SchemaWriter& schema, const Refusal& refusal, std::size_t number) {
  const std::string name = NameOf(number);
  if (!IsPostgres(schema)) {
    return {"DROP TRIGGER " + name};
  }
  return {"DROP TRIGGER " + name + " ON " + refusal.table, "DROP FUNCTION " + name + "()"};
}

}  // namespace host
