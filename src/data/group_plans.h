#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/statements.h"

namespace data {

// By what the coverage details of a plan are known, and shared by plans that have both alike.
struct PlanDetailsKey {
  std::int32_t carrier = 0;
  std::string group_number;

  // Without a carrier or a number there are none: those of carrier 0 are the office's own.
  bool HasDetails() const { return carrier != 0 && !group_number.empty(); }
  friend bool operator==(const PlanDetailsKey&, const PlanDetailsKey&) = default;
};

// Group plans, and what hangs on their carrier and group number. All throw session::DatabaseError.
class GroupPlans {
 public:
  explicit GroupPlans(session::Database& database) : statements_(database) {}

  // As it is stored; that of a plan that is not there has no details.
  PlanDetailsKey KeyOf(std::int32_t plan) const;
  // Another plan of the office has both. No name is as good as an empty one.
  bool IsTaken(std::string_view group_number, std::string_view name, std::int32_t except) const;
  bool AnotherUses(const PlanDetailsKey& details, std::int32_t except) const;
  // After a plan's row was written, in the same transaction: its live links name its carrier, and its details come
  // along from where they were, unless another plan uses those, or there are details where it is now.
  void Follow(std::int32_t plan, const PlanDetailsKey& from) const;

 private:
  bool HasDetails(const PlanDetailsKey& details) const;

  Statements statements_;
};

}  // namespace data
