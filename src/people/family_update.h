#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "editing/record_hold.h"
#include "editing/rules.h"

namespace people {

// What a family shares, as its head is saved with something new: the address and the home phone. His members take it
// over, as far as the person at the screen wants it.
class FamilyUpdate : private editing::Rules {
 public:
  using Rules::Rules;

  // A column that members share with the head, and its new value.
  struct Shared {
    data::Words column;
    std::string value;
  };

  // A member of whom something changes.
  struct Member {
    std::int32_t id = 0;
    std::string name;
    data::Assignments values;
  };
  // The members who are to be written, held for as long as it lives. None where the person wants none.
  struct Plan {
    std::vector<Member> members = {};
    std::deque<editing::RecordHold> holds = {};
  };

  // Asks about the members from whom the changes differ. Throws editing::Refusal when another user holds one of them,
  // and session::DatabaseError.
  Plan Offer(std::int32_t head, const std::vector<Shared>& changes) const;
  // In the transaction of the head's own row. Throws session::DatabaseError.
  void Write(const Plan& plan) const;
  // To the host, once they are written.
  void HandOff(const Plan& plan) const;

 private:
  // A home phone that another contact hides changes all the same.
  std::vector<Member> Differing(std::int32_t head, const std::vector<Shared>& changes) const;
};

}  // namespace people
