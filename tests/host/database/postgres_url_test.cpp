#include "database/postgres/postgres_url.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include "session/connection.h"

namespace {

using host::ParsePostgresUrl;
using testing::HasSubstr;
using testing::Not;

TEST(PostgresUrl, TakesLibpqsOptionsAndItsOwn) {
  auto url =
      ParsePostgresUrl("postgresql://ada@db1,db2:5433/practice?replica=db3:5434&target_session_attrs=read-write");
  EXPECT_EQ(url.options.at("user"), "ada");
  EXPECT_EQ(url.options.at("dbname"), "practice");
  EXPECT_EQ(url.options.at("target_session_attrs"), "read-write");
  EXPECT_EQ(url.options.at("application_name"), "practice");
  EXPECT_EQ(url.options.at("client_encoding"), "UTF8");
  EXPECT_EQ(url.replica, "db3:5434");
  EXPECT_THAT(url.Shown(), HasSubstr("\"practice\" on db1,db2"));

  const auto replica = host::OnReplica(url);
  EXPECT_EQ(replica.options.at("host"), "db3");
  EXPECT_EQ(replica.options.at("port"), "5434");
  EXPECT_FALSE(replica.options.contains("target_session_attrs"));

  for (const char* text : {"postgresql:///p?connect_timeout=3&replica=r", "postgresql:///p?replica=r&connect_timeout=3",
                           "postgresql:///p?a=b&replica=r"}) {
    try {
      url = ParsePostgresUrl(text);
      EXPECT_EQ(url.options.at("connect_timeout"), "3");
      EXPECT_EQ(url.replica, "r");
    } catch (const session::DatabaseError& error) {
      EXPECT_THAT(text, HasSubstr("a=b")) << error.what();
    }
  }
}

TEST(PostgresUrl, SpeaksToOtherMachinesByTlsAlone) {
  const auto mode = [](const std::string& url) {
    const auto options = ParsePostgresUrl(url).options;
    return options.contains("sslmode") ? options.at("sslmode") : "";
  };
  for (const char* here : {"postgresql:///p", "postgresql://localhost/p", "postgresql://127.0.0.1/p",
                           "postgresql://[::1]/p", "postgresql:///p?host=/run/postgresql"}) {
    EXPECT_EQ(mode(here), "") << here;
  }
  for (const char* there : {"postgresql://db/p", "postgresql://localhost,db/p", "postgresql:///p?hostaddr=192.0.2.1",
                            "postgresql:///p?host=db.example"}) {
    EXPECT_EQ(mode(there), "require") << there;
  }
  EXPECT_EQ(mode("postgresql://db/p?sslmode=verify-full"), "verify-full");
}

// What a service says is not said again, and what it does not say is not left to libpq.
TEST(PostgresUrl, AddsToAServiceWhatItDoesNotSay) {
  const std::string file = testing::TempDir() + "postgres_url_services";
  std::ofstream(file) << "[full]\nhost=db.example\nport=5433\ndbname=p\nsslmode=verify-ca\napplication_name=ours\n"
                         "[bare]\nhost=db.example\nsslmode=prefer\n[here]\nhost=/run/pg\n";
  setenv("PGSERVICEFILE", file.c_str(), 1);  // NOLINT(concurrency-mt-unsafe): no other thread yet
  const auto full = ParsePostgresUrl("postgresql:///?service=full");
  EXPECT_FALSE(full.options.contains("sslmode"));
  EXPECT_FALSE(full.options.contains("application_name"));
  EXPECT_EQ(full.options.at("connect_timeout"), "10");
  EXPECT_EQ(full.Place(), "db.example/5433/p");
  EXPECT_EQ(full.Shown(), "\"p\" on db.example:5433");
  const auto bare = ParsePostgresUrl("postgresql:///p?service=bare");
  EXPECT_EQ(bare.options.at("sslmode"), "require");
  EXPECT_EQ(bare.options.at("application_name"), "practice");
  EXPECT_FALSE(ParsePostgresUrl("postgresql:///p?service=here").options.contains("sslmode"));
  EXPECT_EQ(ParsePostgresUrl("postgresql:///p?service=none").Shown(), "\"p\" on the service none");
  unsetenv("PGSERVICEFILE");  // NOLINT(concurrency-mt-unsafe): as above
  std::filesystem::remove(file);
}

TEST(PostgresUrl, RefusesWhatIsNoneWithoutItsPassword) {
  for (const auto& [url, why] : std::map<std::string, std::string>{
           {"postgresql://db/p?nonsense=1", "\"nonsense\""},
           {"postgresql://ada:geheim@db/p?nonsense=1", "is no URL that PostgreSQL reads"},
           {"postgresql://ada:geheim@[db/p", "is no URL that PostgreSQL reads"},
           {"postgresql://ada:geheim%zz@db/p", "is no URL that PostgreSQL reads"},
           {"postgresql:ada:geheim@db/p", "is no URL that PostgreSQL reads"},
           {"postgresql://ada:ge@geheim@db/p", "%40"},
           {"postgresql://ada:ge/geheim@db/p", "%2F"},
           {"postgresql://ada:g@e/geheim@db/p", "%2F"},
           {"postgresql://ada:g:e@geheim@db:1/p", "%40"}}) {
    try {
      ParsePostgresUrl(url);
      ADD_FAILURE() << url;
    } catch (const session::DatabaseError& error) {
      EXPECT_THAT(error.what(), HasSubstr(why));
      EXPECT_THAT(error.what(), Not(HasSubstr("geheim")));
    }
  }
  EXPECT_EQ(ParsePostgresUrl("postgresql://ada:a%40b%2Fc@db/p?user=ada@clinic").options.at("password"), "a@b/c");
}

}  // namespace
