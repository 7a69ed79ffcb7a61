#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "automation/variant.h"
#include "forms/currency.h"

// By-reference arguments as the screens take them. One that was left out, or holds Empty or Null, is empty, 0 or False.
namespace com {

// A host's variable that nothing was put into is as good as none.
bool IsLeftOut(const VARIANT* argument);
std::string TextOf(const VARIANT* argument);
std::int32_t IntOf(const VARIANT* argument);
bool BoolOf(const VARIANT* argument);
double DoubleOf(const VARIANT* argument);
forms::Currency CurrencyOf(const VARIANT* argument);

// Takes an argument as the type of `value`, which stays where the argument was left out, or holds Empty or Null.
template <typename T>
void Take(const VARIANT* argument, T& value) {
  if (IsLeftOut(argument)) {
    return;
  }
  if constexpr (std::is_same_v<T, bool>) {
    value = BoolOf(argument);
  } else if constexpr (std::is_same_v<T, std::int32_t>) {
    value = IntOf(argument);
  } else if constexpr (std::is_same_v<T, double>) {
    value = DoubleOf(argument);
  } else if constexpr (std::is_same_v<T, forms::Currency>) {
    value = CurrencyOf(argument);
  } else {
    value = TextOf(argument);
  }
}

// Leaves the host's argument as it is when the screen has not changed what was given.
template <typename T>
void Return(VARIANT* argument, const T& given, const T& now) {
  if (now == given) {
    return;
  }
  if constexpr (std::is_same_v<T, bool>) {
    automation::Assign(argument, automation::Variant::Of(now));
  } else {
    automation::Assign(argument, automation::ToVariant(session::Value(now)));
  }
}

// A record ID, "NEW" or another text in its place; an empty one asks for a new record. `Return` leaves the host's
// argument as it is when the ID has not changed; otherwise it becomes a number where the ID is one.
class IdArgument {
 public:
  explicit IdArgument(VARIANT* argument);

  std::string& Text() { return text_; }
  void Return() const;

 private:
  VARIANT* argument_;
  std::string given_;
  std::string text_;
};

}  // namespace com
