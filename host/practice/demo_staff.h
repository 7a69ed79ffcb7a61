#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "practice/demo_office.h"

namespace host::demo {

// Whom an office's patients are treated and sent by, and where.
struct Staff {
  std::vector<std::int32_t> locations = {};
  std::vector<std::int32_t> providers = {};
  std::vector<std::string> provider_names = {};
  std::vector<std::int32_t> referrals = {};
  std::vector<std::int32_t> physicians = {};
};

// The hashes of the demo logins' passwords.
struct Passwords {
  std::string admin;
  std::string front;
};

// Locations, providers with their numbers, employees with pay, schedule and logins, referral sources, physicians.
Staff MakeStaff(DemoOffice& office, const Passwords& passwords, std::int32_t patients);

}  // namespace host::demo
