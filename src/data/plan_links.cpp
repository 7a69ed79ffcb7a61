#include "data/plan_links.h"

#include <stdexcept>

#include "data/employer_places.h"
#include "data/literal.h"

namespace data {
namespace {

Words SortOf(SharedRecord kind) {
  switch (kind) {
    case SharedRecord::Carrier:
      return "elGroID, elID";
    case SharedRecord::GroupPlan:
      return "elInsID, elID";
    default:
      return "elID";
  }
}

}  // namespace

Words LinkColumn(SharedRecord kind) {
  switch (kind) {
    case SharedRecord::Employer:
      return "elEmpID";
    case SharedRecord::Carrier:
      return "elInsID";
    case SharedRecord::GroupPlan:
      return "elGroID";
    case SharedRecord::PlanLink:
      return "elID";
    case SharedRecord::Pharmacy:
      break;
  }
  throw std::out_of_range("no link names a pharmacy");
}

Sql HoldingsOnLinks(const Statements& statements) {
  return Sql("ELTable INNER JOIN PatEmpTable ON ELTable.elID = PatEmpTable.PatEmpElID") +
         statements.OfficeJoin(" and (ELTable.OfficeID = PatEmpTable.OfficeID) ");
}

std::vector<PlanLink> PlanLinks::Using(SharedRecord kind, std::int32_t id) const {
  return Read(Sql("(") + LinkColumn(kind) + "=" + Literal(id) + ") AND (elFla=0)", SortOf(kind));
}

std::optional<PlanLink> PlanLinks::Get(std::int32_t link) const {
  const auto found = Read("(elID=" + Literal(link) + ")", Words("elID"));
  return found.empty() ? std::nullopt : std::optional(found.front());
}

std::vector<PlanLink> PlanLinks::Read(const Sql& condition, const Sql& sort) const {
  std::vector<PlanLink> links;
  for (const auto row =
           statements_.Select("SELECT elID, elEmpID, elInsID, elGroID, elStaDat, elFla FROM ELTable WHERE " +
                              condition + statements_.Office(" and (ELTable.OfficeID = ", ") ") + " ORDER BY " + sort);
       !row->Eof(); row->MoveNext()) {
    const auto number = [&](std::size_t field) { return session::ToId(row->Get(field)); };
    links.push_back({number(0), number(1), number(2), number(3), row->Get(4), number(5) == 0});
  }
  return links;
}

LinkNames PlanLinks::NamesOf(std::int32_t link) const {
  const auto row = statements_.Select(
      Sql("SELECT EmpTable.EmpNam, InsCoTable.InsCoNam, GroPlaTable.GroPlaGroNum FROM ((ELTable LEFT JOIN EmpTable ON "
          "ELTable.elEmpID = EmpTable.EmpInd") +
      statements_.OfficeJoin(" and (ELTable.OfficeID = EmpTable.OfficeID) ") +
      ") LEFT JOIN InsCoTable ON ELTable.elInsID = InsCoTable.InsCoInd" +
      statements_.OfficeJoin(" and (ELTable.OfficeID = InsCoTable.OfficeID) ") +
      ") LEFT JOIN GroPlaTable ON ELTable.elGroID = GroPlaTable.GroPlaInd" +
      statements_.OfficeJoin(" and (ELTable.OfficeID = GroPlaTable.OfficeID) ") +
      " WHERE (ELTable.elID=" + Literal(link) + ")" + statements_.Office(" and (ELTable.OfficeID = ", ") "));
  if (row->Eof()) {
    return {};
  }
  return {session::ToText(row->Get(0)), session::ToText(row->Get(1)), session::ToText(row->Get(2))};
}

std::int32_t PlanLinks::Open(std::int32_t employer, std::int32_t carrier, std::int32_t plan,
                             const session::Value& start) const {
  const auto found = Read("(elEmpID=" + Literal(employer) + ") AND (elInsID=" + Literal(carrier) +
                              ") AND (elGroID=" + Literal(plan) + ") AND (elFla=0)",
                          Words("elID"));
  return !found.empty() ? found.front().id
                        : statements_.Insert("ELTable", {{"elEmpID", Literal(employer)},
                                                         {"elInsID", Literal(carrier)},
                                                         {"elGroID", Literal(plan)},
                                                         {"elStaDat", ValueLiteral(start)},
                                                         {"elEndDat", "NULL"},
                                                         {"elFla", "0"}});
}

std::int32_t PlanLinks::OpenNone(std::int32_t employer) const {
  return Open(employer, 0, 0, forms::AtMidnight(session_.Today()));
}

void PlanLinks::End(SharedRecord kind, std::int32_t id) const {
  statements_.Execute("UPDATE elTable SET elEndDat=" + Literal(session_.Today()) +
                      ", elEndWho=" + Literal(session_.UserName()) + ", elFla=1 WHERE (" + LinkColumn(kind) + "=" +
                      Literal(id) + ") AND (elFla=0)" + statements_.Office(" and (OfficeID = ", ") "));
}

void PlanLinks::MoveEmployersOfPersons(std::int32_t from_link, std::int32_t to_link) const {
  for (const Words slot : kEmployerPlaces) {
    statements_.Execute(Sql("UPDATE PATable SET ") + slot + "=" + Literal(to_link) + " WHERE (" + slot + "=" +
                        Literal(from_link) + ")" + statements_.Office(" and (OfficeID = ", ") "));
  }
}

}  // namespace data
