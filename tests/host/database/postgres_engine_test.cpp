#include "database/postgres/postgres_engine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "database/unix/throwaway_cluster.h"

namespace host {
namespace {

using session::DatabaseError;
using testing::HasSubstr;

class PostgresEngineTest : public testing::Test {
 protected:
  void TearDown() override { SharedCluster().DropDatabase(name_); }

  std::string WhyNot() const {
    try {
      OpenDatabase(url_);
    } catch (const DatabaseError& error) {
      return error.what();
    }
    return "opened";
  }

  std::string name_ = SharedCluster().MakeDatabase("engine");
  std::string url_ = SharedCluster().Url(name_);
};

TEST_F(PostgresEngineTest, MakesAPracticeInAVacantDatabaseAndOpensIt) {
  EXPECT_TRUE(IsVacant(url_));
  EXPECT_THAT(WhyNot(), HasSubstr("This database holds no practice."));
  CreateDatabase(url_, {.kind = 7, .office = 2, .offices = 3, .row_guids = true});
  EXPECT_FALSE(IsVacant(url_));
  const PracticeDatabase opened = OpenDatabase(url_);
  EXPECT_EQ(opened.options.kind, 7);
  EXPECT_EQ(opened.options.offices, 3);
  EXPECT_TRUE(opened.KeepsRowGuids("PATable"));
  EXPECT_THROW(CreateDatabase(url_), DatabaseError);
}

TEST_F(PostgresEngineTest, NeedsTextThatHoldsAndFoldsEveryLetter) {
  for (const auto& [text, why] :
       {std::pair("ENCODING 'LATIN1' LOCALE 'C'", "its text is kept as LATIN1, and a practice needs UTF8."),
        {"LOCALE 'C'", "the locale C.UTF-8"}}) {
    SharedCluster().DropDatabase(name_);
    SharedCluster().Run("CREATE DATABASE " + name_ + " TEMPLATE template0 " + text);
    EXPECT_THAT(WhyNot(), HasSubstr(why));
    EXPECT_THROW(IsVacant(url_), DatabaseError);
    EXPECT_THROW(CreateDatabase(url_), DatabaseError);
  }
}

TEST_F(PostgresEngineTest, KnowsTheSchemasNamesTypesAndSizes) {
  const PracticeDatabase practice = CreateDatabase(url_);
  practice.connection->Execute("INSERT INTO patable (plasnam) VALUES ('Ada')");
  for (const char* select : {"SELECT pid, plasnam, pLasNam AS \"Last Name\", pBirDat FROM PATable",
                             "SELECT pid, plasnam, pLasNam AS \"Last Name\", pBirDat FROM PATable WHERE pid=-1"}) {
    const auto rows = practice.connection->Execute(select);
    const auto& fields = rows->Fields();
    EXPECT_EQ(fields[0].name, "pID");
    EXPECT_EQ(fields[1].name, "pLASNAM");
    EXPECT_EQ(fields[2].name, "Last Name");
    EXPECT_EQ(fields[0].type, session::FieldType::Integer);
    EXPECT_EQ(fields[1].defined_size, 40);
    EXPECT_EQ(fields[2].defined_size, 40);
    EXPECT_EQ(fields[3].type, session::FieldType::DateTime);
  }
}

TEST_F(PostgresEngineTest, SaysWhatIsWrongInAPersonsWords) {
  const PracticeDatabase practice = CreateDatabase(url_);
  try {
    practice.connection->Execute("INSERT INTO patable (plasnam) VALUES (repeat('a', 41))");
    FAIL();
  } catch (const DatabaseError& error) {
    EXPECT_THAT(error.what(), HasSubstr("The text for pLASNAM is too long: there is room for 40 characters."));
  }
}

}  // namespace
}  // namespace host
