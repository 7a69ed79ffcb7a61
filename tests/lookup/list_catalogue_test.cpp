#include "lookup/list_catalogue.h"

#include "support/fake_host.h"

namespace {

using lookup::DefinitionOf;
using lookup::ListDefinition;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class ListCatalogue : public testing::Test {
 protected:
  ListDefinition On(std::int32_t kind, std::int32_t type, const session::ListOptions& options = {}) {
    session_.kind = kind;
    return DefinitionOf(static_cast<session::LookUpListTypes>(type), data::Statements(session_), options);
  }
  std::string Sql(std::int32_t kind, std::int32_t type) { return On(kind, type).sql.Text(); }

  test_support::FakeSession session_;
};

TEST_F(ListCatalogue, ReadsTheEmployeesAsPracticesHaveItStored) {
  const std::string columns =
      "SELECT DISTINCTROW PATABLE.pLASNAM+', '+PATABLE.pFIRNAM AS Name, PATABLE.pLASNAM AS [Last Name], "
      "PATABLE.pFIRNAM AS [First Name], PATABLE.pProTTL AS Title, PATABLE.pBUSPHO AS [Business Phone], "
      "PATABLE.pHOMPHO AS [Home Phone], PATABLE.pADD1 AS [Home Address 1], PATABLE.pADD2 AS [Home Address 2], "
      "PATABLE.pCIT AS [H-City], PATABLE.pSTA AS [H-State], PATABLE.pZIP AS Zip, PATABLE.pID AS [ID Num], "
      "EmpTable.EmpAdd1 AS [Business Address 1], EmpTable.EmpAdd2 AS [Business Address 2], EmpTable.EmpCIT AS "
      "[B-City], EmpTable.EmpSTA AS [B-State], EmpTable.EmpZip AS [B-Zip] ";
  EXPECT_EQ(Sql(1, 6), columns +
                           "FROM (PATABLE LEFT JOIN ELTable ON PATABLE.pEmpID1 = ELTable.elID) LEFT JOIN EmpTable ON "
                           "ELTable.elEmpID = ELTable.EmpInd WHERE (PATABLE.pTypEmp='1') OR (PATABLE.pTypEmp='2') ");
  EXPECT_EQ(Sql(7, 6), columns +
                           "FROM (PATABLE LEFT JOIN ELTable ON PATABLE.pEmpID1 = ELTable.elID and (PATABLE.OfficeID = "
                           "ELTable.OfficeID) ) LEFT JOIN EmpTable ON ELTable.elEmpID = ELTable.EmpInd  and "
                           "(ELTable.OfficeID = ELTable.OfficeID) WHERE (PATABLE.pTypEmp='1') OR (PATABLE.pTypEmp='2') "
                           " and (PATABLE.OfficeID = 3) ");
  const ListDefinition list = On(1, 6);
  EXPECT_THAT(list.window_texts, ElementsAre("emplScreen", "ID Num", "Name", "[First Name]", "[Last Name]", "Title",
                                             "[ID Num]", "Delete"));
  EXPECT_EQ(list.sort, "Name");
  EXPECT_EQ(list.layout_key, "frmTGList_EMPL");
  EXPECT_THAT(On(1, 6, {.allow_delete = false}).window_texts, Not(testing::Contains("Delete")));
}

TEST_F(ListCatalogue, ReadsTheLinksOfPlansAndManagedCare) {
  const std::string joins =
      "FROM ((ELTable INNER JOIN EmpTable ON ELTable.elEmpID = EmpTable.EmpInd) INNER JOIN InsCoTable ON "
      "ELTable.elInsID = InsCoTable.InsCoInd) INNER JOIN GroPlaTable ON ELTable.elGroID = GroPlaTable.GroPlaInd ";
  const std::string office_joins =
      "FROM ((ELTable INNER JOIN EmpTable ON ELTable.elEmpID = EmpTable.EmpInd and (ELTable.OfficeID = "
      "EmpTable.OfficeID) ) INNER JOIN InsCoTable ON ELTable.elInsID = InsCoTable.InsCoInd and (ELTable.OfficeID = "
      "InsCoTable.OfficeID) ) INNER JOIN GroPlaTable ON ELTable.elGroID = GroPlaTable.GroPlaInd  and "
      "(ELTable.OfficeID = GroPlaTable.OfficeID) ";
  const std::string groups =
      "SELECT DISTINCTROW EmpTable.EmpNam as [Employer Name], InsCoTable.InsCoNam as [Insurance Company], "
      "GroPlaTable.GroPlaGroNum as [Group Number], GroPlaTable.GroPlaNam as [Plan Name], GroPlaTable.GroPlaInd as "
      "[Plan ID], EmpTable.EmpInd as [Emp ID], ELTable.elID as [Link ID] ";
  EXPECT_EQ(Sql(1, 10), groups + joins + "WHERE (((ELTable.elFla)=0))");
  EXPECT_EQ(Sql(7, 10), groups + office_joins + "WHERE (((ELTable.elFla)=0)) and (ELTable.OfficeID = 3) ");
  const std::string plans =
      "SELECT DISTINCT InsCoTable.InsCoNam as [Insurance Company], GroPlaTable.GroPlaGroNum as [Group Number], "
      "GroPlaTable.GroPlaNam as [Plan Name], GroPlaTable.GroPlaInd as [Plan ID], InsCoTable.InsCoInd as [Ins ID], "
      "ELTable.elID as [Link ID] ";
  const std::string managed = "WHERE (((ELTable.elFla)=0)) AND ((GroPlaTable.GroPlaCat)='CAPITATION')";
  EXPECT_EQ(Sql(1, 13), plans + joins + managed);
  EXPECT_EQ(Sql(7, 13), plans + office_joins + managed + " and (ELTable.OfficeID = 3) ");
  EXPECT_THAT(On(1, 10).window_texts,
              ElementsAre("InsGroup", "Link ID", "Group Number", "[Employer Name]", "[Insurance Company]",
                          "[Group Number]", "[Emp ID]", "ALL", "Insurance Company"));
  EXPECT_THAT(On(1, 13).window_texts,
              ElementsAre("CapPlans", "Plan ID", "Group Number", "[Group Number]", "[Plan ID]"));
}

TEST_F(ListCatalogue, ReadsTheRecallMasters) {
  const std::string sql =
      "SELECT DISTINCT RSTable.RCRecNum as [ID #],  RSTable.RCTtl as Title, RSTable.RCRecPer as Period,  "
      "RSTable.RCDuePer as Due, RSTable.RCDuePerLet as [Due Letter], RSTable.RCCod as [Recall Codes] FROM RSTable "
      "WHERE RCRecNum <> 0";
  EXPECT_EQ(Sql(1, 11), sql);
  EXPECT_EQ(Sql(7, 11), sql + " and (OfficeID = 3) ");
  EXPECT_EQ(On(1, 11).sort, "[ID #]");
}

TEST_F(ListCatalogue, ScopesEveryListToItsOfficeAndNoOther) {
  for (std::int32_t type = 0; type < lookup::kListKinds; ++type) {
    EXPECT_THAT(Sql(1, type), Not(HasSubstr("OfficeID"))) << type;
    EXPECT_THAT(Sql(7, type), HasSubstr("OfficeID = 3)")) << type;
  }
  EXPECT_THROW(On(1, 14), std::out_of_range);
}

TEST_F(ListCatalogue, NarrowsPlansByCarrierAndAddsAPatientToTheHeads) {
  EXPECT_THAT(On(7, 9, {.group_plan_company = 12}).sql.Text(),
              HasSubstr(" and (GroPlaTable.GroPlaInsID = 12) and (GroPlaTable.OfficeID = 3) "));
  EXPECT_THAT(On(7, 5, {.family_head_including = 12}).sql.Text(),
              HasSubstr(">= '1') or PATABLE.pID = 12) and (PATABLE.OfficeID = 3) "));
}

}  // namespace
