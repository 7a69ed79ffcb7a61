#include "data/group_plans.h"

#include "data/literal.h"

namespace data {
namespace {

Sql DetailsOf(const PlanDetailsKey& details) {
  return "(IPInsCoID=" + Literal(details.carrier) + ") AND (IPGroNum=" + Literal(details.group_number) + ")";
}

bool Counted(const Statements& statements, const Sql& count) {
  return session::ToId(statements.SelectValue(count + statements.Office())) > 0;
}

}  // namespace

PlanDetailsKey GroupPlans::KeyOf(std::int32_t plan) const {
  const auto row =
      statements_.Select("SELECT GroPlaInsID, GroPlaGroNum FROM GroPlaTable WHERE (GroPlaInd=" + Literal(plan) + ")" +
                         statements_.Office());
  return row->Eof() ? PlanDetailsKey()
                    : PlanDetailsKey{session::ToId(row->Get(std::size_t{0})), session::ToText(row->Get(1))};
}

bool GroupPlans::IsTaken(std::string_view group_number, std::string_view name, std::int32_t except) const {
  return Counted(
      statements_,
      "SELECT Count(GroPlaInd) FROM GroPlaTable WHERE (GroPlaGroNum=" + Literal(group_number) + ") AND " +
          (name.empty() ? Sql("((GroPlaNam IS NULL) OR (GroPlaNam=''))") : "(GroPlaNam=" + Literal(name) + ")") +
          " AND (GroPlaInd<>" + Literal(except) + ")");
}

bool GroupPlans::AnotherUses(const PlanDetailsKey& details, std::int32_t except) const {
  return Counted(statements_, "SELECT Count(GroPlaInd) FROM GroPlaTable WHERE (GroPlaInsID=" +
                                  Literal(details.carrier) + ") AND (GroPlaGroNum=" + Literal(details.group_number) +
                                  ") AND (GroPlaInd<>" + Literal(except) + ")");
}

bool GroupPlans::HasDetails(const PlanDetailsKey& details) const {
  return Counted(statements_, "SELECT Count(IPRecNum) FROM IPTable WHERE " + DetailsOf(details));
}

void GroupPlans::Follow(std::int32_t plan, const PlanDetailsKey& from) const {
  const PlanDetailsKey to = KeyOf(plan);
  if (to.carrier != from.carrier) {
    statements_.Execute("UPDATE ELTable SET elInsID=" + Literal(to.carrier) + " WHERE (elGroID=" + Literal(plan) +
                        ") AND (elFla=0)" + statements_.Office());
  }
  if (to != from && from.HasDetails() && to.HasDetails() && !AnotherUses(from, plan) && !HasDetails(to)) {
    statements_.Execute("UPDATE IPTable SET IPInsCoID=" + Literal(to.carrier) +
                        ", IPGroNum=" + Literal(to.group_number) + " WHERE " + DetailsOf(from) + statements_.Office());
  }
}

}  // namespace data
