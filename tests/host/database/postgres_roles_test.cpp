#include "database/postgres/postgres_roles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "database/database.h"
#include "database/migration.h"
#include "database/postgres/postgres_connection.h"
#include "database/postgres/postgres_schema.h"
#include "database/unix/throwaway_cluster.h"
#include "support/odbc_url.h"

namespace host {
namespace {

using session::DatabaseError;
using session::ToText;
using testing::HasSubstr;

constexpr CreationOptions kOffices{.kind = 7, .offices = 3};

class PostgresRoles : public testing::Test {
 public:
  PostgresRoles() {
    SharedCluster().Run("CREATE ROLE " + group_);
    SharedCluster().Run("GRANT " + group_ + " TO " + desk_);
  }
  ~PostgresRoles() override {
    SharedCluster().DropDatabase(name_);
    SharedCluster().Run("DROP ROLE " + group_);
  }

 protected:
  std::string DeskUrl() const { return SharedCluster().Url(name_, desk_); }

  // The first field of each row, joined; the reason when it is refused.
  static std::string Run(session::Connection& connection, const std::string& statement) {
    try {
      std::string fields;
      for (const auto rows = connection.Execute(statement); !rows->Eof(); rows->MoveNext()) {
        fields += (fields.empty() ? "" : " ") + ToText(rows->Get(0));
      }
      return fields;
    } catch (const DatabaseError& error) {
      return error.what();
    }
  }
  static std::string Opening(const std::string& url) {
    try {
      OpenDatabase(url);
      return {};
    } catch (const DatabaseError& error) {
      return error.what();
    }
  }
  std::string Admit(const PracticeDatabase& practice, const DeskLogin& login) {
    try {
      AdmitDesk(*practice.connection, practice.options, login);
      return {};
    } catch (const DatabaseError& error) {
      return error.what();
    }
  }

  std::string name_ = SharedCluster().MakeDatabase("roles");
  std::string url_ = SharedCluster().Url(name_);
  std::string desk_ = SharedCluster().MakeLogin("desk");
  std::string group_ = name_ + "_desks";
};

TEST_F(PostgresRoles, ADeskWorksInTheTablesAndChangesNone) {
  const PracticeDatabase owner = CreateDatabase(url_);
  for (const std::string& url : {DeskUrl(), OdbcUrl(DeskUrl())}) {
    EXPECT_THAT(Opening(url), HasSubstr("may not work in the practice yet"));
  }
  SharedCluster().Run(
      "GRANT USAGE ON SCHEMA practice TO " + desk_ + "; GRANT SELECT ON ALL TABLES IN SCHEMA practice TO " + desk_,
      name_);
  const PracticeDatabase looking = OpenDatabase(DeskUrl());
  EXPECT_TRUE(looking.connection->ReadOnly()) << "a login that only reads";
  EXPECT_TRUE(OpenDatabase(OdbcUrl(DeskUrl())).connection->ReadOnly());
  EXPECT_EQ(Run(*looking.connection, "SELECT count(*) FROM PATable"), "0");
  EXPECT_EQ(Admit(owner, {.name = desk_}), "");
  const PracticeDatabase desk = OpenDatabase(DeskUrl());
  EXPECT_FALSE(desk.connection->ReadOnly());
  const ChangeAuthor ann{"ann", [] { return forms::DateTime(); }};
  desk.write_as(&ann);
  EXPECT_EQ(Run(*desk.connection,
                "INSERT INTO PATable (pID, pLASNAM) VALUES (20, 'Lee'), (Null, 'Ito'); "
                "UPDATE PATable SET pFIRNAM='Kay' WHERE pID=20; DELETE FROM PATable WHERE pID=21; "
                "SELECT practice_identity()"),
            "21");
  EXPECT_EQ(Run(*desk.connection, "SELECT ChaWhat FROM ChangeTable ORDER BY ChaID"), "added added changed deleted");
  // The copy of recalls that no desk could make is made before they change.
  EXPECT_EQ(Run(*desk.connection,
                "INSERT INTO RSTable (RCTtl) VALUES ('Cleaning'); UPDATE RSTable SET RCTtl='Exam'; "
                "UPDATE RSTable SET RCTtl='X-ray'; SELECT RCTtl FROM RSTableBackup"),
            "Cleaning");
  for (const char* refused :
       {"CREATE TABLE stranger (id int)", "CREATE TABLE public.stranger (id int)", "CREATE SCHEMA stranger",
        "DROP TABLE FamTable", "ALTER TABLE FamTable ADD COLUMN stranger int", "TRUNCATE FamTable",
        "CREATE INDEX ON FamTable (fID)", "DROP TRIGGER PATable_logged ON PATable",
        "ALTER TABLE PATable DISABLE TRIGGER ALL", "DROP FUNCTION practice.note_keys() CASCADE",
        "UPDATE SchemaTable SET SchVersion=1", "UPDATE ChangeTable SET ChaWho='bob'", "DELETE FROM ChangeTable",
        "SELECT setval('patable_pid_seq', 1)", "SELECT * FROM DeskTable", "SELECT practice.admit_desks()",
        "CREATE TEMP TABLE t (id int); CREATE TRIGGER t AFTER INSERT ON t EXECUTE FUNCTION practice.note_keys('id')"}) {
    EXPECT_THAT(Run(*desk.connection, refused), HasSubstr("The database login may not do this")) << refused;
  }
}

TEST_F(PostgresRoles, NoRowOfAnOfficeIsReachedThatTheLoginMayNotEnter) {
  const PracticeDatabase owner = CreateDatabase(url_, kOffices);
  EXPECT_EQ(Admit(owner, {group_, {1, 2}}), "");
  std::vector<std::string> tables{"RSTableBackup"};
  for (const Table& table : PracticeTables()) {
    tables.emplace_back(table.name);
  }
  for (const std::string& table : tables) {
    owner.connection->Execute("INSERT INTO " + table + " (OfficeID) VALUES (1), (2), (3), (3)");
  }
  PostgresConnection desk(DeskUrl());
  for (const std::string& table : tables) {
    EXPECT_EQ(Run(desk, "SELECT OfficeID FROM " + table + " ORDER BY 1"), "1 2") << table;
    EXPECT_THAT(Run(desk, "INSERT INTO " + table + " (OfficeID) VALUES (3)"), HasSubstr("row-level security")) << table;
  }
  EXPECT_THAT(Run(desk, "UPDATE EmpTable SET OfficeID=3"), HasSubstr("row-level security"));
  EXPECT_EQ(Run(desk,
                "UPDATE EmpTable SET EmpNam='x' WHERE OfficeID=3; DELETE FROM FamTable WHERE OfficeID=3; "
                "SELECT count(*) FROM EmpTable e LEFT JOIN FamTable f ON f.OfficeID=3 WHERE e.OfficeID=3"),
            "0");
  EXPECT_EQ(Run(*owner.connection,
                "SELECT count(*) FROM EmpTable, FamTable WHERE EmpTable.OfficeID=3 AND "
                "FamTable.OfficeID=3 AND EmpNam IS NULL"),
            "4");
  // The office that the session works in narrows that, and whatever a statement says widens it no further.
  desk.EnterOffice(2);
  EXPECT_EQ(Run(desk, "SELECT OfficeID FROM EmpTable"), "2");
  desk.EnterOffice(3);
  EXPECT_EQ(Run(desk, "SELECT OfficeID FROM EmpTable"), "");
  for (const std::string& trick : {std::string("SET practice.office = ''"), std::string("RESET practice.office"),
                                   "SET ROLE " + group_, std::string("SET row_security = off")}) {
    EXPECT_THAT(Run(desk, trick + "; SELECT OfficeID FROM EmpTable WHERE OfficeID=3"),
                testing::AnyOf("", HasSubstr("row-level security")))
        << trick;
  }
  EXPECT_THAT(Run(desk, "SET SESSION AUTHORIZATION practice"), HasSubstr("may not"));
  // Fewer offices from now on.
  EXPECT_EQ(Admit(owner, {group_, {1}}), "");
  PostgresConnection later(DeskUrl());
  EXPECT_EQ(Run(later, "SELECT OfficeID FROM EmpTable"), "1");
}

TEST_F(PostgresRoles, SearchesBehindTheWallHaveTheirIndexes) {
  const PracticeDatabase owner = CreateDatabase(url_, kOffices);
  EXPECT_TRUE(AdmitDesk(*owner.connection, owner.options, {desk_, {1}}));
  PostgresConnection desk(DeskUrl(), {.readers = false});
  desk.Execute("SET enable_seqscan = off");
  const auto plan = [&desk](const std::string& condition, const std::string& order) {
    std::string lines;
    for (const auto rows =
             desk.Execute("EXPLAIN SELECT * FROM PATable WHERE " + condition + " AND OfficeID = 1" + order);
         !rows->Eof(); rows->MoveNext()) {
      lines += ToText(rows->Get(0)) + "\n";
    }
    return lines;
  };
  EXPECT_THAT(plan("pLASNAM >= 'sm' AND pLASNAM < 'sn'", " ORDER BY pLASNAM NULLS FIRST"),
              HasSubstr("Index Cond: ((plasnam >= 'sm'"));
  for (const Index& index : FindTable("PATable")->indexes) {
    if (index.of != Index::Of::Values) {
      EXPECT_THAT(plan(std::string(index.where) + " AND " + IndexedExpression(index) + " >= '5550100'", ""),
                  testing::ContainsRegex("Index Cond: \\(+(replace|\"substring\")"));
    }
  }
  // They say nothing of a hidden row by failing for it, whatever the other arguments are.
  EXPECT_EQ(Run(*owner.connection,
                "SELECT substring('Smith'::citext, 2, 3) || substring('Smith'::citext, 1, -1) || "
                "replace('a-b-c'::citext, '-', '') || coalesce(replace('aa'::citext, 'a', repeat('b', "
                "5000000)::citext), '?')"),
            "mitabc?");
}

TEST_F(PostgresRoles, ALoginThatLeftStaysOut) {
  const PracticeDatabase owner = CreateDatabase(url_, kOffices);
  owner.connection->Execute("INSERT INTO EmpTable (OfficeID) VALUES (1), (2), (3)");
  const std::string other = name_ + "_other";
  SharedCluster().Run("CREATE ROLE " + other + " LOGIN");
  EXPECT_EQ(Admit(owner, {desk_, {1}}), "");
  SharedCluster().Run("DROP OWNED BY " + desk_, name_);
  EXPECT_EQ(Admit(owner, {other, {3}}), "");
  PostgresConnection desk(DeskUrl());
  EXPECT_EQ(Run(desk, "SELECT has_schema_privilege('practice', 'USAGE')::int"), "0");
  EXPECT_EQ(Admit(owner, {group_, {2}}), "");
  EXPECT_EQ(Run(desk, "SELECT OfficeID FROM EmpTable"), "2") << "as a member, and no more";

  EXPECT_THAT(RemoveDesk(*owner.connection, desk_), testing::ElementsAre(group_));
  EXPECT_THAT(RemoveDesk(*owner.connection, other), testing::IsEmpty());
  EXPECT_THROW(RemoveDesk(*owner.connection, other), DatabaseError);
  EXPECT_EQ(Run(*owner.connection, "SELECT DeskLogin::text FROM DeskTable"), group_);
  SharedCluster().Run("DROP ROLE " + other);  // nothing is left to it
}

TEST_F(PostgresRoles, WhoCannotBeAdmittedIsTold) {
  const PracticeDatabase owner = CreateDatabase(url_, kOffices);
  EXPECT_THAT(Admit(owner, {"no'body", {1}}), HasSubstr("no login \"no'body\""));
  EXPECT_THAT(Admit(owner, {"practice", {1}}), HasSubstr("The tables belong to \"practice\""));
  EXPECT_THAT(Admit(owner, {desk_, {}}), HasSubstr("those that the login may enter"));
  EXPECT_THROW(AdmitDesk(*owner.connection, {.kind = 1}, {desk_, {3}}), DatabaseError);
  SharedCluster().Run("ALTER ROLE " + group_ + " BYPASSRLS");
  EXPECT_THAT(Admit(owner, {desk_, {1}}), HasSubstr("is a member of \"" + group_ + "\", which has BYPASSRLS"));
  SharedCluster().Run("ALTER ROLE " + desk_ + " SUPERUSER");
  EXPECT_THAT(Admit(owner, {desk_, {1}}), HasSubstr(desk_ + "\" is a superuser"));
}

TEST_F(PostgresRoles, AnOlderPracticeIsBroughtUpToDateByItsOwner) {
  const PracticeDatabase owner = OpenNewDatabase(url_, kOffices);
  {
    session::Transaction transaction(*owner.connection);
    CreateSchema(*owner.connection, *owner.schema, kOffices, 1);
    transaction.Commit();
  }
  EXPECT_EQ(Admit(owner, {desk_, {2}}), "");
  EXPECT_THAT(Opening(DeskUrl()), HasSubstr("have the administrator of the database open it once"));
  OpenDatabase(url_);
  const PracticeDatabase desk = OpenDatabase(DeskUrl());
  EXPECT_EQ(desk.options.office, 2) << "where a session starts";
  // A table that came since.
  owner.connection->Execute("INSERT INTO PickListTable (PLDes, OfficeID) VALUES ('a', 1), ('b', 2)");
  EXPECT_EQ(Run(*desk.connection, "SELECT PLDes FROM PickListTable"), "b");
}

}  // namespace
}  // namespace host
