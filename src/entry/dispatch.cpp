#include "entry/dispatch.h"

#include "forms/text.h"

namespace entry {

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
