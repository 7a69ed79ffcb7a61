#include "lookup/list_catalogue.h"

#include <stdexcept>

#include "data/literal.h"
#include "lookup/shared_lists.h"

namespace lookup {
namespace {

using data::Sql;
using data::Statements;
using data::Words;

ListDefinition EmployeeList(const Statements& db, const session::ListOptions& options) {
  ListDefinition list;
  list.kind_key = "pTypEmp";
  list.title = "Employee List";
  list.window_texts = {"emplScreen", "ID Num", "Name", "[First Name]", "[Last Name]", "Title", "[ID Num]"};
  if (options.allow_delete) {
    list.window_texts.emplace_back("Delete");
  }
  // The second join and the reach of the office condition are what practices have stored: they stay as they are.
  list.sql = Sql("SELECT DISTINCTROW PATABLE.pLASNAM+', '+PATABLE.pFIRNAM AS Name, "
                 "PATABLE.pLASNAM AS [Last Name], PATABLE.pFIRNAM AS [First Name], "
                 "PATABLE.pProTTL AS Title, PATABLE.pBUSPHO AS [Business Phone], "
                 "PATABLE.pHOMPHO AS [Home Phone], PATABLE.pADD1 AS [Home Address 1], "
                 "PATABLE.pADD2 AS [Home Address 2], PATABLE.pCIT AS [H-City], PATABLE.pSTA AS [H-State], "
                 "PATABLE.pZIP AS Zip, PATABLE.pID AS [ID Num], "
                 "EmpTable.EmpAdd1 AS [Business Address 1], EmpTable.EmpAdd2 AS [Business Address 2], "
                 "EmpTable.EmpCIT AS [B-City], EmpTable.EmpSTA AS [B-State], EmpTable.EmpZip AS [B-Zip] ") +
             InsuranceColumn(db, options) + Sql("FROM (PATABLE LEFT JOIN ELTable ON PATABLE.pEmpID1 = ELTable.elID") +
             db.OfficeJoin(" and (PATABLE.OfficeID = ELTable.OfficeID) ") +
             ") LEFT JOIN EmpTable ON ELTable.elEmpID = ELTable.EmpInd " +
             db.OfficeJoin(" and (ELTable.OfficeID = ELTable.OfficeID) ") +
             "WHERE (PATABLE.pTypEmp='1') OR (PATABLE.pTypEmp='2') " + db.Office(" and (PATABLE.OfficeID = ", ") ");
  list.sort = Words("Name");
  list.layout_key = "frmTGList_EMPL";
  list.hand_off_column = "pID";
  list.hand_off_table = "PaTable";
  list.at_location = PersonsAtLocation;
  return list;
}

Sql LinkJoins(const Statements& db) {
  return "FROM ((ELTable INNER JOIN EmpTable ON ELTable.elEmpID = EmpTable.EmpInd" +
         db.OfficeJoin(" and (ELTable.OfficeID = EmpTable.OfficeID) ") +
         ") INNER JOIN InsCoTable ON ELTable.elInsID = InsCoTable.InsCoInd" +
         db.OfficeJoin(" and (ELTable.OfficeID = InsCoTable.OfficeID) ") +
         ") INNER JOIN GroPlaTable ON ELTable.elGroID = GroPlaTable.GroPlaInd " +
         db.OfficeJoin(" and (ELTable.OfficeID = GroPlaTable.OfficeID) ");
}

ListDefinition InsuranceGroupList(const Statements& db) {
  ListDefinition list;
  list.title = "Insurance Group List";
  list.caption = "Copy Insurance Plan From ...";
  list.window_texts = {"InsGroup",       "Link ID",  "Group Number", "[Employer Name]",  "[Insurance Company]",
                       "[Group Number]", "[Emp ID]", "ALL",          "Insurance Company"};
  list.sql = Sql("SELECT DISTINCTROW EmpTable.EmpNam as [Employer Name], "
                 "InsCoTable.InsCoNam as [Insurance Company], "
                 "GroPlaTable.GroPlaGroNum as [Group Number], "
                 "GroPlaTable.GroPlaNam as [Plan Name], "
                 "GroPlaTable.GroPlaInd as [Plan ID], "
                 "EmpTable.EmpInd as [Emp ID], "
                 "ELTable.elID as [Link ID] ") +
             LinkJoins(db) + "WHERE (((ELTable.elFla)=0))" + db.Office(" and (ELTable.OfficeID = ", ") ");
  list.sort = Words("[Insurance Company], [Group Number]");
  list.layout_key = "frmTGList_INGR";
  return list;
}

ListDefinition RecallMasterList(const Statements& db) {
  ListDefinition list;
  list.title = "Recall Master List";
  list.caption = "Recall Master List";
  list.window_texts = {"RecallMaster", "ID #", "Title", "[Title]", "[ID #]"};
  list.sql = Sql("SELECT DISTINCT RSTable.RCRecNum as [ID #],  "
                 "RSTable.RCTtl as Title, "
                 "RSTable.RCRecPer as Period,  "
                 "RSTable.RCDuePer as Due, "
                 "RSTable.RCDuePerLet as [Due Letter], "
                 "RSTable.RCCod as [Recall Codes] "
                 "FROM RSTable "
                 "WHERE RCRecNum <> 0") +
             db.Office(" and (OfficeID = ", ") ");
  list.sort = Words("[ID #]");
  list.layout_key = "frmTGList_RCMA";
  return list;
}

ListDefinition ManagedCarePlansList(const Statements& db) {
  ListDefinition list;
  list.title = "Managed Care Plans List";
  list.caption = "Select Managed Care Plan ...";
  list.window_texts = {"CapPlans", "Plan ID", "Group Number", "[Group Number]", "[Plan ID]"};
  list.sql =
      Sql("SELECT DISTINCT InsCoTable.InsCoNam as [Insurance Company], GroPlaTable.GroPlaGroNum as [Group Number], "
          "GroPlaTable.GroPlaNam as [Plan Name], GroPlaTable.GroPlaInd as [Plan ID], "
          "InsCoTable.InsCoInd as [Ins ID], "
          "ELTable.elID as [Link ID] ") +
      LinkJoins(db) + "WHERE (((ELTable.elFla)=0)) AND ((GroPlaTable.GroPlaCat)='CAPITATION')" +
      db.Office(" and (ELTable.OfficeID = ", ") ");
  list.sort = Words("[Insurance Company], [Group Number]");
  list.layout_key = "frmTGList_CAPL";
  return list;
}

ListDefinition Described(session::LookUpListTypes type, const Statements& statements,
                         const session::ListOptions& options) {
  switch (type) {
    case session::lulProvider:
    case session::lulPhysician1:
    case session::lulPhysician2:
    case session::lulReferInOut:
    case session::lulReferral:
    case session::lulFamilyHead:
      return PersonList(type, statements, options);
    case session::lulEmployee:
      return EmployeeList(statements, options);
    case session::lulInsuranceCo:
      return InsuranceCompanyList(statements);
    case session::lulEmployer:
      return EmployerList(statements, options);
    case session::lulGroupPlan:
      return GroupPlanList(statements, options);
    case session::lulInsGroup:
      return InsuranceGroupList(statements);
    case session::lulRecallMaster:
      return RecallMasterList(statements);
    case session::lulPharmacy:
      return PharmacyList(statements);
    case session::lulCapPlans:
      return ManagedCarePlansList(statements);
  }
  throw std::out_of_range("no such list");
}

struct ShortList {
  const char* title;
  const char* key;
  const char* layout;
};

ShortList ShortListOf(session::PickList list) {
  switch (list) {
    case session::PickList::SexTitle:
      return {"Sex and Title", "SEXTITLE", "frmTGList_SEXT"};
    case session::PickList::FeeSchedule:
      return {"Fee Schedule", "FEESCHED", "frmTGList_FEES"};
    case session::PickList::MedicalAlert:
      return {"Medical Alert", "MEDALERT", "frmTGList_MEDA"};
    case session::PickList::Specialty:
      return {"Specialty Database", "MEDSPEC", "frmTGList_MEDS"};
    case session::PickList::ProfessionalTitle:
      return {"Professional Title", "PROTITLE", "frmTGList_PROT"};
    case session::PickList::BillingTitle:
      return {"Billing Title", "BILTTL", "frmTGList_BILT"};
  }
  throw std::out_of_range("no such short list");
}

}  // namespace

ListDefinition DefinitionOf(session::LookUpListTypes type, const Statements& statements,
                            const session::ListOptions& options) {
  ListDefinition list = Described(type, statements, options);
  list.commands = CommandsOf(type);
  return list;
}

ListDefinition DefinitionOf(session::PickList list, const Statements& statements) {
  const ShortList kind = ShortListOf(list);
  ListDefinition definition;
  definition.title = kind.title;
  definition.window_texts = {kind.key, "ID Num", kPickDescription, "[Code]", "[Description]"};
  definition.sql =
      Sql("SELECT PickListTable.PLCode AS [Code], PickListTable.PLDes AS [Description], PickListTable.PLID AS [ID Num] "
          "FROM PickListTable WHERE (PickListTable.PLKind=") +
      data::Literal(kind.key) + ")" + statements.Office(" and (PickListTable.OfficeID = ", ") ");
  definition.sort = Words("[Code], [Description]");
  definition.layout_key = kind.layout;
  return definition;
}

}  // namespace lookup
