// A practice on a PostgreSQL server, as a program for Windows reaches it. The connection string is the last argument.
#include <gtest/gtest.h>

#include "database/database.h"

namespace host {
namespace {

std::string url;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): set by main

std::vector<std::string> Rows(const PracticeDatabase& practice, const std::string& statement) {
  std::vector<std::string> rows;
  for (const auto set = practice.Run(statement); !set->Eof(); set->MoveNext()) {
    rows.push_back(session::ToText(set->Get(0)));
  }
  return rows;
}

std::string Refusal(const PracticeDatabase& practice, const std::string& statement) {
  try {
    practice.Run(statement);
  } catch (const session::DatabaseError& error) {
    return error.what();
  }
  return "not refused";
}

TEST(PracticeByOdbc, IsMadeReadAndWritten) {
  ASSERT_TRUE(IsVacant(url));
  CreateDatabase(url, {.kind = 7, .offices = 2, .row_guids = true});
  const PracticeDatabase practice = OpenDatabase(url);
  EXPECT_EQ(practice.options.kind, 7);

  const std::string name = "O'Neill \xC3\xA4\xE6\x97\xA5\xF0\x9F\x98\x80";
  practice.Run("INSERT INTO PATable (pLASNAM, pFIRNAM) VALUES ('O''Neill" + name.substr(7) + "', 'Ada')");
  EXPECT_EQ(Rows(practice, "SELECT @@IDENTITY"), (std::vector<std::string>{"1"}));
  const auto row =
      practice.Run("SELECT TOP 5 pLASNAM, pFIRNAM + '!' AS [The Name] FROM PATable WHERE pFIRNAM Like 'aD%'");
  EXPECT_EQ(row->Fields()[0].name, "pLASNAM");
  EXPECT_EQ(row->Fields()[0].defined_size, 40);
  EXPECT_EQ(row->Fields()[1].name, "The Name");
  EXPECT_EQ(session::ToText(row->Get(0)), name);
  EXPECT_EQ(session::ToText(row->Get(1)), "Ada!");
  EXPECT_EQ(Refusal(practice, "UPDATE PATable SET pLASNAM='" + std::string(41, 'x') + "'"),
            "The text for pLASNAM is too long: there is room for 40 characters.");

  session::Transaction transaction(*practice.connection);
  practice.Run("INSERT INTO PATable (pLASNAM) VALUES ('Lee')");
  EXPECT_NE(Refusal(practice, "SELECT nothing FROM PATable"), "not refused");
  practice.Run("INSERT INTO PATable (pLASNAM) VALUES ('Roe')");
  transaction.Commit();
  EXPECT_EQ(Rows(practice, "SELECT Count(*) FROM PATable"), (std::vector<std::string>{"3"}));

  int calls = 0;
  practice.connection->WhileBusy = [&calls](session::Busy) { return ++calls == 3; };
  EXPECT_THROW(practice.connection->Execute("SELECT pg_sleep(60)"), session::DatabaseError);
  practice.connection->WhileBusy = nullptr;
  EXPECT_EQ(
      session::ToText(
          practice.connect("Ada's desk")->Execute("SELECT pg_catalog.current_setting('application_name')")->Get(0)),
      "Ada's desk");

  practice.connect("Administrator")
      ->Execute(
          "SELECT 1; SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity WHERE pid<>pg_backend_pid() AND "
          "datname=current_database()");
  practice.Run("INSERT INTO PATable (pLASNAM) VALUES ('Poe')");
  EXPECT_EQ(Rows(practice, "SELECT Count(*) FROM PATable"), (std::vector<std::string>{"4"}));
}

TEST(PracticeByOdbc, IsTheOnlyWayToAServer) {
  try {
    OpenDatabase("postgresql://localhost/practice");
    ADD_FAILURE() << "opened";
  } catch (const session::DatabaseError& error) {
    EXPECT_STREQ(error.what(),
                 "\"postgresql://localhost/practice\" is no database URL that this program knows: sqlite:PATH or "
                 "odbc:CONNECTION-STRING is expected.");
  }
}

}  // namespace
}  // namespace host

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  host::url = std::string("odbc:") + argv[argc - 1];
  return RUN_ALL_TESTS();
}
