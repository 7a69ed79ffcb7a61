#pragma once

#include <cstdint>
#include <string>
#include <vector>

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

  // Asks, and writes what differs to the members. Each of them is held while he is written, and handed to the host.
  // Throws editing::Refusal when another user holds one of them, and session::DatabaseError.
  void Offer(std::int32_t head, const std::vector<Shared>& changes) const;

 private:
  struct Member {
    std::int32_t id = 0;
    std::string name;
    data::Assignments values;
  };

  // The members of whom something changes. A home phone that another contact hides changes all the same.
  std::vector<Member> Differing(std::int32_t head, const std::vector<Shared>& changes) const;
};

}  // namespace people
