#include "insurance/default_group_number.h"

#include "forms/text.h"

namespace insurance {
namespace {

constexpr std::size_t kMost = 10;  // characters

void RemoveEvery(std::string& text, std::string_view part) {
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at)) {
    text.erase(at, part.size());
  }
}

}  // namespace

// One pass for each pair: what a removal brings together counts only for the pairs that are still to come.
std::string DefaultGroupNumber(std::string_view carrier_name, std::string_view plan_name) {
  std::string_view source = forms::Trim(carrier_name);
  if (source.empty()) {
    source = forms::Trim(plan_name);
  }
  if (source.empty()) {
    return "$$Default";
  }
  std::string number = forms::ToUpper("$$" + std::string(forms::Trim(forms::Left(source, kMost))));
  for (const std::string_view part : {" ", "AA", "EE", "II", "OO", "UU"}) {
    RemoveEvery(number, part);
  }
  return forms::Left(number, kMost);
}

}  // namespace insurance
