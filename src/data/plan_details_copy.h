#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "data/statements.h"

namespace data {

// What the copying of details asks of a group plan's row; what is not there is empty.
struct GroupPlanFacts {
  std::string group_number;
  std::string name;
  std::string category;
};
// Nothing when there is no such plan. Throws session::DatabaseError.
std::optional<GroupPlanFacts> ReadGroupPlanFacts(session::Database& database, std::int32_t plan);

// Copies the coverage details of one plan to another. Details know their plan by its carrier and group number. All
// throw session::DatabaseError; what changes rows belongs in a transaction with the questions before it.
class PlanDetailsCopy {
 public:
  struct Plan {
    std::int32_t carrier = 0;
    std::string group_number;
  };
  // The primary and the secondary coverage's.
  enum class Part { Fees, Maximums, Percents };

  PlanDetailsCopy(session::Database& database, Plan from, Plan to)
      : statements_(database), from_(std::move(from)), to_(std::move(to)) {}

  bool SourceHasDetails() const;
  // Whether a code, with its modifier, has details in both plans.
  bool ShareCodes() const;

  // Every row of the source in place of the target's, under the target's plan name.
  void CopyAll(const std::string& plan_name) const;
  // For the codes that both plans have.
  void Copy(Part part) const;

 private:
  // "IPTable INNER JOIN IPTable as IPFrom on ... WHERE ...": the target's rows and the source's rows of the same code.
  Sql Pairs() const;

  Statements statements_;
  Plan from_;
  Plan to_;
};

}  // namespace data
