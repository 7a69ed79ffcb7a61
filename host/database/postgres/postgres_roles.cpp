#include "database/postgres/postgres_roles.h"

#include <set>

#include "database/dialect/written.h"
#include "database/postgres/postgres_session.h"

namespace host {
namespace {

// A row for each office of a login; null for all that there are.
constexpr std::string_view kDesks =
    "CREATE TABLE practice.DeskTable (DeskLogin name NOT NULL, DeskOffice int, UNIQUE (DeskLogin, DeskOffice))";

// The logins that work in the practice: a row of the table counts while its login has the schema, which is granted to
// none but them. It goes with `DROP OWNED`, and no later login of the same name has it.
constexpr std::string_view kAdmitted =
    "CREATE VIEW practice.AdmittedDesks AS SELECT DeskLogin, DeskOffice, pg_roles.oid AS DeskRole "
    "FROM practice.DeskTable JOIN pg_catalog.pg_roles ON rolname = DeskLogin WHERE pg_roles.oid IN "
    "(SELECT (pg_catalog.aclexplode(nspacl)).grantee FROM pg_catalog.pg_namespace WHERE nspname = 'practice')";

// The offices whose rows the session may see and write. It goes by the login that connected, which no statement of its
// own can change, and reads what the login itself may not.
constexpr std::string_view kOpenOffices =
    "CREATE FUNCTION practice.open_offices() RETURNS int[] LANGUAGE sql STABLE SECURITY DEFINER "
    "SET search_path = pg_catalog, pg_temp "
    "RETURN (SELECT coalesce(array_agg(DISTINCT DeskOffice), '{}'::int[]) FROM practice.AdmittedDesks "
    "WHERE pg_has_role(session_user, DeskRole, 'MEMBER') AND DeskOffice = "
    "coalesce(nullif(current_setting('practice.office', true), '')::int, DeskOffice))";

// What compares text must not be feared to tell of rows that the policy hides, or no index serves a search: the policy
// would come first, for each row. A superuser alone may say so.
constexpr std::string_view kAdmit =
    "CREATE FUNCTION practice.admit_desks() RETURNS void LANGUAGE plpgsql SET search_path = practice, public AS $$ "
    "DECLARE guarded boolean; t record; desk name; silent regprocedure; "
    "BEGIN "
    "IF NOT EXISTS (SELECT FROM AdmittedDesks) THEN RETURN; END IF; "
    "guarded := (SELECT SchKind = 7 FROM SchemaTable); "
    "FOR desk IN SELECT DISTINCT DeskLogin FROM AdmittedDesks LOOP "
    "EXECUTE format('REVOKE ALL ON ALL TABLES IN SCHEMA practice FROM %1$I; "
    "REVOKE ALL ON ALL SEQUENCES IN SCHEMA practice FROM %1$I; REVOKE ALL ON SCHEMA practice FROM %1$I; "
    "GRANT USAGE ON SCHEMA practice TO %1$I; GRANT SELECT ON SchemaTable TO %1$I; "
    "GRANT USAGE ON ALL SEQUENCES IN SCHEMA practice TO %1$I', desk); END LOOP; "
    "FOR t IN SELECT c.oid::regclass AS name, c.relrowsecurity AS done, EXISTS (SELECT FROM pg_attribute "
    "WHERE attrelid = c.oid AND attname = 'officeid') AS of_office, CASE c.relname WHEN 'changetable' "
    "THEN 'SELECT, INSERT' ELSE 'SELECT, INSERT, UPDATE, DELETE' END AS rights FROM pg_class c "
    "WHERE c.relnamespace = 'practice'::regnamespace AND c.relkind IN ('r', 'p') "
    "AND c.relname NOT IN ('schematable', 'desktable') LOOP "
    "IF guarded AND t.of_office AND NOT t.done THEN "
    "EXECUTE format('ALTER TABLE %s ENABLE ROW LEVEL SECURITY', t.name); "
    "EXECUTE format('CREATE POLICY office ON %s USING (OfficeID = ANY ((SELECT practice.open_offices())::int[]))', "
    "t.name); END IF; "
    "FOR desk IN SELECT DISTINCT DeskLogin FROM AdmittedDesks LOOP "
    "IF t.of_office OR NOT guarded THEN EXECUTE format('GRANT %s ON %s TO %I', t.rights, t.name, desk); END IF; "
    "END LOOP; END LOOP; "
    "IF (SELECT pg_has_role(nspowner, 'USAGE') FROM pg_namespace WHERE nspname = 'public') THEN "
    "REVOKE CREATE ON SCHEMA public FROM PUBLIC; END IF; "
    "IF guarded AND (SELECT rolsuper FROM pg_roles WHERE rolname = current_user) THEN "
    "FOREACH silent IN ARRAY ARRAY['citext_eq(citext, citext)', 'citext_ne(citext, citext)', "
    "'citext_lt(citext, citext)', 'citext_le(citext, citext)', 'citext_gt(citext, citext)', "
    "'citext_ge(citext, citext)', 'practice.substring(citext, int, int)', "
    "'practice.replace(citext, citext, citext)']::regprocedure[] LOOP "
    "EXECUTE format('ALTER FUNCTION %s LEAKPROOF', silent); END LOOP; END IF; "
    "END $$";

[[noreturn]] void Refuse(const std::string& why) {
  throw session::DatabaseError(why, {}, 0);
}

bool IsThere(session::Connection& connection, const std::string& login) {
  return !connection.Execute("SELECT 1 FROM pg_roles WHERE rolname = " + Quoted(login))->Eof();
}

// What this login has, or one that it is a member of, leads past every grant and policy.
void CheckHasNoMoreRights(session::Connection& connection, const std::string& login) {
  const auto owns = connection.Execute(
      "SELECT ((NOT rolsuper OR pg_roles.oid = relowner) AND pg_has_role(rolname, relowner, 'MEMBER'))::int "
      "FROM pg_roles, pg_class WHERE pg_class.oid = 'SchemaTable'::regclass AND rolname = " +
      Quoted(login));
  if (session::ToId(owns->Get(0)) != 0) {
    Refuse("The tables belong to \"" + login + "\", who may do anything with them. Desks need a login of their own.");
  }
  const auto more = connection.Execute(
      "SELECT r.rolname::text, CASE WHEN r.rolsuper THEN 'is a superuser' WHEN r.rolbypassrls THEN 'has BYPASSRLS' "
      "WHEN r.rolcreaterole THEN 'has CREATEROLE' WHEN r.rolreplication THEN 'has REPLICATION' "
      "ELSE 'reaches all data or files of the server' END FROM pg_roles d, pg_roles r WHERE pg_has_role(d.oid, r.oid, "
      "'MEMBER') AND (r.rolsuper OR r.rolbypassrls OR r.rolcreaterole OR r.rolreplication OR r.rolname IN "
      "('pg_write_all_data', 'pg_read_server_files', 'pg_write_server_files', 'pg_execute_server_program')) "
      "AND d.rolname = " +
      Quoted(login) + " ORDER BY r.oid <> d.oid, 1");
  if (!more->Eof()) {
    const std::string holder = session::ToText(more->Get(0));
    Refuse("The login \"" + login + "\" " + (holder == login ? "" : "is a member of \"" + holder + "\", which ") +
           session::ToText(more->Get(1)) +
           ", and what desks may do would not bind it. Desks need a login without such rights.");
  }
}

// The recall screen makes a copy of all offices' recalls before it saves the first one, which a desk's login may not.
// Where there is none yet, the first change makes it for whoever that is.
std::string MakeRecallBackup(const std::string& schema) {
  std::string columns;
  for (const Column& column : FindTable("RSTable")->columns) {
    columns += std::string(column.name) + ", ";
  }
  columns += "OfficeID";
  const std::string function = schema + ".back_up_recalls()";
  return "CREATE TABLE IF NOT EXISTS " + schema + ".RSTableBackup AS SELECT " + columns + " FROM " + schema +
         ".RSTable WITH NO DATA; CREATE OR REPLACE FUNCTION " + function +
         " RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER SET search_path = " + schema +
         ", practice, public, pg_temp AS $$ BEGIN IF NOT EXISTS (SELECT FROM RSTableBackup) THEN "
         "INSERT INTO RSTableBackup (" +
         columns + ") SELECT " + columns + " FROM RSTable; END IF; RETURN NULL; END $$; REVOKE ALL ON FUNCTION " +
         function + " FROM PUBLIC; CREATE OR REPLACE TRIGGER RSTable_back_up BEFORE UPDATE ON " + schema +
         ".RSTable FOR EACH STATEMENT EXECUTE FUNCTION " + function;
}

void CheckDesk(session::Connection& connection, const std::string& login) {
  if (!IsThere(connection, login)) {
    Refuse("The server knows no login \"" + login + "\". It has to be made first.");
  }
  CheckHasNoMoreRights(connection, login);
}

// In place of what stood there; without an office the login is admitted to all.
void WriteDesk(session::Connection& connection, const DeskLogin& login) {
  const std::string name = Quoted(login.name);
  connection.Execute("DELETE FROM DeskTable WHERE DeskLogin = " + name);
  if (login.offices.empty()) {
    connection.Execute("INSERT INTO DeskTable VALUES (" + name + ", NULL)");
  }
  for (const int office : std::set(login.offices.begin(), login.offices.end())) {
    connection.Execute("INSERT INTO DeskTable VALUES (" + name + ", " + std::to_string(office) + ")");
  }
  connection.Execute("GRANT USAGE ON SCHEMA practice TO " + sql::Quoted(login.name, '"'));
}

}  // namespace

std::vector<std::string> DeskGround() {
  return {std::string(kDesks), std::string(kAdmitted), std::string(kOpenOffices), std::string(kAdmit),
          "REVOKE ALL ON FUNCTION practice.admit_desks() FROM PUBLIC"};
}

bool AdmitDesk(session::Connection& connection, const CreationOptions& options, const DeskLogin& login) {
  CheckDesk(connection, login.name);
  const bool guarded = options.kind == 7;
  if (guarded && login.offices.empty()) {
    Refuse("The practice has several offices. Please name those that the login may enter.");
  }
  if (!guarded && !login.offices.empty()) {
    Refuse("The practice has one office, which every login may enter. Please name none.");
  }
  session::Transaction transaction(connection);
  if (session::IsNull(connection.Execute("SELECT to_regclass('RSTableBackup')::text")->Get(0))) {
    connection.Execute(MakeRecallBackup("practice"));
  }
  WriteDesk(connection, login);
  connection.Execute(std::string(kAdmitDesks));
  const auto compares = connection.Execute("SELECT proleakproof::int FROM pg_proc WHERE proname = 'citext_ge'");
  const bool by_index = !guarded || session::ToId(compares->Get(0)) != 0;
  transaction.Commit();
  return by_index;
}

std::vector<std::string> RemoveDesk(session::Connection& connection, const std::string& login) {
  const std::string name = Quoted(login);
  session::Transaction transaction(connection);
  if (connection.Execute("SELECT 1 FROM DeskTable WHERE DeskLogin = " + name)->Eof()) {
    Refuse("\"" + login + "\" is no login of the practice's desks.");
  }
  connection.Execute("DELETE FROM DeskTable WHERE DeskLogin = " + name);
  std::vector<std::string> through;
  if (IsThere(connection, login)) {
    connection.Execute(
        "DO $do$ DECLARE place text; BEGIN FOR place IN SELECT nspname FROM pg_namespace, aclexplode(nspacl) WHERE "
        "grantee = (SELECT oid FROM pg_roles WHERE rolname = " +
        name +
        ") AND (nspname = 'practice' OR nspname ~ '^office_[0-9]+$') LOOP EXECUTE format('REVOKE ALL ON ALL TABLES IN "
        "SCHEMA %1$I FROM %2$I; REVOKE ALL ON ALL SEQUENCES IN SCHEMA %1$I FROM %2$I; REVOKE ALL ON SCHEMA %1$I FROM "
        "%2$I', place, " +
        name + "); END LOOP; END $do$");
    for (const auto rows = connection.Execute("SELECT DISTINCT DeskLogin::text FROM AdmittedDesks WHERE pg_has_role(" +
                                              name + ", DeskRole, 'MEMBER') ORDER BY 1");
         !rows->Eof(); rows->MoveNext()) {
      through.push_back(session::ToText(rows->Get(0)));
    }
  }
  transaction.Commit();
  return through;
}

void NoteDesk(session::Connection& connection, const DeskLogin& login) {
  CheckDesk(connection, login.name);
  WriteDesk(connection, login);
  connection.Execute(std::string(kAdmitDesks));
}

// The server keeps offices apart by their schemas, so there are no policies on their tables. A copy of recalls that
// came along with an office is left alone when it holds any.
std::string AdmitDesksTo(int office, const std::string& schema) {
  const std::string backup = schema + ".RSTableBackup";
  const std::string number = std::to_string(office);
  return "DO $do$ DECLARE desk record; BEGIN "
         "IF NOT EXISTS (SELECT FROM practice.AdmittedDesks) THEN RETURN; END IF; "
         "IF NOT EXISTS (SELECT FROM pg_trigger WHERE tgrelid = '" +
         schema + ".RSTable'::regclass AND tgname = 'rstable_back_up') THEN IF to_regclass('" + backup +
         "') IS NOT NULL THEN IF NOT EXISTS (SELECT FROM " + backup + ") THEN DROP TABLE " + backup +
         "; END IF; END IF; " + MakeRecallBackup(schema) +
         "; END IF; FOR desk IN SELECT * FROM (SELECT DeskLogin AS login, bool_or(DeskOffice = " + number +
         ") AS may, DeskRole IN (SELECT grantee FROM pg_namespace, aclexplode(nspacl) WHERE nspname = '" + schema +
         "') AS could FROM practice.AdmittedDesks GROUP BY DeskLogin, DeskRole) d WHERE may OR could LOOP "
         "EXECUTE format('REVOKE ALL ON SCHEMA " +
         schema + " FROM %1$I; REVOKE ALL ON ALL TABLES IN SCHEMA " + schema +
         " FROM %1$I; REVOKE ALL ON ALL SEQUENCES IN SCHEMA " + schema +
         " FROM %1$I', desk.login); IF desk.may THEN EXECUTE format('GRANT USAGE ON SCHEMA " + schema +
         " TO %1$I; GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA " + schema +
         " TO %1$I; REVOKE UPDATE, DELETE ON " + schema + ".ChangeTable FROM %1$I; REVOKE INSERT, UPDATE, DELETE ON " +
         schema + ".SchemaTable FROM %1$I; GRANT USAGE ON ALL SEQUENCES IN SCHEMA " + schema +
         " TO %1$I', desk.login); END IF; END LOOP; END $do$";
}

}  // namespace host
