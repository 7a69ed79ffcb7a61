#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "editing/rules.h"
#include "forms/dates.h"
#include "forms/form.h"

namespace people {

// The last word before a new person is written: whether he is there already, under the same name and with the same
// birth date or none. The office's setting "DUP_PERSON_CHECK" turns it off by "FALSE".
class DuplicatePerson : private editing::Rules {
 public:
  struct Person {
    std::string last;
    std::string first;
    std::optional<forms::Date> birth = {};
  };

  explicit DuplicatePerson(const session::ScreenContext& context) : Rules(context) {}

  // False when he is not to be added: the person at the screen goes back to it, or the one who is there is to be opened
  // in its place, and the screen closes. Throws session::DatabaseError.
  bool MayAdd(forms::Form& screen, const Person& person);
  // The one to open in the screen's place; 0 for none.
  std::int32_t Instead() const { return instead_; }

 private:
  std::int32_t instead_ = 0;
};

}  // namespace people
