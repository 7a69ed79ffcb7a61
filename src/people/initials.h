#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "editing/rules.h"
#include "forms/text_box.h"

namespace people {

// The initials by which the office's lists and records name who did something: no two of its persons have the same.
// All throw session::DatabaseError.
class Initials : private editing::Rules {
 public:
  // The screen that asks, by whose wording.
  enum class Asks { Employee, Provider };

  Initials(const session::ScreenContext& context, forms::TextBox& box, Asks asks)
      : Rules(context), box_(box), asks_(asks) {}

  // Before a save: false when somebody else has what is in the box: the person is told, and the focus is there.
  bool Free(std::int32_t person) const;
  // Offers those of a name; true when they are wanted, and stand in the box.
  bool Offer(std::int32_t person, std::string_view last, std::string_view first);
  // After the person is written: the same by his stored name, where he has none.
  bool Propose(std::int32_t person);
  // What stands in the box.
  void Store(std::int32_t person) const;

 private:
  // First letters of first and last name, with a number behind them where others have those.
  std::string Default(std::int32_t person, std::string_view last, std::string_view first) const;

  forms::TextBox& box_;
  Asks asks_;
};

}  // namespace people
