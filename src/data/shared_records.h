#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "data/holdings.h"
#include "data/plan_links.h"
#include "data/shared_record.h"
#include "data/statements.h"

namespace data {

// Counts who uses a shared record, puts another in its place everywhere, and deletes it with every link that runs
// through it. No transaction encloses the statements: the same call finishes what a failed one has left. Every
// subscriber whose holding was moved or ended has an entry in his comment log. All throw session::DatabaseError.
class SharedRecords {
 public:
  explicit SharedRecords(session::Session& session)
      : session_(session), statements_(session), links_(session), holdings_(session) {}

  // Hears with every link and every subscriber which share of them, from 0 to 1, is done.
  std::function<void(double)> Progress;

  // Holdings of subscribers through live links, those that are ending too: they are still to be moved or removed. Of a
  // pharmacy its patients.
  int Uses(SharedRecord kind, std::int32_t id) const;
  // Holdings of the carrier's plans through another carrier's links, which a stopped replacement leaves: with the
  // carrier they would lose their plan.
  int UsesOfPlans(std::int32_t carrier) const;
  // Live coverages through live holdings on the carrier's live links.
  int CoveragesOfCarrier(std::int32_t carrier) const;
  // The old record stays, connected to nobody. A live link of the same employer, carrier and plan is used again. A
  // subscriber who would hold one link twice keeps one holding in the earlier place, and a patient who would be covered
  // through it twice the earlier coverage. For a plan link the new one tells the plan; its employer may be another.
  void Replace(SharedRecord kind, std::int32_t old_id, std::int32_t new_id) const;
  void Delete(SharedRecord kind, std::int32_t id) const;
  void DeletePlanDetails(std::int32_t carrier, std::string_view group_number) const;

 private:
  std::vector<Holding> HoldingsOn(const std::vector<PlanLink>& links) const;
  // Whether the subscriber has another holding on one of the links.
  bool HoldsAnother(const Holding& holding, const std::vector<PlanLink>& links) const;
  void MoveSubscribers(SharedRecord kind, std::int32_t old_id, std::int32_t new_id) const;
  // The live link that takes the place of one that uses a record; made where there is none.
  std::int32_t Successor(const PlanLink& link, SharedRecord kind, std::int32_t new_id) const;
  void MovePlans(std::int32_t old_carrier, std::int32_t new_carrier) const;
  void RemoveSubscribers(SharedRecord kind, std::int32_t id) const;
  void DeleteDetailsOf(std::int32_t plan) const;
  void DeleteRows(Words from, std::int32_t id) const;

  session::Session& session_;
  Statements statements_;
  PlanLinks links_;
  Holdings holdings_;
};

}  // namespace data
