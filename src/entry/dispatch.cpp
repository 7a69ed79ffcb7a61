#include "entry/dispatch.h"

#include "forms/text.h"
#include "session/value.h"

namespace entry {

std::string TextOf(bool value) {
  return value ? "True" : "False";
}

std::string TextOf(std::int32_t value) {
  return std::to_string(value);
}

std::string TextOf(double value) {
  return session::ToText(session::Value(value));
}

std::string TextOf(forms::Currency value) {
  return forms::ToPlainText(value);
}

std::string TextOf(const std::string& value) {
  return value;
}

bool IgnoringCase::operator()(std::string_view left, std::string_view right) const {
  return forms::ToLower(left) < forms::ToLower(right);
}

const Method* Dispatch::Find(std::string_view name) const {
  for (const Method& method : methods) {
    if (forms::EqualsIgnoringCase(method.name, name)) {
      return &method;
    }
  }
  return nullptr;
}

}  // namespace entry
