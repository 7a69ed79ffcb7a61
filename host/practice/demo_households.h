#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "practice/demo_office.h"

namespace host::demo {

// What tells one household from the next: how old its members are, whom its head could be taken for, how it pays.
class HouseholdMaker {
 public:
  // A patient's relationship to the head.
  enum class Relation : std::int32_t { Self = 1, Spouse = 2, Child = 3, Other = 4 };

  HouseholdMaker(DemoOffice& office, const std::vector<std::int32_t>& locations)
      : office_(office), locations_(locations) {}

  // Now and then the next head is called like the last one, or so that it sounds the same as an earlier one.
  struct Name {
    std::string_view last;
    bool woman;
  };
  Name NextName(std::string_view last, bool woman);
  // What a head has besides his name and age. `Head` is called once for each household, behind `NextName`.
  void Head(Person& head, bool alone);

  struct Dependent {
    Relation relation = Relation::Child;
    int age = 0;
  };
  // A child of the head, younger or older than `age` in some households; or the head's mother or father.
  Dependent MakeDependent(int age, int head_age, bool may_be_parent);

  // Some households are displayed at a second location.
  void Display(const std::vector<std::int32_t>& members, std::int32_t location);
  void Flush() { displays_.Flush(); }

 private:
  DemoOffice& office_;
  const std::vector<std::int32_t>& locations_;
  TableWriter displays_ = office_.Writer("PDLTable", "pdlID, pdlPID, pdlOffLocID, pdlShoInLoc");
  int made_ = 0;
  Person last_head_;
  Person last_respelled_;  // the last head whose name is also spelled another way
};

}  // namespace host::demo
