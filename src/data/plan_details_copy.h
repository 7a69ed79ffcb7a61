#pragma once

#include <string>
#include <utility>

#include "data/plan_details.h"
#include "data/statements.h"

namespace data {

// Copies the coverage details of one plan to another. All throw session::DatabaseError; what changes rows belongs in a
// transaction with the questions before it.
class PlanDetailsCopy {
 public:
  // The primary and the secondary coverage's.
  enum class Part { Fees, Maximums, Percents };

  PlanDetailsCopy(session::Database& database, PlanKey from, PlanKey to)
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
  PlanKey from_;
  PlanKey to_;
};

}  // namespace data
