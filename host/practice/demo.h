#pragma once

#include <cstdint>
#include <string>

#include "practice/logins.h"
#include "practice/practice.h"

namespace host {

struct DemoOptions {
  std::int32_t patients = 2000;  // in each office
  std::uint64_t seed = 1;
  PracticeOptions practice = {};
  HashCost password_cost = HashCost::Interactive;
};

// Makes a practice as it might be after some years of work: families, providers, employees with logins, employers and
// their plans, coverages, recalls, transactions. Rows follow from seed and size alone. "admin" with the password
// "admin" is a supervisor, "front" with "front" works at the front desk and may not change provider or referral names.
// Throws session::DatabaseError, also when there is a practice already.
Practice MakeDemo(const std::string& url, const DemoOptions& options);

// The same in the offices of a practice that is just being made.
void FillDemo(Practice& practice, const DemoOptions& options);

}  // namespace host
