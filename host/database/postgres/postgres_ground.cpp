#include "database/postgres/postgres_ground.h"

#include <array>

#include "database/postgres/postgres_roles.h"
#include "database/postgres/postgres_schema.h"

namespace host {
namespace {

// Other programs find the tables too; only the database's owner can say so.
std::string SetSearchPath() {
  return "DO $$ BEGIN IF (SELECT pg_has_role(datdba, 'MEMBER') FROM pg_database WHERE datname = current_database()) "
         "THEN EXECUTE format('ALTER DATABASE %I SET search_path = " +
         std::string(kSearchPath) + "', current_database()); END IF; END $$";
}

struct TextFunction {
  std::string_view name;
  std::string_view arguments;
  std::string_view meaning;  // the function of plain text
};

// The bodies are bound to what they call when they are made, whatever the search path of a caller.
constexpr std::array kTextFunctions = {
    TextFunction{"joined", "citext, citext", "$1::text OPERATOR(pg_catalog.||) $2::text"},
    TextFunction{"upper", "citext", "pg_catalog.upper($1::text)"},
    TextFunction{"lower", "citext", "pg_catalog.lower($1::text)"},
    TextFunction{"btrim", "citext", "pg_catalog.btrim($1::text)"},
    TextFunction{"ltrim", "citext", "pg_catalog.ltrim($1::text)"},
    TextFunction{"rtrim", "citext", "pg_catalog.rtrim($1::text)"},
    TextFunction{"substring", "citext, int", "pg_catalog.substring($1::text, $2)"},
    TextFunction{"substr", "citext, int", "pg_catalog.substr($1::text, $2)"},
    TextFunction{"substr", "citext, int, int", "pg_catalog.substr($1::text, $2, $3)"},
    TextFunction{"left", "citext, int", "pg_catalog.left($1::text, $2)"},
    TextFunction{"right", "citext, int", "pg_catalog.right($1::text, $2)"},
};

// What searches by telephone go by. They fail for no argument and are not taken apart, so that a superuser may say of
// them that they tell nothing of the rows that they read.
constexpr std::array kSilentFunctions = {
    TextFunction{"substring", "citext, int, int", "pg_catalog.substring($1::pg_catalog.text, $2, GREATEST($3, 0))"},
    // Null for what would be longer than any text.
    TextFunction{"replace", "citext, citext, citext",
                 "CASE WHEN pg_catalog.octet_length($1::pg_catalog.text)::pg_catalog.int8 OPERATOR(pg_catalog.*) "
                 "pg_catalog.octet_length($3::pg_catalog.text) OPERATOR(pg_catalog.<) 10000000 THEN "
                 "pg_catalog.replace($1::pg_catalog.text, $2::pg_catalog.text, $3::pg_catalog.text) END"},
};

std::string Declaration(const TextFunction& function) {
  return "CREATE FUNCTION practice." + std::string(function.name) + "(" + std::string(function.arguments) +
         ") RETURNS citext IMMUTABLE STRICT PARALLEL SAFE ";
}

std::string Definition(const TextFunction& function) {
  return Declaration(function) + "LANGUAGE sql RETURN (" + std::string(function.meaning) + ")::citext";
}

std::string SilentDefinition(const TextFunction& function) {
  return Declaration(function) + "LANGUAGE plpgsql AS $$ BEGIN RETURN " + std::string(function.meaning) + "; END $$";
}

constexpr std::string_view kIdentity =
    "CREATE FUNCTION practice.practice_identity() RETURNS int LANGUAGE sql STABLE "
    "RETURN nullif(pg_catalog.current_setting('practice.identity', true), '')::int";

// For a row whose key is given as null, behind keys that rows of the same statement bring along. Arguments of both: the
// key's column, the sequence. They raise sequences that a desk's login may only take keys from.
std::string GiveKey() {
  return "CREATE FUNCTION practice.give_key() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER "
         "SET search_path = pg_catalog, pg_temp AS $$ "
         "DECLARE keys regclass := format('%I.%I', TG_TABLE_SCHEMA, TG_ARGV[1])::regclass; key bigint := "
         "nextval(keys); "
         "highest int; "
         "BEGIN EXECUTE format('SELECT max(%1$I) FROM %2$I.%3$I WHERE %1$I <= " +
         std::to_string(kLastFollowedKey) +
         "', TG_ARGV[0], TG_TABLE_SCHEMA, TG_TABLE_NAME) INTO highest; "
         "IF highest >= key THEN key := setval(keys, highest + 1); END IF; "
         "RETURN jsonb_populate_record(NEW, jsonb_build_object(TG_ARGV[0], key)); END $$";
}

// Behind an insert: the key of the last row is the session's identity, and keys that rows brought along are not handed
// out again.
std::string NoteKeys() {
  return "CREATE FUNCTION practice.note_keys() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER "
         "SET search_path = pg_catalog, pg_temp AS $$ "
         "DECLARE highest int; newest int; handed_out bigint; "
         "BEGIN EXECUTE format('SELECT max(%1$I) FILTER (WHERE %1$I <= " +
         std::to_string(kLastFollowedKey) +
         "), (array_agg(%1$I))[count(*)] FROM added', TG_ARGV[0]) "
         "INTO highest, newest; "
         "IF newest IS NOT NULL THEN PERFORM set_config('practice.identity', newest::text, false); "
         "EXECUTE format('SELECT CASE WHEN is_called THEN last_value ELSE last_value - 1 END FROM %I.%I', "
         "TG_TABLE_SCHEMA, TG_ARGV[1]) INTO handed_out; "
         "IF highest > handed_out THEN "
         "PERFORM setval(format('%I.%I', TG_TABLE_SCHEMA, TG_ARGV[1])::regclass, highest); END IF; END IF; "
         "RETURN NULL; END $$";
}

}  // namespace

std::string WhyTextIsUnfit(session::Connection& connection) {
  const auto encoding = session::ToText(connection.Execute("SELECT current_setting('server_encoding')")->Get(0));
  if (encoding != "UTF8") {
    return "its text is kept as " + encoding + ", and a practice needs UTF8.";
  }
  // Prefixes are searched for by the range that they begin.
  const auto fits = connection.Execute(
      "SELECT (lower('ÄÉŁЖ') = 'äéłж' AND 'co-op' < 'coat' AND 'Z' < 'a' AND 'a b' < 'aa' AND 'z' < 'ä')::int");
  return session::ToId(fits->Get(0)) != 0 ? std::string()
                                          : "its locale does not order text by its characters' codes, or knows no "
                                            "capitals beyond A to Z. A practice "
                                            "needs a database with the locale C.UTF-8.";
}

std::vector<std::string> PostgresGround() {
  std::vector<std::string> statements = {"CREATE SCHEMA IF NOT EXISTS " + std::string(kPracticeSchema),
                                         "CREATE EXTENSION IF NOT EXISTS citext WITH SCHEMA public", SetSearchPath()};
  for (const TextFunction& function : kTextFunctions) {
    statements.push_back(Definition(function));
  }
  for (const TextFunction& function : kSilentFunctions) {
    statements.push_back(SilentDefinition(function));
  }
  statements.emplace_back("CREATE OPERATOR practice.|| (LEFTARG=citext, RIGHTARG=citext, FUNCTION=practice.joined)");
  statements.insert(statements.end(), {std::string(kIdentity), GiveKey(), NoteKeys()});
  // Nobody else's table has a trigger that works with the owner's rights.
  statements.emplace_back("REVOKE ALL ON FUNCTION practice.give_key(), practice.note_keys() FROM PUBLIC");
  for (std::string& statement : DeskGround()) {
    statements.push_back(std::move(statement));
  }
  return statements;
}

}  // namespace host
