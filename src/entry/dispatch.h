#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "session/argument_text.h"

// The public classes by the names of their members, with values as text: how the console, the reference host and a
// late-bound client reach them.
namespace entry {

struct IgnoringCase {
  using is_transparent = void;
  bool operator()(std::string_view left, std::string_view right) const;
};

using session::TextOf;

using Arguments = std::map<std::string, std::string, IgnoringCase>;

struct Parameter {
  std::string name;
  bool by_reference = false;
};

struct Method {
  std::string name;
  std::vector<Parameter> parameters;
  // By-reference arguments are changed in place, ones left out are added; gives the method's own value, empty for none.
  std::function<std::string(Arguments&)> invoke;
};

struct Dispatch {
  std::string class_name;
  std::vector<Method> methods;  // in the order of declaration
  // Setting throws std::invalid_argument for a text that the property cannot hold.
  std::map<std::string, forms::Form::NamedProperty, IgnoringCase> properties;

  // Nullptr when there is no such method.
  const Method* Find(std::string_view name) const;
};

}  // namespace entry
