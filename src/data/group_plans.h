#pragma once

#include <cstdint>
#include <string_view>

#include "data/plan_details.h"
#include "data/statements.h"

namespace data {

// What becomes of a plan's details when its carrier or number changes.
enum class DetailsMove {
  None,    // there is nothing to move, or nowhere to move it
  Along,   // they come along
  Shared,  // another plan uses them, and they stay
  There    // some stand already where the plan goes, and it uses those
};

// Group plans, and what hangs on their carrier and group number. All throw session::DatabaseError.
class GroupPlans {
 public:
  explicit GroupPlans(session::Session& session) : session_(session), statements_(session) {}

  // As it is stored; that of a plan that is not there has no details.
  PlanKey KeyOf(std::int32_t plan) const;
  // Another plan of the office has both. No name is as good as an empty one.
  bool IsTaken(std::string_view group_number, std::string_view name, std::int32_t except) const;
  bool AnotherUses(const PlanKey& details, std::int32_t except) const;
  DetailsMove MoveOf(std::int32_t plan, const PlanKey& from, const PlanKey& to) const;
  // After a plan's row was written, in the same transaction: its live links name its carrier, which the subscribers'
  // comment logs are told, its details follow from where they were, and have the name of a renamed plan unless another
  // one uses them.
  void Follow(std::int32_t plan, const PlanKey& from, bool renamed) const;

 private:
  bool HasDetails(const PlanKey& details) const;
  void MoveLinks(std::int32_t plan, std::int32_t carrier) const;

  session::Session& session_;
  Statements statements_;
};

}  // namespace data
