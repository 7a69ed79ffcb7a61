#include "data/statements.h"

#include "support/fake_host.h"

namespace {

struct GuidSession : test_support::FakeSession {
  bool KeepsRowGuids(std::string_view table) const override { return table == "ELTable"; }
};

TEST(Statements, InsertsInThePlainForm) {
  GuidSession session;
  session.columns = {"ID"};
  session.rows = {{std::int64_t{12}}};
  const data::Statements statements(session);
  EXPECT_EQ(statements.Insert("PATable", {{"pLASNAM", "'Smith'"}, {"pFAMHEAIND", "0"}}), 12);
  EXPECT_EQ(session.statements.back(),
            "INSERT INTO PATable (pLASNAM, pFAMHEAIND) VALUES ('Smith', 0); SELECT @@IDENTITY");
}

TEST(Statements, InsertsWithARowGuidIntoTheOffice) {
  GuidSession session;
  session.kind = session::kOfficeScoped;
  session.columns = {"GUID", "ID"};
  session.rows = {{session::Guid{}, std::int64_t{12}}};
  const data::Statements statements(session);
  EXPECT_EQ(statements.Insert("ELTable", {{"elEmpID", "5"}}), 12);
  EXPECT_EQ(session.statements.back(),
            "SET NOCOUNT ON; declare @UniqueID uniqueidentifier; set @UniqueID = newid(); "
            "INSERT INTO ELTable (elEmpID, OfficeID, UniqueID) OUTPUT inserted.UniqueID "
            "VALUES (5, 3, @UniqueID); SELECT @UniqueID, @@IDENTITY");
}

TEST(Statements, LayToTheTranslationWhatItFails) {
  struct Untranslated : test_support::FakeSession {
    bool refuses_to = true;
    std::string PrepareSQL(const std::string&, int) const override {
      if (refuses_to) {
        throw session::DatabaseError("No such dialect.", {}, 1);
      }
      return " ";
    }
  } session;
  const auto told = [&] {
    try {
      data::Statements(session).Execute(data::Sql("SELECT 1"));
      return std::string();
    } catch (const session::DatabaseError& error) {
      return error.Told();
    }
  };
  const std::string whose = "The session could not translate a statement for the database (PrepareSQL).\r\n\r\n";
  EXPECT_EQ(told(), whose + "No such dialect.\r\n\r\n[ SELECT 1 ]");
  session.refuses_to = false;
  EXPECT_EQ(told(), whose + "It gave no statement.\r\n\r\n[ SELECT 1 ]");
}

TEST(Statements, UpdatesWithinTheOfficeAndOnlyWhenThereIsSomethingToSet) {
  GuidSession session;
  const data::Statements statements(session);
  statements.Update("PATable", {}, "pID", 5);
  EXPECT_TRUE(session.statements.empty());
  session.kind = session::kOfficeScoped;
  statements.Update("PATable", {{"pLASNAM", "'Smith'"}, {"pSEX", "'F'"}}, "pID", 5);
  EXPECT_EQ(session.statements.back(), "UPDATE PATable SET pLASNAM='Smith', pSEX='F' WHERE pID=5 AND (OfficeID=3)");
}

}  // namespace
