#include "database/postgres/postgres_url.h"

#include <gmock/gmock.h>

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

TEST(PostgresUrl, RefusesWhatIsNoneWithoutItsPassword) {
  for (const char* url : {"postgresql://ada:geheim@db/p?nonsense=1", "postgresql://ada:geheim@[db/p",
                          "postgresql://ada:geheim%zz@db/p"}) {
    try {
      ParsePostgresUrl(url);
      ADD_FAILURE() << url;
    } catch (const session::DatabaseError& error) {
      EXPECT_THAT(error.what(), HasSubstr("is no URL that PostgreSQL reads"));
      EXPECT_THAT(error.what(), Not(HasSubstr("geheim")));
    }
  }
}

}  // namespace
