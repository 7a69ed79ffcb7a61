#include "database/office_group.h"

#include <gmock/gmock.h>

#include <atomic>
#include <map>
#include <set>
#include <thread>

#include "database/database.h"
#include "database/migration.h"
#include "database/postgres/office_move.h"
#include "database/postgres/postgres_engine.h"
#include "database/unix/throwaway_cluster.h"

namespace host {
namespace {

using session::DatabaseError;
using session::ToText;
using testing::ElementsAre;
using testing::HasSubstr;

// Two servers on this machine; they serve all tests.
ThrowawayCluster& North() {
  static ThrowawayCluster cluster{ThrowawayCluster::Own{}};
  return cluster;
}
ThrowawayCluster& South() {
  static ThrowawayCluster cluster{ThrowawayCluster::Own{}};
  return cluster;
}

std::string Ask(const PracticeDatabase& database, const std::string& statement) {
  const auto rows = database.connection->Execute(statement);
  return rows->Eof() ? "none" : ToText(rows->Get(0));
}

template <class Work>
std::string Refusal(const Work& work) {
  try {
    work();
  } catch (const DatabaseError& error) {
    return (error.ConnectionLost() ? "lost: " : "") + std::string(error.what());
  }
  return "nothing";
}

PracticeDatabase In(std::int32_t office, const std::string& url) {
  PracticeDatabase database = OpenDatabase(url);
  database.enter_office(office);
  return database;
}

// Office 1 at the server "north", office 2 at "south".
class OfficeGroupTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    north_ = North().Url(North().MakeDatabase("group"));
    south_ = South().Url(South().MakeDatabase("group"));
    CreateOfficeGroup({"north", north_});
    const auto group = OpenOfficeGroup(north_);
    group->AddServer({"south", south_});
    Add(*group, 1, "north");
    Add(*group, 2, "south");
  }
  void SetUp() override {
    for (const int office : {1, 2}) {
      In(office, north_).connection->Execute("DELETE FROM PATable; ALTER SEQUENCE PATable_pID_seq RESTART");
    }
  }

  static void Add(OfficeGroup& group, std::int32_t office, const std::string& server) {
    CreateDatabase(group.PlaceFor(office, server), group.OptionsOf(office));
    group.AddOffice(office, server);
  }

  static inline std::string north_;
  static inline std::string south_;
};

TEST_F(OfficeGroupTest, EachOfficeHasItsOwnRowsAndReportsHaveAll) {
  const PracticeDatabase database = OpenDatabase(north_);
  EXPECT_EQ(database.options.kind, 7);
  EXPECT_THAT(database.offices(), ElementsAre(1, 2));
  for (const int office : {1, 2, 2}) {
    database.enter_office(office);
    database.connection->Execute("INSERT INTO PATable (pLASNAM) VALUES ('Smith " + std::to_string(office) + "')");
  }
  EXPECT_EQ(Ask(database, "SELECT practice_identity()"), "2") << "keys are an office's own";
  EXPECT_EQ(Ask(database, "SELECT string_agg(pLASNAM || OfficeID, ',' ORDER BY pID) FROM PATable"),
            "Smith 22,Smith 22");
  EXPECT_EQ(Ask(In(1, south_), "SELECT string_agg(pLASNAM, ',') FROM PATable"), "Smith 1");
  EXPECT_THAT(Refusal([&] { database.connection->Execute("INSERT INTO PATable (OfficeID) VALUES (1)"); }),
              HasSubstr("own_office"));
  for (const std::string& url : {north_, south_}) {
    const PracticeDatabase all = In(0, url);
    EXPECT_EQ(Ask(all, "SELECT string_agg(pLASNAM, ',' ORDER BY OfficeID, pID) FROM PATable"),
              "Smith 1,Smith 2,Smith 2");
    EXPECT_EQ(Ask(all, "SELECT count(*) FROM PATable WHERE OfficeID=2 AND pLASNAM='SMITH 2'"), "2");
    EXPECT_NE(Refusal([&] {
                all.connection->Execute("DELETE FROM PATable WHERE OfficeID=" + std::string(url == north_ ? "2" : "1"));
              }),
              "nothing")
        << "nobody writes at another server than the office's own";
  }
}

// A desk that writes as fast as it can, and knows what it was told to be written.
class BusyDesk {
 public:
  explicit BusyDesk(PracticeDatabase database) : database_(std::move(database)), thread_([this] { Work(); }) {}

  ~BusyDesk() {
    ended_ = true;
    if (thread_.joinable()) {
      thread_.join();
    }
  }

  // The rows that the desk knows of, after so many more.
  std::map<std::string, std::string> EndAfter(int more) {
    const int until = written_ + more;
    while (written_ < until && !failed_) {
      std::this_thread::yield();
    }
    ended_ = true;
    thread_.join();
    return rows_;
  }
  int Written() const { return written_; }
  int Lost() const { return lost_; }

 private:
  void Work() {
    while (!ended_ && !failed_) {
      Try([&] {
        session::Transaction transaction(*database_.connection);
        const std::string name = "n" + std::to_string(written_);
        const std::string key = Ask(database_, "INSERT INTO PATable (pLASNAM) VALUES ('" + name + "') RETURNING pID");
        auto rows = rows_;
        EXPECT_FALSE(rows.contains(key)) << "a key was handed out twice: " << key;
        rows[key] = name;
        if (rows.size() % 3 == 0) {
          const std::string old = rows.begin()->first;
          database_.connection->Execute("DELETE FROM PATable WHERE pID=" + old);
          rows.erase(old);
        }
        if (rows.size() % 2 == 0) {
          const std::string changed = rows.rbegin()->first;
          database_.connection->Execute("UPDATE PATable SET pLASNAM='changed' WHERE pID=" + changed);
          rows[changed] = "changed";
        }
        transaction.Commit();
        rows_ = std::move(rows);
        ++written_;
      });
    }
  }
  template <class Work>
  void Try(const Work& work) {
    try {
      work();
    } catch (const DatabaseError& error) {
      ++lost_;
      failed_ = !error.ConnectionLost();
      EXPECT_TRUE(error.ConnectionLost()) << error.what();
    }
  }

  PracticeDatabase database_;
  std::map<std::string, std::string> rows_;
  std::atomic<int> written_ = 0;
  std::atomic<int> lost_ = 0;
  std::atomic<bool> ended_ = false;
  std::atomic<bool> failed_ = false;
  std::thread thread_;
};

TEST_F(OfficeGroupTest, AnOfficeMovesWhileOthersWorkInIt) {
  OpenOfficeGroup(south_)->Move(2, "south");
  PracticeDatabase reader = In(2, south_);
  reader.connection->Execute("INSERT INTO PATable (pLASNAM) SELECT 'old' FROM generate_series(1, 3000)");
  const std::string is_there =
      reader.prepare("SELECT * FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_NAME='RSTableBackup'");
  reader.connection->Execute("CREATE TABLE RSTableBackup AS SELECT RCRecNum, OfficeID FROM RSTable");
  reader.connection->Execute("INSERT INTO RSTableBackup VALUES (17, 2)");
  const auto list = reader.connection->Execute("SELECT pLASNAM FROM PATable ORDER BY pID");
  BusyDesk desk(In(2, north_));
  OpenOfficeGroup(south_)->Move(2, "north");
  const int before = desk.Written();
  auto expected = desk.EndAfter(20);
  EXPECT_GT(before, 0);
  EXPECT_GT(desk.Lost(), 0) << "it was told that its office had moved";

  std::map<std::string, std::string> found;
  const PracticeDatabase elsewhere = In(2, south_);
  for (const auto rows = elsewhere.connection->Execute("SELECT pID, pLASNAM FROM PATable WHERE pLASNAM<>'old'");
       !rows->Eof(); rows->MoveNext()) {
    found[ToText(rows->Get(0))] = ToText(rows->Get(1));
  }
  EXPECT_EQ(found, expected);
  EXPECT_THAT(Refusal([&] { Ask(reader, "SELECT count(*) FROM PATable"); }), HasSubstr("lost: "));
  EXPECT_EQ(Ask(reader, "SELECT count(*) FROM PATable"), std::to_string(3000 + expected.size()));
  EXPECT_EQ(Ask(reader, "SELECT RCRecNum FROM RSTableBackup"), "17");
  EXPECT_EQ(Ask(reader, is_there), "rstablebackup");
  EXPECT_EQ(Ask(In(1, north_), is_there), "none") << "another office's, on the same server";
  reader.connection->Execute("DROP TABLE RSTableBackup");
  for (const std::string& url : {north_, south_}) {
    EXPECT_EQ(Ask(In(0, url), "SELECT count(*) FROM PATable"), std::to_string(3000 + expected.size()));
  }
}

TEST_F(OfficeGroupTest, AMoveThatBrokeOffIsCompleted) {
  OpenOfficeGroup(south_)->Move(2, "south");
  In(2, south_).connection->Execute("INSERT INTO PATable (pLASNAM) VALUES ('Smith')");
  const PostgresEngine engine;
  const PostgresUrl north = ParsePostgresUrl(north_);
  const PostgresUrl south = ParsePostgresUrl(south_);
  {
    const OfficeServer from("south", south, engine.OpenAlone(south_));
    auto moved = *ReadOfficeDirectory(from.Connection());
    ++moved.version;
    moved.homes[2] = "north";
    MoveOffice(2, from, OfficeServer("north", north, engine.OpenAlone(north_)), moved);
  }
  EXPECT_THAT(Refusal([&] { Ask(In(2, north_), "SELECT pLASNAM FROM PATable"); }), HasSubstr("just being moved"));
  Add(*OpenOfficeGroup(north_), 3, "south");
  EXPECT_EQ(Ask(In(2, south_), "SELECT pLASNAM FROM PATable"), "Smith");
  OpenOfficeGroup(north_)->Move(2, "south");
  EXPECT_EQ(Ask(In(2, north_), "SELECT pLASNAM FROM PATable"), "Smith");
}

TEST_F(OfficeGroupTest, RefusesWhatCannotBe) {
  const auto group = OpenOfficeGroup(north_);
  EXPECT_THAT(Refusal([&] { group->Move(7, "south"); }), HasSubstr("no office 7"));
  EXPECT_THAT(Refusal([&] { group->Move(1, "west"); }), HasSubstr("no server \"west\""));
  EXPECT_THAT(Refusal([&] { group->PlaceFor(2, "north"); }), HasSubstr("an office 2 already"));
  EXPECT_THAT(Refusal([&] { group->AddServer({"west", south_}); }), HasSubstr("in use already"));
  const std::string with_replica = north_ + "&replica=localhost:5433";
  EXPECT_THAT(Refusal([&] { group->AddServer({"west", with_replica}); }), HasSubstr("from a replica"));
  EXPECT_THAT(Refusal([&] { OpenOfficeGroup(with_replica); }), HasSubstr("from a replica"));
  EXPECT_THAT(Refusal([&] { OpenDatabase(with_replica); }), HasSubstr("from a replica"));
  EXPECT_THAT(Refusal([&] { OpenOfficeGroup(south_)->Move(1, "south"); }), HasSubstr("Another program"));
  EXPECT_THAT(Refusal([&] { OpenOfficeGroup(North().Url("postgres")); }), HasSubstr("belongs to no group"));
  EXPECT_THAT(Refusal([&] { OpenOfficeGroup("sqlite::memory:"); }), HasSubstr("PostgreSQL servers alone"));
  EXPECT_THAT(Refusal([&] { Ask(In(7, north_), "SELECT 1"); }), HasSubstr("no office 7"));
}

TEST_F(OfficeGroupTest, PasswordsAreNoOnesToSee) {
  const std::string west = South().Url(South().MakeDatabase("west"));
  const std::string password = "s3cret";
  const auto group = OpenOfficeGroup(north_);
  group->AddServer({"west", west + "&password=" + password});
  for (const GroupServer& server : group->Servers()) {
    EXPECT_THAT(server.url, Not(HasSubstr(password)));
  }
  EXPECT_EQ(Ask(OpenDatabase(north_), "SELECT count(*) FROM pg_user_mapping WHERE umoptions::text LIKE '%s3cret%'"),
            "1");
}

// What a desk's login is refused, and may do.
TEST_F(OfficeGroupTest, ALoginEntersItsOfficesAlone) {
  const std::string desk = North().MakeLogin("desk");
  std::string north = north_;
  north.replace(north.find("practice@"), std::string_view("practice").size(), desk);
  const auto group = OpenOfficeGroup(north_);
  EXPECT_THAT(Refusal([&] { group->AdmitDesk(desk, {}); }), HasSubstr("name those"));
  EXPECT_THAT(Refusal([&] { group->AdmitDesk(desk, {9}); }), HasSubstr("no office 9"));
  EXPECT_THAT(Refusal([&] { group->AdmitDesk(desk, {2}); }),
              HasSubstr("At the server south: The server knows no login"));
  South().Run("CREATE ROLE " + desk + " LOGIN");
  group->AdmitDesk(desk, {1});
  group->AdmitDesk(desk, {2});
  const PracticeDatabase database = OpenDatabase(north);
  EXPECT_EQ(database.options.office, 2);
  EXPECT_THAT(database.offices(), ElementsAre(2));
  database.enter_office(1);
  EXPECT_THAT(Refusal([&] { Ask(database, "SELECT pLASNAM FROM PATable"); }), HasSubstr("may not enter office 1"));
  const ChangeAuthor ann{"ann", [] { return forms::DateTime(); }};
  database.enter_office(2);
  database.write_as(&ann);
  for (const char* home : {"south", "north"}) {
    SCOPED_TRACE(home);
    group->Move(2, home);
    Refusal([&] { Ask(database, "SELECT pLASNAM FROM PATable"); });  // it may be told of the move
    EXPECT_EQ(Ask(database, "INSERT INTO RSTable (RCTtl) VALUES ('Cleaning') RETURNING OfficeID"), "2");
    database.connection->Execute("UPDATE RSTable SET RCTtl='Exam'");
    EXPECT_EQ(Ask(database, "SELECT RCTtl FROM RSTableBackup"), "Cleaning");
    database.connection->Execute("INSERT INTO PATable (pLASNAM) VALUES ('at " + std::string(home) + "')");
    EXPECT_EQ(Ask(database, "SELECT ChaWho FROM ChangeTable WHERE ChaNew='at " + std::string(home) + "'"), "ann");
    for (const char* refused :
         {"CREATE TABLE stranger (id int)", "CREATE TABLE office_2.stranger (id int)", "DROP TABLE FamTable",
          "TRUNCATE FamTable", "UPDATE office_2.SchemaTable SET SchVersion=1", "UPDATE ChangeTable SET ChaWho='bob'",
          "INSERT INTO PATable (OfficeID) VALUES (1)", "SELECT * FROM practice.DeskTable",
          "UPDATE practice.officehome SET server='west'", "SELECT * FROM offices.PATable", "SELECT * FROM home.PATable",
          "SELECT * FROM at_south.PATable", "SELECT * FROM at_north.PATable", "SELECT * FROM office_1.PATable"}) {
      EXPECT_NE(Refusal([&] { database.connection->Execute(refused); }), "nothing") << refused;
    }
  }
  // The wall is the server's, whatever the program looks up.
  EXPECT_THAT(Refusal([&] { Ask(PostgresEngine().OpenAlone(north), "SELECT pLASNAM FROM office_1.PATable"); }),
              HasSubstr("The database login may not do this"));
  // One that has failed over to its second host.
  std::string further = South().Url(South().MakeDatabase("further"));
  further.replace(further.find("host="), std::string_view("host=").size(),
                  "target_session_attrs=read-write&host=/nowhere,");
  group->AddServer({"further", further});
  group->Move(2, "further");
  EXPECT_EQ(Ask(In(2, north), "SELECT count(*) FROM PATable"), "2");
  EXPECT_EQ(Ask(In(0, north_), "SELECT count(*) FROM PATable"), "2");
  group->RemoveDesk(desk);
  EXPECT_THAT(Refusal([&] { OpenDatabase(north); }), HasSubstr("cannot be opened"));
  EXPECT_THAT(Refusal([&] { group->RemoveDesk(desk); }), HasSubstr("no login of the group's desks"));
  South().Run("DROP ROLE " + desk);  // nothing is granted to it any more
}

// A group as an older program has made it.
class OlderGroup : public testing::Test {
 public:
  ~OlderGroup() override {
    for (const auto& [cluster, name] : databases_) {
      cluster->DropDatabase(name);
    }
  }

 protected:
  void Make(int version, const std::set<std::string>& names) {
    const CreationOptions options{.kind = 7, .office = 1, .offices = 0};
    const PostgresEngine engine;
    std::map<std::string, OfficeServer> servers;
    OfficeDirectory directory;
    for (const std::string& name : names) {
      std::string& url = urls_[name];
      ThrowawayCluster& cluster = name == "north" ? North() : South();
      databases_.emplace_back(&cluster, cluster.MakeDatabase("older"));
      url = cluster.Url(databases_.back().second);
      const PostgresUrl place = ParsePostgresUrl(url);
      directory.servers[name] = WithoutSecrets(place);
      servers.emplace(name, OfficeServer(name, place, engine.OpenNew(url, options)))
          .first->second.Found(options, version);
    }
    directory.version = 1;
    directory.homes = {{1, *names.begin()}, {2, *names.rbegin()}};
    for (const auto& [office, home] : directory.homes) {
      servers.at(home).Run("CREATE SCHEMA " + OfficeSchema(office));
      CreationOptions own = options;
      own.office = office;
      const PracticeDatabase practice = engine.OpenNew(UrlText(servers.at(home).Url(), OfficeSchema(office)), own);
      CreateSchema(*practice.connection, *practice.schema, own, version);
      practice.connection->Execute("INSERT INTO ZipCodTable (ZipCodCit) VALUES ('Boston')");
    }
    for (const auto& [name, server] : servers) {
      server.Settle(directory, servers);
    }
  }
  // What a server's tables have and what belongs to them, in whichever order.
  std::set<std::string> Objects(const std::string& server) const {
    std::set<std::string> objects;
    const auto database = PostgresEngine().OpenNew(urls_.at(server), {});
    for (const char* select : {
             R"(SELECT attrelid::regclass || ' ' || attname || ' ' || format_type(atttypid, atttypmod) ||
                       coalesce(pg_get_expr(adbin, adrelid), '')
                FROM pg_attribute JOIN pg_class c ON c.oid = attrelid
                LEFT JOIN pg_attrdef ON adrelid = attrelid AND adnum = attnum
                WHERE relnamespace::regnamespace::text IN
                ('office_1', 'office_2', 'offices', 'home', 'at_north', 'at_south') AND attnum > 0 AND relkind <> 'i')",
             "SELECT indexdef FROM pg_indexes WHERE schemaname LIKE 'office%'",
             "SELECT conrelid::regclass || conname || pg_get_constraintdef(oid) FROM pg_constraint",
             "SELECT tgrelid::regclass || pg_get_triggerdef(oid) FROM pg_trigger WHERE NOT tgisinternal",
             "SELECT inhrelid::regclass || ' of ' || inhparent::regclass FROM pg_inherits",
         }) {
      for (const std::string& object : FirstColumn(*database.connection, select)) {
        objects.insert(object);
      }
    }
    return objects;
  }
  std::string Url(const std::string& server) const { return urls_.at(server); }

 private:
  std::map<std::string, std::string> urls_;
  std::vector<std::pair<ThrowawayCluster*, std::string>> databases_;
};

TEST_F(OlderGroup, OfEveryVersionBecomesLikeANewOne) {
  Make(kSchemaVersion, {"north"});
  const auto north = Objects("north");
  for (int version = 1; version < kSchemaVersion; ++version) {
    SCOPED_TRACE(version);
    Make(version, {"north"});
    EXPECT_THAT(Refusal([&] { OpenDatabase(Url("north")); }), HasSubstr("offices migrate"));
    EXPECT_THAT(Refusal([&] { OpenOfficeGroup(Url("north"))->Move(2, "north"); }), HasSubstr("offices migrate"));
    EXPECT_NE(Objects("north"), north);
    OpenOfficeGroup(Url("north"))->Migrate();
    EXPECT_EQ(Objects("north"), north);
    const PracticeDatabase database = OpenDatabase(Url("north"));
    for (const int office : {0, 2}) {
      database.enter_office(office);
      EXPECT_EQ(Ask(database, "SELECT string_agg(ZipCodCit || ZipCodID, ',') FROM ZipCodTable WHERE OfficeID=2"),
                "Boston1");
    }
  }
}

// Wherever it stops, nobody enters an office whose tables are not as they should be, and the next run completes it.
TEST_F(OlderGroup, IsCompletedByTheNextRun) {
  Make(kSchemaVersion, {"north", "south"});
  const auto south = Objects("south");
  Make(1, {"north", "south"});
  const PracticeDatabase superuser = PostgresEngine().OpenNew(Url("south"), {});
  superuser.connection->Execute(
      "CREATE FUNCTION public.stop() RETURNS event_trigger LANGUAGE plpgsql AS $$ BEGIN RAISE EXCEPTION 'stopped'; END "
      "$$");
  for (const char* change :
       {"DROP FOREIGN TABLE", "DROP TABLE", "CREATE INDEX", "CREATE VIEW", "CREATE FOREIGN TABLE"}) {
    SCOPED_TRACE(change);
    superuser.connection->Execute("CREATE EVENT TRIGGER stop ON ddl_command_end WHEN TAG IN ('" + std::string(change) +
                                  "') EXECUTE FUNCTION public.stop()");
    EXPECT_THAT(Refusal([&] { OpenOfficeGroup(Url("north"))->Migrate(); }), HasSubstr("stopped"));
    EXPECT_THAT(Refusal([&] { OpenDatabase(Url("south")); }), HasSubstr("offices migrate"));
    superuser.connection->Execute("DROP EVENT TRIGGER stop");
  }
  OpenOfficeGroup(Url("north"))->Migrate();
  EXPECT_EQ(Objects("south"), south);
  EXPECT_EQ(Ask(In(2, Url("north")), "SELECT ZipCodCit FROM ZipCodTable"), "Boston");
}

}  // namespace
}  // namespace host
