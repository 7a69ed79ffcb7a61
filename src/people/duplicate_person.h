#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "editing/rules.h"
#include "forms/dates.h"
#include "forms/form.h"

namespace people {

// The last word before a new person is written: whether he is there already, under the same name or one that sounds
// alike (forms/sounds_alike.h; a nickname is a first name as well), with the same birth date or with none on one side.
// The office's setting "DUP_PERSON_CHECK" turns it off by "FALSE".
class DuplicatePerson : private editing::Rules {
 public:
  struct Person {
    std::string last;
    std::string first;
    std::optional<forms::Date> birth = {};
  };

  explicit DuplicatePerson(const session::ScreenContext& context) : Rules(context) {}

  // False when he is not to be added: the person at the screen goes back, or the one who is there is to be opened
  // instead. Throws session::DatabaseError.
  bool MayAdd(const Person& person);
  // The same; a screen in whose place another person is to be opened closes.
  bool MayAdd(forms::Form& screen, const Person& person);
  // The one to open in the new one's place; 0 for none.
  std::int32_t Instead() const { return instead_; }

 private:
  // One who may be the same, as he is told.
  struct Found {
    std::int32_t id = 0;
    std::string name;
    std::string details;
    int distance = 0;  // 0 for the same name and birth date
  };

  // The closest first.
  std::vector<Found> Find(const Person& person) const;
  static std::optional<Found> Alike(const session::Recordset& row, const Person& person);
  forms::Answer Ask(const std::vector<Found>& found) const;

  std::int32_t instead_ = 0;
};

}  // namespace people
