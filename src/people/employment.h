#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "editing/rules.h"
#include "forms/dates.h"

namespace people {

// The end of a person's employment, and its beginning again. All throw session::DatabaseError; the caller holds him.
class Employment : private editing::Rules {
 public:
  using Rules::Rules;

  // As the screen shows him.
  struct Employee {
    std::int32_t id = 0;
    std::string name;  // "John Smith"
    bool provider = false;
    std::optional<forms::Date> employed = {};
    std::optional<forms::Date> terminated = {};
  };

  // Asks whether to end his employment, or to change when it ended, and for the day. Nothing when it is not to be.
  std::optional<forms::Date> AskTermination(const Employee& employee) const;
  // Takes him from the list, with his initials, login and rights, and his absences after the day; all or nothing.
  void Terminate(std::int32_t person, forms::Date day) const;
  void RemoveAbsencesAfter(std::int32_t person, forms::Date day) const;

  bool AgreesToReactivate() const;
  void Reactivate(std::int32_t person) const;

  // Says what stands against it, and asks.
  bool MayDelete(std::int32_t person) const;
  // All that he has as an employee; he himself only when he is nothing else.
  void Delete(std::int32_t person) const;

 private:
  std::optional<forms::Date> PickDay(const Employee& employee) const;
  void RemoveLogins(std::int32_t person) const;
  void RemovePayroll(std::int32_t person) const;
  bool IsSomethingElse(std::int32_t person) const;
};

}  // namespace people
