#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/global_plan.h"

namespace host::demo {

// A service that the office charges, by a code of its own.
struct Service {
  std::string code;
  std::string description;
  std::string_view category;  // the description of one of the global plan's rows
  int fee;                    // dollars
};

// Several hundred: the customary ones, then those that they are put together from by category.
inline constexpr std::size_t kCustomaryServices = 16;
const std::vector<Service>& Services();

// The global plan's row of the service's category. Throws std::out_of_range where there is none.
const data::GlobalPlanRow& CategoryOf(const Service& service);

}  // namespace host::demo
