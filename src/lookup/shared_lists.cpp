#include "lookup/shared_lists.h"

#include <stdexcept>

#include "data/literal.h"
#include "lookup/delete_person.h"
#include "lookup/delete_shared_record.h"

namespace lookup {
namespace {

using data::Sql;
using data::Statements;
using data::Words;
using session::RecordKind;

struct PersonKind {
  const char* key = nullptr;
  RecordKind edits = {};
  const char* title = nullptr;
  const char* list_name = nullptr;
  const char* layout_key = nullptr;
  Words condition;
  DeleteFlow deletes = nullptr;
};

// Compared for equality, which an index on the flag answers at once in a practice of any size.
constexpr Words kProviders = "(PATABLE.pTypDoc='1') OR (PATABLE.pTypDoc='2')";
constexpr Words kPhysicians = "(PATABLE.pTypPhy='1') OR (PATABLE.pTypPhy='2')";
constexpr Words kReferrals = "(PATABLE.pTypRef='1') OR (PATABLE.pTypRef='2')";
// Patients are referred in by referral sources and out to physicians.
constexpr Words kReferredInOrOut =
    "(PATABLE.pTypPhy='1') OR (PATABLE.pTypPhy='2') OR (PATABLE.pTypRef='1') OR (PATABLE.pTypRef='2')";
constexpr Words kFamilyHeads =
    "(PATABLE.pFAMHEAIND = PATABLE.pID or PATABLE.pFAMHEAIND is Null or PATABLE.pFAMHEAIND = 0) and "
    "PATABLE.pTypPat >= '1'";

PersonKind PersonKindOf(session::LookUpListTypes type) {
  switch (type) {
    case session::lulProvider:
      return {"pTypDoc",        RecordKind::Provider, "Provider List", "Provider",
              "frmTGList_PROV", kProviders,           DeleteProvider};
    case session::lulPhysician1:
      return {"pTypPhy1", RecordKind::Physician1, "Physician List", "Physician1", "frmTGList_PHY1", kPhysicians};
    case session::lulPhysician2:
      return {"pTypPhy2", RecordKind::Physician2, "Physician List", "Physician2", "frmTGList_PHY2", kPhysicians};
    case session::lulReferInOut:
      return {"pTypPhyRefOut", RecordKind::ReferInOut, "Refer In/Out List",
              "ReferInOut",    "frmTGList_RFIO",       kReferredInOrOut};
    case session::lulReferral:
      return {"pTypRef", RecordKind::Referral, "Referred By List", "Referral", "frmTGList_REFE", kReferrals};
    case session::lulFamilyHead:
      return {"pTypPat",    RecordKind::FamilyMember, "Family Head List", "FamilyHead", "frmTGList_FAMH",
              kFamilyHeads, DeleteFamilyHead};
    default:
      throw std::out_of_range("no list of persons");
  }
}

void AddDelete(ListDefinition& list, const session::ListOptions& options) {
  if (options.allow_delete) {
    list.window_texts.emplace_back("Delete");
  }
}

}  // namespace

// Columns that most rows leave empty stand last. Sorted by the names themselves, not by their sum, so that an index on
// them gives the rows one by one.
ListDefinition PersonList(session::LookUpListTypes type, const Statements& statements,
                          const session::ListOptions& options) {
  const PersonKind kind = PersonKindOf(type);
  ListDefinition list;
  list.kind_key = kind.key;
  list.edits = kind.edits;
  list.deletes = kind.deletes;
  list.title = kind.title;
  list.window_texts = {kind.list_name, "ID Num", "Name", "[First Name]", "[Last Name]", "[ID Num]"};
  if (kind.deletes != nullptr) {
    AddDelete(list, options);
  }
  Sql condition = Sql("(") + kind.condition + ")";
  if (type == session::lulFamilyHead && options.family_head_including != 0) {
    condition = "(" + condition + " or PATABLE.pID = " + data::Literal(options.family_head_including) + ")";
  }
  list.sql = Sql("SELECT PATABLE.pLASNAM+', '+PATABLE.pFIRNAM AS Name, "
                 "PATABLE.pLASNAM AS [Last Name], PATABLE.pFIRNAM AS [First Name], ") +
             (type == session::lulFamilyHead ? Sql("PATABLE.pTTL") : Sql("PATABLE.pProTTL")) +
             " AS Title, PATABLE.pHOMPHO AS [Home Phone], PATABLE.pBUSPHO AS [Business Phone], "
             "PATABLE.pADD1 AS [Address 1], PATABLE.pCIT AS City, PATABLE.pSTA AS State, PATABLE.pZIP AS Zip, "
             "PATABLE.pID AS [ID Num], PATABLE.pHomCell AS [Cell Phone], PATABLE.pADD2 AS [Address 2] "
             "FROM PATABLE WHERE " +
             condition + statements.Office(" and (PATABLE.OfficeID = ", ") ");
  list.sort = Words("[Last Name], [First Name]");
  list.layout_key = kind.layout_key;
  list.hand_off_column = "pID";
  list.hand_off_table = "PaTable";
  return list;
}

ListDefinition InsuranceCompanyList(const Statements& statements, const session::ListOptions& options) {
  ListDefinition list;
  list.edits = RecordKind::Carrier;
  list.deletes = DeleteCarrier;
  list.title = "Insurance Company List";
  list.window_texts = {"InsCo", "ID Num", "Insurance Company", "[Insurance Company]", "[ID Num]"};
  AddDelete(list, options);
  list.sql = Sql("SELECT InsCoTable.InsCoNam AS [Insurance Company], InsCoTable.InsCoAdd1 AS [Address 1], "
                 "InsCoTable.InsCoCit AS City, InsCoTable.InsCoSta AS State, InsCoTable.InsCoZip AS Zip, "
                 "InsCoTable.InsCoTel AS [Phone 1], InsCoTable.InsCoFax AS Fax, InsCoTable.InsCoInd AS [ID Num], "
                 "InsCoTable.InsCoAccID AS [Payer ID], InsCoTable.InsCoAdd2 AS [Address 2], "
                 "InsCoTable.InsCoTel2 AS [Phone 2] "
                 "FROM InsCoTable WHERE (InsCoTable.InsCoInd <> 0)") +
             statements.Office(" and (InsCoTable.OfficeID = ", ") ");
  list.sort = Words("[Insurance Company]");
  list.layout_key = "frmTGList_INSC";
  list.hand_off_column = "InsCoID";
  list.hand_off_table = "InsCoTable";
  return list;
}

ListDefinition EmployerList(const Statements& statements, const session::ListOptions& options) {
  ListDefinition list;
  list.edits = RecordKind::Employer;
  list.deletes = DeleteEmployer;
  list.title = "Employer List";
  list.window_texts = {"Employer", "ID Num", "Employer Name", "[Employer Name]", "[ID Num]"};
  AddDelete(list, options);
  list.sql = Sql("SELECT EmpTable.EmpNam AS [Employer Name], EmpTable.EmpAdd1 AS [Address 1], "
                 "EmpTable.EmpCIT AS City, EmpTable.EmpSTA AS State, EmpTable.EmpZIP AS Zip, EmpTable.EmpTEL AS Phone, "
                 "EmpTable.EmpInd AS [ID Num], EmpTable.EmpAdd2 AS [Address 2] "
                 "FROM EmpTable WHERE (EmpTable.EmpInd <> 0)") +
             statements.Office(" and (EmpTable.OfficeID = ", ") ");
  list.sort = Words("[Employer Name]");
  list.layout_key = "frmTGList_EMPR";
  list.hand_off_column = "EmpInd";
  list.hand_off_table = "EmpTable";
  return list;
}

ListDefinition GroupPlanList(const Statements& statements, const session::ListOptions& options) {
  ListDefinition list;
  list.edits = RecordKind::GroupPlan;
  list.deletes = DeleteGroupPlan;
  list.title = "Group Plan List";
  list.window_texts = {"GroupPlan",      "ID Num",      "Plan Name", "[Insurance Company]",
                       "[Group Number]", "[Plan Name]", "[ID Num]"};
  AddDelete(list, options);
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

ListDefinition PharmacyList(const Statements& statements, const session::ListOptions& options) {
  ListDefinition list;
  list.edits = RecordKind::Pharmacy;
  list.deletes = DeletePharmacy;
  list.title = "Pharmacy List";
  list.window_texts = {"Pharmacy", "ID Num", "Pharmacy Name", "[Pharmacy Name]", "[ID Num]"};
  AddDelete(list, options);
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
