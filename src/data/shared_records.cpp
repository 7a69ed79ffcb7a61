#include "data/shared_records.h"

#include <algorithm>
#include <vector>

#include "data/group_plans.h"
#include "data/literal.h"
#include "data/shared_record_texts.h"

namespace data {
namespace {

// Tells how many of so many steps are done.
class Meter {
 public:
  Meter(const std::function<void(double)>& progress, std::size_t steps)
      : progress_(progress), steps_(static_cast<double>(steps)) {}

  void Step() {
    ++done_;
    if (progress_) {
      progress_(done_ / steps_);
    }
  }

 private:
  const std::function<void(double)>& progress_;
  double steps_;
  double done_ = 0;
};

}  // namespace

int SharedRecords::Uses(SharedRecord kind, std::int32_t id) const {
  if (kind == SharedRecord::Pharmacy) {
    return session::ToId(statements_.SelectValue("SELECT DISTINCT Count(pID) FROM PATable WHERE (pPhaID=" +
                                                 Literal(id) + ")" + statements_.Office(" and (OfficeID = ", ") ")));
  }
  return session::ToId(statements_.SelectValue(
      "SELECT Count(PatEmpTable.PatEmpID) FROM " + HoldingsOnLinks(statements_) + " WHERE (ELTable." +
      LinkColumn(kind) + "=" + Literal(id) +
      ") AND (ELTable.elFla=0) AND ((PatEmpTable.PatEmpFla=0) OR "
      "(PatEmpTable.PatEmpFla=" +
      Literal(OrderedRows::kEnding) + "))" + statements_.Office(" and (ELTable.OfficeID = ", ") ")));
}

int SharedRecords::UsesOfPlans(std::int32_t carrier) const {
  return session::ToId(statements_.SelectValue(
      "SELECT Count(PatEmpTable.PatEmpID) FROM (" + HoldingsOnLinks(statements_) +
      ") INNER JOIN GroPlaTable ON ELTable.elGroID = GroPlaTable.GroPlaInd" +
      statements_.OfficeJoin(" and (ELTable.OfficeID = GroPlaTable.OfficeID) ") +
      " WHERE (GroPlaTable.GroPlaInsID=" + Literal(carrier) + ") AND (ELTable.elInsID<>" + Literal(carrier) +
      ") AND (ELTable.elFla=0) AND (PatEmpTable.PatEmpFla=0)" + statements_.Office(" and (ELTable.OfficeID = ", ") ")));
}

int SharedRecords::CoveragesOfCarrier(std::int32_t carrier) const {
  return session::ToId(statements_.SelectValue(
      "SELECT Count([CovTable].[CovID]) FROM (" + HoldingsOnLinks(statements_) +
      ") INNER JOIN CovTable ON PatEmpTable.PatEmpID = CovTable.CovSubPatEmpID" +
      statements_.OfficeJoin(" and (PatEmpTable.OfficeID = CovTable.OfficeID) ") + " WHERE (ELTable.elInsID=" +
      Literal(carrier) + ") AND (ELTable.elFla=0) AND (PatEmpTable.PatEmpFla=0) AND (CovTable.CovFla=0)" +
      statements_.Office(" and (ELTable.OfficeID = ", ") ")));
}

void SharedRecords::Replace(SharedRecord kind, std::int32_t old_id, std::int32_t new_id) const {
  if (old_id == new_id) {
    return;
  }
  if (!NameOf(session_, kind, new_id)) {
    throw session::DatabaseError("The record that was to take its place is not there any more.", {}, 0);
  }
  if (kind == SharedRecord::Pharmacy) {
    statements_.Execute("UPDATE PATable SET pPhaID=" + Literal(new_id) + " WHERE (pPhaID=" + Literal(old_id) + ")" +
                        statements_.Office(" and (OfficeID = ", ") "));
    return;
  }
  if (kind == SharedRecord::PlanLink) {
    MoveSubscribers(kind, old_id, new_id);
    return;
  }
  do {  // whoever came while others were moved
    MoveSubscribers(kind, old_id, new_id);
  } while (Uses(kind, old_id) > 0);
  links_.End(kind, old_id);
  if (kind == SharedRecord::Carrier) {
    MovePlans(old_id, new_id);
  }
}

std::vector<Holding> SharedRecords::HoldingsOn(const std::vector<PlanLink>& links) const {
  std::vector<Holding> holdings;
  for (const PlanLink& link : links) {
    const std::vector<Holding> more = holdings_.On(link.id);
    holdings.insert(holdings.end(), more.begin(), more.end());
  }
  return holdings;
}

bool SharedRecords::HoldsAnother(const Holding& holding, const std::vector<PlanLink>& links) const {
  return std::ranges::any_of(holdings_.Of(holding.subscriber), [&](const Holding& other) {
    return other.id != holding.id && std::ranges::find(links, other.link, &PlanLink::id) != links.end();
  });
}

// Persons' employers move first: while a subscriber is left the same command is offered again. A subscriber's entry is
// written with the last of his holdings: a replacement that stops before it is told by the one that finishes it.
void SharedRecords::MoveSubscribers(SharedRecord kind, std::int32_t old_id, std::int32_t new_id) const {
  session::LogEntry entry = ReplacedEntry(session_, kind, old_id, new_id);
  const std::vector<PlanLink> links = links_.Using(kind, old_id);
  Meter meter(Progress, links.size() + HoldingsOn(links).size());
  std::vector<std::int32_t> successors;
  for (const PlanLink& link : links) {
    successors.push_back(Successor(link, kind, new_id));
    if (successors.back() != link.id) {
      links_.MoveEmployersOfPersons(link.id, successors.back());
    }
    meter.Step();
  }
  for (std::size_t i = 0; i < links.size(); ++i) {
    if (successors[i] == links[i].id) {
      continue;
    }
    for (const Holding& holding : holdings_.On(links[i].id)) {
      holdings_.BeginToMove(holding.id, successors[i]);
      if (!HoldsAnother(holding, links)) {
        entry.person = holding.subscriber;
        session_.Log(entry);
      }
      holdings_.SetEnded(holding.id);
      meter.Step();
    }
  }
}

std::int32_t SharedRecords::Successor(const PlanLink& link, SharedRecord kind, std::int32_t new_id) const {
  PlanLink next = link;
  if (kind == SharedRecord::Employer) {
    next.employer = new_id;
  } else if (kind == SharedRecord::Carrier) {
    next.carrier = new_id;
  } else if (kind == SharedRecord::GroupPlan) {
    next.plan = new_id;
    if (const std::int32_t carrier = GroupPlans(session_).KeyOf(new_id).carrier; carrier != 0) {
      next.carrier = carrier;
    }
  } else if (const auto taken = links_.Get(new_id)) {
    if (taken->live && taken->employer == link.employer) {
      return new_id;
    }
    next.carrier = taken->carrier;
    next.plan = taken->plan;
  }
  return links_.Open(next.employer, next.carrier, next.plan, link.start);
}

// Details that the new carrier has under a group number win over those of the old one.
void SharedRecords::MovePlans(std::int32_t old_carrier, std::int32_t new_carrier) const {
  const Sql office = statements_.Office(" and (OfficeID = ", ") ");
  statements_.Execute("UPDATE GroPlaTable SET GroPlaTable.GroPlaInsID=" + Literal(new_carrier) +
                      " WHERE (GroPlaTable.GroPlaInsID=" + Literal(old_carrier) + ")" + office);
  statements_.Execute("UPDATE IPTable SET IPInsCoID=" + Literal(new_carrier) +
                      " WHERE (IPInsCoID=" + Literal(old_carrier) +
                      ") AND (IPGroNum NOT IN (SELECT IPGroNum FROM IPTable WHERE (IPInsCoID=" + Literal(new_carrier) +
                      ") AND (IPGroNum IS NOT NULL)" + office + "))" + office);
}

void SharedRecords::Delete(SharedRecord kind, std::int32_t id) const {
  if (kind != SharedRecord::Pharmacy) {
    do {  // whoever came while others were removed
      RemoveSubscribers(kind, id);
    } while (Uses(kind, id) > 0);
    links_.End(kind, id);
  }
  switch (kind) {
    case SharedRecord::Employer:
      DeleteRows("EmpTable WHERE EmpInd=", id);
      break;
    case SharedRecord::GroupPlan:
      DeleteDetailsOf(id);
      DeleteRows("GroPlaTable WHERE GroPlaInd=", id);
      break;
    case SharedRecord::Carrier:
      DeleteRows("IPTable WHERE IPTable.IPInsCoID=", id);
      DeleteRows("InsCoTable WHERE InsCoInd=", id);
      DeleteRows("GroPlaTable WHERE GroPlaTable.GroPlaInsID=", id);
      break;
    case SharedRecord::Pharmacy:
      DeleteRows("PhaTable WHERE PhaID=", id);
      break;
    case SharedRecord::PlanLink:
      break;
  }
}

// Who loses his plan keeps his employer.
void SharedRecords::RemoveSubscribers(SharedRecord kind, std::int32_t id) const {
  session::LogEntry entry = DeletedEntry(session_, kind, id);
  const std::vector<PlanLink> links = links_.Using(kind, id);
  Meter meter(Progress, links.size() + HoldingsOn(links).size());
  for (const PlanLink& link : links) {
    for (const Holding& holding : holdings_.On(link.id)) {
      holdings_.BeginToRemove(holding.id);
      entry.person = holding.subscriber;
      session_.Log(entry);
      holdings_.SetEnded(holding.id);
      meter.Step();
    }
    const bool employer_goes = kind == SharedRecord::Employer || link.IsNone();
    links_.MoveEmployersOfPersons(link.id, employer_goes ? 0 : links_.OpenNone(link.employer));
    meter.Step();
  }
}

// Plans may share them.
void SharedRecords::DeleteDetailsOf(std::int32_t plan) const {
  const GroupPlans plans(session_);
  const PlanKey details = plans.KeyOf(plan);
  if (details.IsOfCarrier() && !plans.AnotherUses(details, plan)) {
    DeletePlanDetails(details.carrier, details.group_number);
  }
}

void SharedRecords::DeletePlanDetails(std::int32_t carrier, std::string_view group_number) const {
  statements_.Execute("DELETE * FROM IPTable WHERE (((IPTable.IPInsCoID)=" + Literal(carrier) +
                      ") AND ((IPTable.IPGroNum)=" + Literal(group_number) + "))" +
                      statements_.Office(" and (OfficeID = ", ") "));
}

void SharedRecords::DeleteRows(Words from, std::int32_t id) const {
  statements_.Execute(Sql("DELETE * FROM ") + from + Literal(id) + statements_.Office(" and (OfficeID = ", ") "));
}

}  // namespace data
