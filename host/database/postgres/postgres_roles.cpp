#include "database/postgres/postgres_roles.h"

namespace host {
namespace {

// A row for each office of a login; null for all that there are.
constexpr std::string_view kDesks =
    "CREATE TABLE practice.DeskTable (DeskLogin name NOT NULL, DeskOffice int, UNIQUE (DeskLogin, DeskOffice))";

// The offices whose rows the session may see and write. It goes by the login that connected, which no statement of its
// own can change, and reads what the login itself may not.
constexpr std::string_view kOpenOffices =
    "CREATE FUNCTION practice.open_offices() RETURNS int[] LANGUAGE sql STABLE SECURITY DEFINER "
    "SET search_path = pg_catalog, pg_temp "
    "RETURN (SELECT coalesce(array_agg(DISTINCT DeskOffice), '{}'::int[]) FROM practice.DeskTable "
    "JOIN pg_roles ON rolname = DeskLogin AND pg_has_role(session_user, pg_roles.oid, 'MEMBER') "
    "WHERE DeskOffice = coalesce(nullif(current_setting('practice.office', true), '')::int, DeskOffice))";

// What compares text must not be feared to tell of rows that the policy hides, or no index serves a search by name:
// the policy would come first, for each row. A superuser alone may say so.
constexpr std::string_view kAdmit =
    "CREATE FUNCTION practice.admit_desks() RETURNS void LANGUAGE plpgsql SET search_path = practice, public AS $$ "
    "DECLARE guarded boolean; t record; desk name; comparison regproc; "
    "BEGIN "
    "IF NOT EXISTS (SELECT FROM DeskTable) THEN RETURN; END IF; "
    "guarded := (SELECT SchKind = 7 FROM SchemaTable); "
    "FOR t IN SELECT c.oid::regclass AS name, c.relrowsecurity AS done, EXISTS (SELECT FROM pg_attribute "
    "WHERE attrelid = c.oid AND attname = 'officeid') AS of_office, CASE c.relname WHEN 'changetable' "
    "THEN 'SELECT, INSERT' ELSE 'SELECT, INSERT, UPDATE, DELETE' END AS rights FROM pg_class c "
    "WHERE c.relnamespace = 'practice'::regnamespace AND c.relkind IN ('r', 'p') "
    "AND c.relname NOT IN ('schematable', 'desktable') LOOP "
    "IF guarded AND t.of_office AND NOT t.done THEN "
    "EXECUTE format('ALTER TABLE %s ENABLE ROW LEVEL SECURITY', t.name); "
    "EXECUTE format('CREATE POLICY office ON %s USING (OfficeID = ANY ((SELECT practice.open_offices())::int[]))', "
    "t.name); END IF; "
    "FOR desk IN SELECT DISTINCT DeskLogin FROM DeskTable JOIN pg_roles ON rolname = DeskLogin LOOP "
    "EXECUTE format('REVOKE ALL ON %s FROM %I', t.name, desk); "
    "IF t.of_office OR NOT guarded THEN EXECUTE format('GRANT %s ON %s TO %I', t.rights, t.name, desk); END IF; "
    "END LOOP; END LOOP; "
    "FOR desk IN SELECT DISTINCT DeskLogin FROM DeskTable JOIN pg_roles ON rolname = DeskLogin LOOP "
    "EXECUTE format('REVOKE ALL ON SCHEMA practice FROM %1$I; GRANT USAGE ON SCHEMA practice TO %1$I; "
    "GRANT SELECT ON SchemaTable TO %1$I; GRANT USAGE ON ALL SEQUENCES IN SCHEMA practice TO %1$I', desk); "
    "END LOOP; "
    "IF (SELECT pg_has_role(nspowner, 'USAGE') FROM pg_namespace WHERE nspname = 'public') THEN "
    "REVOKE CREATE ON SCHEMA public FROM PUBLIC; END IF; "
    "IF guarded AND (SELECT rolsuper FROM pg_roles WHERE rolname = current_user) THEN "
    "FOREACH comparison IN ARRAY ARRAY['citext_eq', 'citext_ne', 'citext_lt', 'citext_le', 'citext_gt', "
    "'citext_ge']::regproc[] LOOP EXECUTE format('ALTER FUNCTION %s(citext, citext) LEAKPROOF', comparison); "
    "END LOOP; END IF; "
    "END $$";

std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    quoted += c == '\'' ? std::string("''") : std::string(1, c);
  }
  return quoted + "'";
}

[[noreturn]] void Refuse(const std::string& why) {
  throw session::DatabaseError(why, {}, 0);
}

// The recall screen makes a copy of all offices' recalls before it saves the first one, which a desk's login may not.
// Where there is none yet, the first change makes it for whoever that is.
std::string MakeRecallBackup() {
  std::string columns;
  for (const Column& column : FindTable("RSTable")->columns) {
    columns += std::string(column.name) + ", ";
  }
  columns += "OfficeID";
  return "CREATE TABLE RSTableBackup AS SELECT " + columns +
         " FROM RSTable WITH NO DATA; "
         "CREATE OR REPLACE FUNCTION practice.back_up_recalls() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER "
         "SET search_path = practice, public, pg_temp AS $$ "
         "BEGIN IF NOT EXISTS (SELECT FROM RSTableBackup) THEN INSERT INTO RSTableBackup SELECT " +
         columns +
         " FROM RSTable; END IF; RETURN NULL; END $$; "
         "REVOKE ALL ON FUNCTION practice.back_up_recalls() FROM PUBLIC; "
         "CREATE OR REPLACE TRIGGER RSTable_back_up BEFORE UPDATE ON RSTable "
         "FOR EACH STATEMENT EXECUTE FUNCTION practice.back_up_recalls()";
}

}  // namespace

std::vector<std::string> DeskGround() {
  return {std::string(kDesks), std::string(kOpenOffices), std::string(kAdmit),
          "REVOKE ALL ON FUNCTION practice.admit_desks() FROM PUBLIC"};
}

bool AdmitDesk(session::Connection& connection, const CreationOptions& options, const DeskLogin& login) {
  const std::string name = Quoted(login.name);
  const auto owns = connection.Execute(
      "SELECT pg_has_role(rolname, relowner, 'MEMBER')::int FROM pg_roles, pg_class "
      "WHERE pg_class.oid = 'SchemaTable'::regclass AND rolname = " +
      name);
  if (owns->Eof()) {
    Refuse("The server knows no login \"" + login.name + "\". It has to be made first.");
  }
  if (session::ToId(owns->Get(0)) != 0) {
    Refuse("The tables belong to \"" + login.name +
           "\", who may do anything with them. Desks need a login of their own.");
  }
  const bool guarded = options.kind == 7;
  if (guarded && login.offices.empty()) {
    Refuse("The practice has several offices. Please name those that the login may enter.");
  }
  session::Transaction transaction(connection);
  if (session::IsNull(connection.Execute("SELECT to_regclass('RSTableBackup')::text")->Get(0))) {
    connection.Execute(MakeRecallBackup());
  }
  connection.Execute("DELETE FROM DeskTable WHERE DeskLogin = " + name);
  if (!guarded) {
    connection.Execute("INSERT INTO DeskTable VALUES (" + name + ", NULL)");
  }
  for (const int office : guarded ? login.offices : std::vector<int>()) {
    connection.Execute("INSERT INTO DeskTable VALUES (" + name + ", " + std::to_string(office) + ")");
  }
  connection.Execute(std::string(kAdmitDesks));
  const auto compares = connection.Execute("SELECT proleakproof::int FROM pg_proc WHERE proname = 'citext_ge'");
  const bool by_index = !guarded || session::ToId(compares->Get(0)) != 0;
  transaction.Commit();
  return by_index;
}

}  // namespace host
