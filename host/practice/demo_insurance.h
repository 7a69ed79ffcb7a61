#pragma once

#include <cstdint>
#include <vector>

#include "practice/demo_office.h"

namespace host::demo {

// A plan that an employer offers or has offered.
struct Offer {
  std::int32_t link = 0;
  int maximum = 0;  // dollars a year
  int deductible = 0;
  int ended_days_ago = 0;  // 0 for a live one
};

struct Employer {
  std::int32_t no_coverage_link = 0;
  std::vector<Offer> offers;  // may be empty
};

struct Insurance {
  std::vector<Employer> employers;
  std::vector<Offer> second_jobs;  // of the employers with many plans, where nobody works in the first place
  std::vector<Offer> former;
  std::vector<std::int32_t> pharmacies;
};

// Payers, carriers, group plans with details, employers with their links, pharmacies, service codes.
Insurance MakeInsurance(DemoOffice& office, std::int32_t patients, std::int32_t location);

}  // namespace host::demo
