#include "insurance/patient_coverages.h"

#include <algorithm>
#include <iterator>

#include "data/family_members.h"
#include "data/literal.h"
#include "data/persons.h"

namespace insurance {
namespace {

using data::Literal;
using data::Sql;

// Employer, carrier and plan of the link, joined to what is there before.
Sql JoinNames(const data::Statements& statements, const Sql& from) {
  return "(((" + from + ") LEFT JOIN EmpTable ON ELTable.elEmpID = EmpTable.EmpInd" +
         statements.OfficeJoin(" and (ELTable.OfficeID = EmpTable.OfficeID) ") +
         ") LEFT JOIN InsCoTable ON ELTable.elInsID = InsCoTable.InsCoInd" +
         statements.OfficeJoin(" and (ELTable.OfficeID = InsCoTable.OfficeID) ") +
         ") LEFT JOIN GroPlaTable ON ELTable.elGroID = GroPlaTable.GroPlaInd" +
         statements.OfficeJoin(" and (ELTable.OfficeID = GroPlaTable.OfficeID) ");
}

Sql ListOf(const std::vector<std::int32_t>& ids) {
  Sql list;
  for (const std::int32_t id : ids) {
    list += (list.Empty() ? Sql() : Sql(", ")) + Literal(id);
  }
  return list;
}

}  // namespace

const std::vector<forms::ListItem>& Relationships() {
  static const std::vector<forms::ListItem> relationships = {{"Self", kSelf},
                                                             {"Spouse", 2},
                                                             {"Child", 3},
                                                             {"Other", 4},
                                                             {"Employee", 20},
                                                             {"Unknown", 21},
                                                             {"Handicapped Dependent", 22},
                                                             {"Significant Other", 29},
                                                             {"Injured Plaintiff", 41},
                                                             {"Life Partner", 53},
                                                             {"Dependent", 76}};
  return relationships;
}

std::string RelationshipName(std::int32_t code) {
  const auto found = std::ranges::find(Relationships(), code, &forms::ListItem::data);
  return found != Relationships().end() ? found->text : code == 0 ? std::string() : std::to_string(code);
}

std::int32_t RelationshipCode(std::string_view name) {
  const auto found = std::ranges::find(Relationships(), name, &forms::ListItem::text);
  return found != Relationships().end() ? found->data : 0;
}

data::Sql CoverageRows(const data::Statements& statements, std::int32_t patient) {
  return "SELECT PATable.pFIRNAM, PATable.pLASNAM, CovTable.CovRel, CovTable.CovInsCoPatID, PATable.pSSN, "
         "EmpTable.EmpNam, InsCoTable.InsCoNam, GroPlaTable.GroPlaGroNum, GroPlaTable.GroPlaNam, ELTable.elEmpID, "
         "ELTable.elInsID, ELTable.elGroID, CovTable.CovStaDat, CovTable.CovEndDat, PatEmpTable.PatEmpElID, "
         "CovTable.CovID, PatEmpTable.PatEmpPatID, CovTable.CovSubPatEmpID, CovTable.CovOrd FROM (" +
         JoinNames(statements,
                   Sql("(CovTable LEFT JOIN PatEmpTable ON CovTable.CovSubPatEmpID = PatEmpTable.PatEmpID") +
                       statements.OfficeJoin(" and (CovTable.OfficeID = PatEmpTable.OfficeID) ") +
                       ") LEFT JOIN ELTable ON PatEmpTable.PatEmpElID = ELTable.elID" +
                       statements.OfficeJoin(" and (PatEmpTable.OfficeID = ELTable.OfficeID) ")) +
         ") LEFT JOIN PATable ON PatEmpTable.PatEmpPatID = PATable.pID" +
         statements.OfficeJoin(" and (PatEmpTable.OfficeID = PATable.OfficeID) ") +
         " WHERE (CovTable.CovPatID=" + Literal(patient) + ") AND (CovTable.CovFla=0)" +
         statements.Office(" and (CovTable.OfficeID = ", ") ") + " ORDER BY CovTable.CovOrd, CovTable.CovID";
}

std::vector<FamilyMember> FamilyOf(const data::Statements& statements, std::int32_t patient) {
  std::vector<FamilyMember> family;
  for (const auto row = statements.Select("SELECT pID, pFIRNAM, pLASNAM FROM PATable WHERE (pID IN (" +
                                          ListOf(data::FamilyMembers(statements, patient)) + "))" +
                                          statements.Office() + " ORDER BY pID");
       !row->Eof(); row->MoveNext()) {
    const FamilyMember member = {session::ToId(row->Get(0)), data::FirstLast(row->Get(1), row->Get(2))};
    family.insert(member.id == patient ? family.begin() : family.end(), member);
  }
  return family;
}

// An employer's link for no insurance coverage is no plan.
std::vector<HeldPlan> PlansOf(const data::Statements& statements, const std::vector<FamilyMember>& family) {
  std::vector<HeldPlan> plans;
  if (family.empty()) {
    return plans;
  }
  std::vector<std::int32_t> members;
  std::ranges::transform(family, std::back_inserter(members), &FamilyMember::id);
  for (const auto row = statements.Select(
           "SELECT PatEmpTable.PatEmpID, PatEmpTable.PatEmpPatID, PatEmpTable.PatEmpElID, EmpTable.EmpNam, "
           "InsCoTable.InsCoNam, GroPlaTable.GroPlaGroNum, GroPlaTable.GroPlaNam FROM (" +
           JoinNames(statements, Sql("PatEmpTable INNER JOIN ELTable ON PatEmpTable.PatEmpElID = ELTable.elID") +
                                     statements.OfficeJoin(" and (PatEmpTable.OfficeID = ELTable.OfficeID) ")) +
           ") WHERE (PatEmpTable.PatEmpPatID IN (" + ListOf(members) +
           ")) AND (PatEmpTable.PatEmpFla=0) AND (ELTable.elFla=0) AND ((ELTable.elInsID<>0) OR (ELTable.elGroID<>0))" +
           statements.Office(" and (PatEmpTable.OfficeID = ", ") ") +
           " ORDER BY PatEmpTable.PatEmpPatID, PatEmpTable.PatEmpOrd, PatEmpTable.PatEmpID");
       !row->Eof(); row->MoveNext()) {
    HeldPlan held = {.holding = session::ToId(row->Get(0)),
                     .subscriber = session::ToId(row->Get(1)),
                     .link = session::ToId(row->Get(2))};
    held.subscriber_name = std::ranges::find(family, held.subscriber, &FamilyMember::id)->name;
    for (std::size_t field = 3; field <= 6; ++field) {
      const std::string name = session::ToText(row->Get(field));
      held.plan += (held.plan.empty() || name.empty() ? "" : ", ") + name;
    }
    plans.push_back(std::move(held));
  }
  return plans;
}

std::vector<std::string> ToldPlans(const std::vector<HeldPlan>& plans, std::string_view taken) {
  std::vector<std::string> told;
  for (const HeldPlan& held : plans) {
    const auto of_name = std::ranges::count(plans, held.subscriber_name, &HeldPlan::subscriber_name);
    const auto alike = std::ranges::count_if(plans, [&](const HeldPlan& other) {
      return other.subscriber_name == held.subscriber_name && other.plan == held.plan;
    });
    std::string text = held.subscriber_name;
    if (of_name > 1 || text == taken) {
      text += " - " + held.plan;
    }
    if (alike > 1) {
      text += " [" + std::to_string(held.holding) + "]";
    }
    told.push_back(std::move(text));
  }
  return told;
}

}  // namespace insurance
