#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace host::demo {

// What plans cover alike: a row of the office's global plan.
struct ProcedureCategory {
  std::string_view code;
  std::string_view name;  // may be empty
  int coverage;           // percent
  bool deductible;        // applies
};

inline constexpr std::array<ProcedureCategory, 15> kProcedureCategories = {{
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

// A service that the office charges, by a code of its own.
struct Service {
  std::string code;
  std::string description;
  std::string_view category;  // its name
  int fee;                    // dollars
};

// Several hundred: the customary ones, then those that they are put together from by category.
inline constexpr std::size_t kCustomaryServices = 16;
const std::vector<Service>& Services();

// Throws std::out_of_range for a name that no category has.
const ProcedureCategory& CategoryOf(const Service& service);

}  // namespace host::demo
