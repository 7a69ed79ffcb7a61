#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>
#include <string>

#include "automation/variant.h"
#include "forms/currency.h"

// By-reference arguments as the screens take them. One that was left out, or holds Empty or Null, is empty, 0 or False;
// in a record ID's place it asks for a new record. An empty text is handed on as it is.
namespace com {

std::string TextOf(const VARIANT* argument);
std::int32_t IntOf(const VARIANT* argument);
bool BoolOf(const VARIANT* argument);
double DoubleOf(const VARIANT* argument);
forms::Currency CurrencyOf(const VARIANT* argument);

void AssignBool(VARIANT* argument, bool value);

// A record ID, "NEW" or another text in its place. `Return` leaves the host's argument as it is when the ID has not
// changed; otherwise it becomes a number where the ID is one.
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
