#include "database/postgres/office_move.h"

#include <algorithm>
#include <set>

#include "database/migration.h"
#include "database/postgres/postgres_engine.h"
#include "database/postgres/postgres_error.h"
#include "database/postgres/postgres_session.h"
#include "database/schema.h"
#include "forms/text.h"

namespace host {
namespace {

// Catching up ends when so few rows are left that the writers hardly notice the rest.
constexpr std::size_t kFew = 100;
constexpr int kRounds = 50;
constexpr std::size_t kAtOnce = 1000;  // keys in a statement
// How often the writers are asked for a pause, and how long they are waited for each time: their statements wait as
// long.
constexpr int kTries = 10;
constexpr const char* kPatience = "2s";

// The keys of rows that were written since they were copied, by table.
using Changes = std::map<std::string, std::set<std::string>>;

class Moving {
 public:
  Moving(std::int32_t office, const OfficeServer& from, const OfficeServer& to)
      : office_(std::to_string(office)),
        schema_(OfficeSchema(office)),
        watch_("moving_" + office_),
        from_(from),
        to_(to),
        source_(PostgresEngine().OpenAlone(UrlText(from.Url(), schema_))) {
    for (const std::string& name :
         FirstColumn(from_.Connection(),
                     "SELECT tablename::text FROM pg_tables WHERE schemaname=" + Quoted(schema_) + " ORDER BY 1")) {
      const Table* table = FindTable(name);
      if (table != nullptr) {
        keys_[name] = forms::ToLower(table->key);
      } else if (name != "schematable") {
        others_.push_back(name);
      }
    }
  }

  void Watch();
  void MakeTables();
  void Copy();
  void CatchUp();
  bool Switch(const OfficeDirectory& moved);
  void Forget() const;

 private:
  std::string Columns(const std::string& table) const;
  std::string CopyRows(const std::string& table) const;
  Changes TakeChanges(session::Connection& connection) const;
  void Repeat(const Changes& changes) const;
  void FinishTables() const;

  std::string office_;
  std::string schema_;
  std::string watch_;
  const OfficeServer& from_;
  const OfficeServer& to_;
  PracticeDatabase source_;                  // in the office
  std::map<std::string, std::string> keys_;  // of the practice's tables
  std::vector<std::string> others_;          // tables that somebody made there
};

// From now on triggers note what is written.
void Moving::Watch() {
  Forget();
  from_.Run("CREATE SCHEMA " + watch_ + "; CREATE TABLE " + watch_ +
            ".changes (tab text NOT NULL, key int NOT NULL); " + "CREATE FUNCTION " + watch_ +
            ".note() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER SET search_path = pg_catalog AS $$ BEGIN "
            "IF TG_OP <> 'INSERT' THEN INSERT INTO " +
            watch_ +
            ".changes VALUES (TG_TABLE_NAME, (to_jsonb(OLD)->>TG_ARGV[0])::int); END IF; "
            "IF TG_OP <> 'DELETE' THEN INSERT INTO " +
            watch_ + ".changes VALUES (TG_TABLE_NAME, (to_jsonb(NEW)->>TG_ARGV[0])::int); END IF; RETURN NULL; END $$");
  for (const auto& [table, key] : keys_) {
    from_.Run("CREATE TRIGGER moving AFTER INSERT OR UPDATE OR DELETE ON " + schema_ + "." + table +
              " FOR EACH ROW EXECUTE FUNCTION " + watch_ + ".note('" + key + "')");
  }
}

void Moving::Forget() const {
  from_.Run("SET client_min_messages = warning; DROP SCHEMA IF EXISTS " + watch_ + " CASCADE");
}

void Moving::MakeTables() {
  to_.Run("SET client_min_messages = warning; DROP SCHEMA IF EXISTS " + schema_ + " CASCADE; CREATE SCHEMA " + schema_);
  const PracticeDatabase target = PostgresEngine().OpenNew(UrlText(to_.Url(), schema_), source_.options);
  session::Transaction transaction(*target.connection);
  CreateSchema(*target.connection, *target.schema, source_.options);
  for (const auto& [table, key] : keys_) {
    target.connection->Execute("ALTER TABLE " + table +
                               " DISABLE TRIGGER USER, ADD CONSTRAINT own_office CHECK "
                               "(officeid=" +
                               office_ + ")");
  }
  transaction.Commit();
}

std::string Moving::Columns(const std::string& table) const {
  return session::ToText(
      to_.Connection()
          .Execute("SELECT string_agg(quote_ident(attname), ', ') FROM pg_attribute WHERE attrelid=" +
                   Quoted(schema_ + "." + table) + "::regclass AND attnum>0 AND NOT attisdropped")
          ->Get(0));
}

std::string Moving::CopyRows(const std::string& table) const {
  const std::string columns = Columns(table);
  return "INSERT INTO " + schema_ + "." + table + " (" + columns + ") SELECT " + columns + " FROM at_" + from_.Name() +
         "." + table + " WHERE officeid=" + office_;
}

void Moving::Copy() {
  for (const auto& [table, key] : keys_) {
    to_.Run(CopyRows(table));
  }
}

Changes Moving::TakeChanges(session::Connection& connection) const {
  Changes changes;
  for (const auto rows = connection.Execute("DELETE FROM " + watch_ + ".changes RETURNING tab, key"); !rows->Eof();
       rows->MoveNext()) {
    changes[session::ToText(rows->Get(0))].insert(session::ToText(rows->Get(1)));
  }
  return changes;
}

// Rows are copied as they are now, so that it does not matter what was done to them, or how often.
void Moving::Repeat(const Changes& changes) const {
  session::Transaction transaction(to_.Connection());
  for (const auto& [table, keys] : changes) {
    const std::string copy = CopyRows(table);
    for (auto key = keys.begin(); key != keys.end();) {
      std::string list;
      for (std::size_t count = 0; count < kAtOnce && key != keys.end(); ++count, ++key) {
        list += (list.empty() ? "" : ",") + *key;
      }
      const std::string chosen = keys_.at(table) + " IN (" + list + ")";
      to_.Run("DELETE FROM " + schema_ + "." + table + " WHERE " + chosen);
      to_.Run(copy + " AND " + chosen);
    }
  }
  transaction.Commit();
}

void Moving::CatchUp() {
  for (int round = 0; round < kRounds; ++round) {
    const Changes changes = TakeChanges(from_.Connection());
    std::size_t count = 0;
    for (const auto& [table, keys] : changes) {
      count += keys.size();
    }
    Repeat(changes);
    if (count <= kFew) {
      return;
    }
  }
}

// What is not copied row by row: the tables that are not the practice's, and what the sequences hand out next.
void Moving::FinishTables() const {
  session::Connection& target = to_.Connection();
  session::Transaction transaction(target);
  for (const std::string& table : others_) {
    const std::string shown = watch_ + "." + table;
    to_.Run("CREATE SCHEMA IF NOT EXISTS " + watch_ + "; IMPORT FOREIGN SCHEMA " + schema_ + " LIMIT TO (" + table +
            ") FROM SERVER server_" + from_.Name() + " INTO " + watch_ + "; CREATE TABLE " + schema_ + "." + table +
            " AS SELECT * FROM " + shown);
  }
  to_.Run("DROP SCHEMA IF EXISTS " + watch_ + " CASCADE");
  for (const auto rows = source_.connection->Execute("SELECT sequencename::text, last_value FROM pg_sequences WHERE "
                                                     "schemaname=" +
                                                     Quoted(schema_) + " AND last_value IS NOT NULL");
       !rows->Eof(); rows->MoveNext()) {
    target.Execute("SELECT setval('" + schema_ + "." + session::ToText(rows->Get(0)) + "', " +
                   session::ToText(rows->Get(1)) + ")");
  }
  for (const auto& [table, key] : keys_) {
    to_.Run("ALTER TABLE " + schema_ + "." + table + " ENABLE TRIGGER USER");
  }
  transaction.Commit();
}

// False when the writers did not pause, with nothing changed.
bool Moving::Switch(const OfficeDirectory& moved) {
  session::Connection& source = *source_.connection;
  session::Transaction transaction(source);
  std::string tables;
  for (const auto& [table, key] : keys_) {
    tables += (tables.empty() ? "" : ", ") + table;
  }
  for (const std::string& table : others_) {
    tables += ", " + table;
  }
  try {
    source.Execute(std::string("SET LOCAL lock_timeout = '") + kPatience + "'; LOCK TABLE " + tables +
                   " IN EXCLUSIVE MODE");
  } catch (const session::DatabaseError& error) {
    if (error.Code() == CodeOfState("55P03") || error.Code() == CodeOfState("40P01")) {
      return false;
    }
    throw;
  }
  Repeat(TakeChanges(source));
  FinishTables();
  source.Execute("ALTER SCHEMA " + schema_ + " RENAME TO left_" + office_ + "; " + WriteOfficeDirectory(moved));
  transaction.Commit();
  return true;
}

}  // namespace

void MoveOffice(std::int32_t office, const OfficeServer& from, const OfficeServer& to, const OfficeDirectory& moved) {
  Moving moving(office, from, to);
  try {
    moving.MakeTables();
    moving.Watch();
    moving.Copy();
    for (int tries = 0; tries < kTries; ++tries) {
      moving.CatchUp();
      if (moving.Switch(moved)) {
        return;
      }
    }
    throw session::DatabaseError(
        "Those who work in office " + std::to_string(office) + " did not pause from writing. Please try again later.",
        {}, 0);
  } catch (const session::DatabaseError&) {
    try {
      moving.Forget();
    } catch (const session::DatabaseError&) {
      // The next change of the group does it.
    }
    throw;
  }
}

}  // namespace host
