#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/statements.h"
#include "session/session.h"

namespace data {

// What codes like this one are covered at by default.
struct GlobalPlanRow {
  std::string_view code;
  std::string_view description;  // may be empty
  std::int32_t coverage;         // percent
  bool deductible;               // applies
};

// Those of an office that has not changed them.
inline constexpr std::array<GlobalPlanRow, 15> kGlobalPlanRows = {{
    {"D1000", "Preventive", 100, false},
    {"D2000", "Restoration", 80, true},
    {"D3000", "Endodontics", 80, true},
    {"D4000", "Periodontics", 80, true},
    {"D5000", "Prosthodontics, RM", 50, true},
    {"D6000", "Prosthodontice, FX", 50, true},
    {"D7000", "Oral Surgery", 50, true},
    {"D8000", "Orthodontics", 50, true},
    {"D9000", "Adjunctive Gen. Serv.", 50, true},
    {"D0100", "Diagnostic", 100, false},
    {"D5900", "Maxillof.,Prosthetics", 50, true},
    {"D2700", "Crowns", 50, true},
    {"D0400", "", 100, false},
    {"D0300", "", 100, false},
    {"D0200", "X-Rays", 100, false},
}};

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
  // By the row of the code, or else the nearest one below it; where there is none, the first one above. A row without
  // a primary percentage leaves it to the next one. Nothing in an empty plan.
  std::optional<Coverage> CoverageOf(std::string_view code) const;

 private:
  // The codes of one statement's rows.
  std::vector<std::string> Codes(const Sql& rows) const;

  session::Database& database_;
  Statements statements_;
};

}  // namespace data
