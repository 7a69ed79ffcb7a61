#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/statements.h"
#include "session/session.h"

namespace data {

// The office's global plan, from which default coverage is taken. All throw session::DatabaseError.
class GlobalPlan {
 public:
  explicit GlobalPlan(session::Database& database) : database_(database), statements_(database) {}

  bool IsEmpty() const;
  // Gives an empty plan its default rows: all or, when anything is refused, none.
  void Reset() const;

  // What the plan covers of a code, in percent.
  struct Coverage {
    session::Value primary;
    session::Value secondary;
  };
  // By the row of the code, or else the nearest one below it; where there is none, the first one above. Nothing in an
  // empty plan.
  std::optional<Coverage> CoverageOf(std::string_view code) const;

 private:
  std::optional<std::string> NearestRow(std::string_view code) const;

  session::Database& database_;
  Statements statements_;
};

}  // namespace data
