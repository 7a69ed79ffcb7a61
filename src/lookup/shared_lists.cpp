#include "lookup/shared_lists.h"

#include <stdexcept>

#include "data/literal.h"
#include "data/plan_details.h"

namespace lookup {
namespace {

using data::Sql;
using data::Statements;
using data::Words;

struct PersonKind {
  const char* key = nullptr;
  const char* title = nullptr;
  const char* list_name = nullptr;
  const char* layout_key = nullptr;
  Words condition;
};

// Compared for equality, which an index on the flag answers at once in a practice of any size.
constexpr Words kProviders = "(PATABLE.pTypDoc='1') OR (PATABLE.pTypDoc='2')";
constexpr Words kPhysicians = "(PATABLE.pTypPhy='1') OR (PATABLE.pTypPhy='2')";
constexpr Words kReferrals = "(PATABLE.pTypRef='1') OR (PATABLE.pTypRef='2')";
// Patients are referred in by referral sources and out to physicians.
constexpr Words kReferredInOrOut =
    "(PATABLE.pTypPhy='1') OR (PATABLE.pTypPhy='2') OR (PATABLE.pTypRef='1') OR (PATABLE.pTypRef='2')";

PersonKind PersonKindOf(session::LookUpListTypes type) {
  switch (type) {
    case session::lulProvider:
      return {"pTypDoc", "Provider List", "Provider", "frmTGList_PROV", kProviders};
    case session::lulPhysician1:
      return {"pTypPhy1", "Physician List", "Physician1", "frmTGList_PHY1", kPhysicians};
    case session::lulPhysician2:
      return {"pTypPhy2", "Physician List", "Physician2", "frmTGList_PHY2", kPhysicians};
    case session::lulReferInOut:
      return {"pTypPhyRefOut", "Refer In/Out List", "ReferInOut", "frmTGList_RFIO", kReferredInOrOut};
    case session::lulReferral:
      return {"pTypRef", "Referred By List", "Referral", "frmTGList_REFE", kReferrals};
    case session::lulFamilyHead:
      return {"pTypPat", "Family Head List", "FamilyHead", "frmTGList_FAMH", kFamilyHeads};
    default:
      throw std::out_of_range("no list of persons");
  }
}

// The live links that the patient holds, and those on his own row.
Sql EmployersOfPatient(const Statements& statements, std::int32_t patient) {
  if (patient == 0) {
    return {};
  }
  const Sql of_patient = "=" + data::Literal(patient) + statements.Office();
  return " and (EmpTable.EmpInd in (SELECT elEmpID FROM ELTable WHERE (elFla=0) and (elID in (SELECT PatEmpElID FROM "
         "PatEmpTable WHERE (PatEmpFla=0) and PatEmpPatID" +
         of_patient + ") or elID in (SELECT pEmpID1 FROM PATABLE WHERE pID" + of_patient + "))" + statements.Office() +
         "))";
}

}  // namespace

Sql InsuranceColumn(const Statements& statements, const session::ListOptions& options) {
  if (!options.include_insurance) {
    return {};
  }
  return ", (SELECT TOP 1 InsCoTable.InsCoNam FROM ((CovTable INNER JOIN PatEmpTable ON CovTable.CovSubPatEmpID = "
         "PatEmpTable.PatEmpID" +
         statements.OfficeJoin(" and (CovTable.OfficeID = PatEmpTable.OfficeID)") +
         ") INNER JOIN ELTable ON PatEmpTable.PatEmpElID = ELTable.elID" +
         statements.OfficeJoin(" and (PatEmpTable.OfficeID = ELTable.OfficeID)") +
         ") INNER JOIN InsCoTable ON ELTable.elInsID = InsCoTable.InsCoInd" +
         statements.OfficeJoin(" and (ELTable.OfficeID = InsCoTable.OfficeID)") +
         " WHERE (CovTable.CovPatID = PATABLE.pID) and (CovTable.CovFla = 0)" +
         statements.OfficeJoin(" and (CovTable.OfficeID = PATABLE.OfficeID)") +
         " ORDER BY CovTable.CovOrd) AS Insurance ";
}

Sql PersonsAtLocation(const Statements& statements, std::int32_t location) {
  const Sql here = data::Literal(location);
  return "((PATABLE.OffLocID = " + here +
         ") or (PATABLE.pID in (SELECT pdlPID FROM PDLTable WHERE (pdlShoInLoc<>0) and (pdlOffLocID=" + here + ")" +
         statements.Office() + ")))";
}

// Columns that most rows leave empty stand last. Sorted by the names themselves, not by their sum, so that an index on
// them gives the rows one by one.
ListDefinition PersonList(session::LookUpListTypes type, const Statements& statements,
                          const session::ListOptions& options) {
  const PersonKind kind = PersonKindOf(type);
  ListDefinition list;
  list.kind_key = kind.key;
  list.title = kind.title;
  list.window_texts = {kind.list_name, "ID Num", "Name", "[First Name]", "[Last Name]", "[ID Num]"};
  Sql condition = Sql("(") + kind.condition + ")";
  if (type == session::lulFamilyHead && options.family_head_including != 0) {
    condition = "(" + condition + " or PATABLE.pID = " + data::Literal(options.family_head_including) + ")";
  }
  list.sql = Sql("SELECT PATABLE.pLASNAM+', '+PATABLE.pFIRNAM AS Name, "
                 "PATABLE.pLASNAM AS [Last Name], PATABLE.pFIRNAM AS [First Name], ") +
             (type == session::lulFamilyHead ? Sql("PATABLE.pTTL") : Sql("PATABLE.pProTTL")) +
             " AS Title, PATABLE.pHOMPHO AS [Home Phone], PATABLE.pBUSPHO AS [Business Phone], "
             "PATABLE.pADD1 AS [Address 1], PATABLE.pCIT AS City, PATABLE.pSTA AS State, PATABLE.pZIP AS Zip, "
             "PATABLE.pID AS [ID Num], PATABLE.pHomCell AS [Cell Phone], PATABLE.pADD2 AS [Address 2] " +
             InsuranceColumn(statements, options) + "FROM PATABLE WHERE " + condition +
             statements.Office(" and (PATABLE.OfficeID = ", ") ");
  list.sort = Words("[Last Name], [First Name]");
  list.layout_key = kind.layout_key;
  list.hand_off_column = "pID";
  list.hand_off_table = "PaTable";
  list.at_location = PersonsAtLocation;
  return list;
}

ListDefinition InsuranceCompanyList(const Statements& statements) {
  ListDefinition list;
  list.title = "Insurance Company List";
  list.window_texts = {"InsCo", "ID Num", "Insurance Company", "[Insurance Company]", "[ID Num]"};
  list.sql = Sql("SELECT InsCoTable.InsCoNam AS [Insurance Company], InsCoTable.InsCoAccID AS [Payer ID], "
                 "ePayerTable.epNam AS [Electronic Payer], InsCoTable.InsCoAdd1 AS [Address 1], "
                 "InsCoTable.InsCoCit AS City, InsCoTable.InsCoSta AS State, InsCoTable.InsCoZip AS Zip, "
                 "InsCoTable.InsCoTel AS [Phone 1], InsCoTable.InsCoFax AS Fax, InsCoTable.InsCoInd AS [ID Num], "
                 "InsCoTable.InsCoAdd2 AS [Address 2], InsCoTable.InsCoTel2 AS [Phone 2] "
                 "FROM InsCoTable LEFT JOIN ePayerTable ON InsCoTable.epPayID = ePayerTable.epPayID") +
             statements.OfficeJoin(" and (InsCoTable.OfficeID = ePayerTable.OfficeID)") +
             " WHERE (InsCoTable.InsCoInd <> 0)" + statements.Office(" and (InsCoTable.OfficeID = ", ") ");
  list.sort = Words("[Insurance Company]");
  list.layout_key = "frmTGList_INSC";
  list.hand_off_column = "InsCoID";
  list.hand_off_table = "InsCoTable";
  return list;
}

ListDefinition PayerList(const Statements& statements) {
  ListDefinition list;
  list.title = "Electronic Payer List";
  list.window_texts = {"ePayer", "ID Num", "Electronic Payer", "[Electronic Payer]", "[ID Num]"};
  list.sql = Sql("SELECT ePayerTable.epNam AS [Electronic Payer], ePayerTable.epAddInf AS [Additional Information], "
                 "ePayerTable.epPayID AS [ID Num] FROM ePayerTable WHERE (ePayerTable.epPayID <> 0)") +
             statements.Office(" and (ePayerTable.OfficeID = ", ") ");
  list.sort = Words("[Electronic Payer]");
  list.layout_key = "frmTGList_EPAY";
  return list;
}

ListDefinition ServiceCodeList(const Statements& statements, std::string_view login) {
  ListDefinition list;
  list.title = "Service Code List";
  list.window_texts = {"ServiceCode", "ID Num", "Code", "[Code]", "[ID Num]"};
  list.sql = "SELECT SevCodCod AS [Code], SevCodDes AS [Description], SevCodID AS [ID Num] " +
             data::FromServiceCodes(statements, login);
  list.sort = Words("[Code]");
  list.layout_key = "frmTGList_SEVC";
  return list;
}

ListDefinition EmployerList(const Statements& statements, const session::ListOptions& options) {
  ListDefinition list;
  list.title = "Employer List";
  list.window_texts = {"Employer", "ID Num", "Employer Name", "[Employer Name]", "[ID Num]"};
  list.sql = Sql("SELECT EmpTable.EmpNam AS [Employer Name], EmpTable.EmpAdd1 AS [Address 1], "
                 "EmpTable.EmpCIT AS City, EmpTable.EmpSTA AS State, EmpTable.EmpZIP AS Zip, EmpTable.EmpTEL AS Phone, "
                 "EmpTable.EmpInd AS [ID Num], EmpTable.EmpAdd2 AS [Address 2] "
                 "FROM EmpTable WHERE (EmpTable.EmpInd <> 0)") +
             EmployersOfPatient(statements, options.employer_patient) +
             statements.Office(" and (EmpTable.OfficeID = ", ") ");
  list.sort = Words("[Employer Name]");
  list.layout_key = "frmTGList_EMPR";
  list.hand_off_column = "EmpInd";
  list.hand_off_table = "EmpTable";
  return list;
}

ListDefinition GroupPlanList(const Statements& statements, const session::ListOptions& options) {
  ListDefinition list;
  list.title = "Group Plan List";
  list.window_texts = {"GroupPlan",      "ID Num",      "Plan Name", "[Insurance Company]",
                       "[Group Number]", "[Plan Name]", "[ID Num]"};
  list.sql = Sql("SELECT InsCoTable.InsCoNam AS [Insurance Company], GroPlaTable.GroPlaNam AS [Plan Name], "
                 "GroPlaTable.GroPlaGroNum AS [Group Number], GroPlaTable.GroPlaCat AS Category, "
                 "GroPlaTable.GroPlaInd AS [ID Num] "
                 "FROM GroPlaTable LEFT JOIN InsCoTable ON GroPlaTable.GroPlaInsID = InsCoTable.InsCoInd") +
             statements.OfficeJoin(" and (GroPlaTable.OfficeID = InsCoTable.OfficeID)") +
             " WHERE (GroPlaTable.GroPlaInd <> 0)";
  if (options.group_plan_company != 0) {
    list.sql += " and (GroPlaTable.GroPlaInsID = " + data::Literal(options.group_plan_company) + ")";
  }
  list.sql += statements.Office(" and (GroPlaTable.OfficeID = ", ") ");
  list.sort = Words("[Insurance Company], [Plan Name]");
  list.layout_key = "frmTGList_GRPL";
  list.hand_off_column = "GroPlaInd";
  list.hand_off_table = "GroPlaTable";
  return list;
}

ListDefinition PharmacyList(const Statements& statements) {
  ListDefinition list;
  list.title = "Pharmacy List";
  list.window_texts = {"Pharmacy", "ID Num", "Pharmacy Name", "[Pharmacy Name]", "[ID Num]"};
  list.sql = Sql("SELECT PhaTable.PhaNam AS [Pharmacy Name], PhaTable.PhaAdd1 AS [Address 1], "
                 "PhaTable.PhaCit AS City, PhaTable.PhaSta AS State, PhaTable.PhaZip AS Zip, PhaTable.PhaTel AS Phone, "
                 "PhaTable.PhaFax AS Fax, PhaTable.PhaID AS [ID Num], PhaTable.PhaAdd2 AS [Address 2] "
                 "FROM PhaTable WHERE (PhaTable.PhaID <> 0)") +
             statements.Office(" and (PhaTable.OfficeID = ", ") ");
  list.sort = Words("[Pharmacy Name]");
  list.layout_key = "frmTGList_PHAR";
  list.hand_off_column = "PhaID";
  list.hand_off_table = "PhaTable";
  return list;
}

}  // namespace lookup
