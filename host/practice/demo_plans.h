#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "practice/demo_office.h"

namespace host::demo {

inline constexpr std::string_view kManagedCare = "CAPITATION";

// A group plan as links and coverages need it.
struct Plan {
  std::int32_t id = 0;
  std::int32_t carrier = 0;
  std::string number;
  std::string name;
  std::string_view type = {};
  int maximum = 0;  // dollars a year
  int deductible = 0;

  bool Managed() const { return type == kManagedCare; }
};

// Group plans of every type, with every column filled that such a plan has.
class PlanMaker {
 public:
  explicit PlanMaker(DemoOffice& office);

  // What the carrier agreed with a group; all else follows.
  struct Agreed {
    std::int32_t carrier = 0;
    std::string number = {};
    std::string name = {};
    bool managed = false;
    std::string_view renewal = {};  // month and day
    int maximum = 0;
    int deductible = 0;
  };
  Plan Make(const Agreed& agreed);
  void Flush() { plans_.Flush(); }

 private:
  std::string_view NextType(bool managed);

  Random chance_;
  int unmanaged_ = 0;
  TableWriter plans_;
};

}  // namespace host::demo
