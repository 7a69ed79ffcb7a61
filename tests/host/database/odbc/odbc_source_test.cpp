#include "database/odbc/odbc_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "database/odbc/odbc_error.h"

namespace host {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST(OdbcSourceTest, FindsKeywords) {
  EXPECT_EQ(KeywordIn("DSN=practice;UID=ada", "uid"), "ada");
  EXPECT_EQ(KeywordIn(" Server = a.example ; UID=", "SERVER"), "a.example");
  EXPECT_EQ(KeywordIn("PWD={a;UID=b}}c};UID=d", "UID"), "d");
  EXPECT_EQ(KeywordIn("PWD={a;UID=b}}c};UID=d", "PWD"), "a;UID=b}}c");
  EXPECT_EQ(KeywordIn("DSN=practice;UID=", "UID"), "");
  EXPECT_EQ(KeywordIn("DSN=practice;UID", "UID"), std::nullopt);
  EXPECT_EQ(KeywordIn("PWD={never closed;UID=d", "UID"), std::nullopt);
}

TEST(OdbcSourceTest, AddsWhatThePostgresDriverNeeds) {
  const OdbcSource source = PostgresSource("Driver=x;Server=db.example;usedeclarefetch=0");
  EXPECT_THAT(source.connection_string, AllOf(HasSubstr("Driver=x;Server=db.example;"), HasSubstr(";Protocol=7.4-0"),
                                              Not(HasSubstr("Fetch=200"))));
  EXPECT_THAT(source.for_reading, AllOf(HasSubstr("Fetch=200"), Not(HasSubstr("UseDeclareFetch=1"))));
  EXPECT_EQ(source.fixed_for_reading.at("default_transaction_read_only"), "on");
}

TEST(OdbcSourceTest, SpeaksToAnotherMachineByTlsAlone) {
  const auto tls = [](const std::string& given) {
    return KeywordIn(PostgresSource(given).connection_string, "SSLmode");
  };
  EXPECT_EQ(tls("Driver=x;Server=db.example"), "require");
  EXPECT_EQ(tls("Driver=x;Servername=/run/postgresql"), std::nullopt);
  EXPECT_EQ(tls("Driver=x"), std::nullopt);
  EXPECT_EQ(tls("Driver=x;Server=db.example;sslmode=verify-full"), "verify-full");
  EXPECT_EQ(tls("DSN=practice;Server=db.example"), std::nullopt) << "the data source says";
}

TEST(OdbcSourceTest, TellsWhatTheServerSaidInAPersonsWords) {
  const auto told = [](const char* state, const char* message) {
    return std::string(OdbcRefusal({state, message}, false, "SELECT 1").what());
  };
  EXPECT_EQ(told("42P01", "[unixODBC][Driver]ERROR: relation \"x\" does not exist;\nError while executing the query"),
            "relation \"x\" does not exist");
  EXPECT_EQ(told("23514",
                 "ERROR: new row for relation \"patable\" violates check constraint \"patable_plasnam_check\"\n"
                 "DETAIL: Failing row contains (1, secret).;\nError while executing the query"),
            "The text for pLASNAM is too long: there is room for 40 characters.");
  EXPECT_EQ(told("HY008", "[Microsoft][ODBC Driver]Operation canceled"), "It was ended before it was done.");
  EXPECT_EQ(told("42000", "[a] [b] Incorrect syntax near ']'."), "Incorrect syntax near ']'.");
  EXPECT_TRUE(OdbcRefusal({"08S01", "gone"}, false, "SELECT 1").ConnectionLost());
  EXPECT_TRUE(OdbcRefusal({"HY000", "gone"}, true, "SELECT 1").ConnectionLost());
}

TEST(OdbcSourceTest, KeepsPasswordsToItself) {
  EXPECT_EQ(
      std::string(CannotConnect("DSN=a;PWD={x;y}", {"28P01", "[a]FATAL:  password authentication failed"}).what()),
      "The database \"DSN=a;PWD=***\" cannot be reached: password authentication failed.");
}

}  // namespace
}  // namespace host
