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
