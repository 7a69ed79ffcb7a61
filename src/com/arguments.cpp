#include "com/arguments.h"

namespace com {

using automation::Assign;
using automation::ChangeType;
using automation::IsMissing;
using automation::ToBool;
using automation::ToInt;
using automation::ToText;
using automation::Variant;

bool IsLeftOut(const VARIANT* argument) {
  return IsMissing(argument) || session::IsNull(automation::ToValue(*argument));
}

std::string TextOf(const VARIANT* argument) {
  return IsMissing(argument) ? std::string() : ToText(*argument);
}

std::int32_t IntOf(const VARIANT* argument) {
  return IsMissing(argument) ? 0 : ToInt(*argument);
}

bool BoolOf(const VARIANT* argument) {
  return !IsMissing(argument) && ToBool(*argument);
}

double DoubleOf(const VARIANT* argument) {
  if (IsLeftOut(argument)) {
    return 0;
  }
  const Variant number = ChangeType(*argument, VT_R8);
  return V_R8(&number);
}

forms::Currency CurrencyOf(const VARIANT* argument) {
  if (IsLeftOut(argument)) {
    return {};
  }
  const Variant amount = ChangeType(*argument, VT_CY);
  return forms::Currency::FromTenThousandths(V_CY(&amount).int64);
}

IdArgument::IdArgument(VARIANT* argument) : argument_(argument), given_(TextOf(argument)), text_(given_) {}

void IdArgument::Return() const {
  if (text_ == given_) {
    return;
  }
  const std::int32_t id = session::ToId(session::Value(text_));
  Assign(argument_, std::to_string(id) == text_ ? Variant::Of(id) : Variant::Of(text_));
}

}  // namespace com
