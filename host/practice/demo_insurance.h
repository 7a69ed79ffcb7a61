#pragma once

#include <cstdint>
#include <vector>

#include "practice/demo_office.h"

namespace host::demo {

struct Employer {
  std::int32_t no_coverage_link = 0;
  std::vector<std::int32_t> plan_links;  // may be empty
};

struct Insurance {
  std::vector<Employer> employers;
  std::vector<std::int32_t> pharmacies;
};

// Payers, carriers, group plans with details, employers with their links, pharmacies, service codes.
Insurance MakeInsurance(DemoOffice& office, std::int32_t patients, std::int32_t location);

}  // namespace host::demo
