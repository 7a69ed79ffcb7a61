#include "data/group_plans.h"

#include <set>

#include "data/holdings.h"
#include "data/literal.h"
#include "data/plan_links.h"
#include "data/shared_record_texts.h"
#include "forms/text.h"

namespace data {
namespace {

// Statements do not regard the case of a number.
bool Same(const PlanKey& left, const PlanKey& right) {
  return left.carrier == right.carrier && forms::EqualsIgnoringCase(left.group_number, right.group_number);
}

Sql DetailsOf(const PlanKey& details) {
  return "(IPInsCoID=" + Literal(details.carrier) + ") AND (IPGroNum=" + Literal(details.group_number) + ")";
}

bool Counted(const Statements& statements, const Sql& count) {
  return session::ToId(statements.SelectValue(count + statements.Office())) > 0;
}

}  // namespace

PlanKey GroupPlans::KeyOf(std::int32_t plan) const {
  return ReadGroupPlan(session_, plan).value_or(GroupPlan()).key;
}

bool GroupPlans::IsTaken(std::string_view group_number, std::string_view name, std::int32_t except) const {
  return Counted(
      statements_,
      "SELECT Count(GroPlaInd) FROM GroPlaTable WHERE (GroPlaGroNum=" + Literal(group_number) + ") AND " +
          (name.empty() ? Sql("((GroPlaNam IS NULL) OR (GroPlaNam=''))") : "(GroPlaNam=" + Literal(name) + ")") +
          " AND (GroPlaInd<>" + Literal(except) + ")");
}

bool GroupPlans::AnotherUses(const PlanKey& details, std::int32_t except) const {
  return Counted(statements_, "SELECT Count(GroPlaInd) FROM GroPlaTable WHERE (GroPlaInsID=" +
                                  Literal(details.carrier) + ") AND (GroPlaGroNum=" + Literal(details.group_number) +
                                  ") AND (GroPlaInd<>" + Literal(except) + ")");
}

bool GroupPlans::HasDetails(const PlanKey& details) const {
  return Counted(statements_, "SELECT Count(IPRecNum) FROM IPTable WHERE " + DetailsOf(details));
}

DetailsMove GroupPlans::MoveOf(std::int32_t plan, const PlanKey& from, const PlanKey& to) const {
  if (Same(from, to) || !to.IsOfCarrier()) {
    return DetailsMove::None;
  }
  if (HasDetails(to)) {
    return DetailsMove::There;
  }
  if (!from.IsOfCarrier() || !HasDetails(from)) {
    return DetailsMove::None;
  }
  return AnotherUses(from, plan) ? DetailsMove::Shared : DetailsMove::Along;
}

void GroupPlans::Follow(std::int32_t plan, const PlanKey& from, bool renamed) const {
  const PlanKey to = KeyOf(plan);
  if (to.carrier != from.carrier) {
    MoveLinks(plan, to.carrier);
  }
  if (MoveOf(plan, from, to) == DetailsMove::Along) {
    statements_.Execute("UPDATE IPTable SET IPInsCoID=" + Literal(to.carrier) +
                        ", IPGroNum=" + Literal(to.group_number) + " WHERE " + DetailsOf(from) + statements_.Office());
  }
  if (renamed && to.IsOfCarrier() && !AnotherUses(to, plan)) {
    const std::string name = ReadGroupPlan(session_, plan).value_or(GroupPlan()).name;
    statements_.Execute("UPDATE IPTable SET IPPlaNam=" + (name.empty() ? Sql("Null") : Literal(name)) + " WHERE " +
                        DetailsOf(to) + statements_.Office());
  }
}

void GroupPlans::MoveLinks(std::int32_t plan, std::int32_t carrier) const {
  const Holdings holdings(session_);
  std::set<std::int32_t> told;
  for (const PlanLink& link : PlanLinks(session_).Using(SharedRecord::GroupPlan, plan)) {
    if (link.carrier == carrier) {
      continue;
    }
    session::LogEntry entry = ReplacedEntry(session_, SharedRecord::Carrier, link.carrier, carrier);
    for (const Holding& holding : holdings.On(link.id)) {
      if (told.insert(holding.subscriber).second) {
        entry.person = holding.subscriber;
        session_.Log(entry);
      }
    }
  }
  statements_.Execute("UPDATE ELTable SET elInsID=" + Literal(carrier) + " WHERE (elGroID=" + Literal(plan) +
                      ") AND (elFla=0)" + statements_.Office());
}

}  // namespace data
