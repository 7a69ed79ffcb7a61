#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "data/reminders.h"

namespace recall {

// Whether a message of that method is HTML; plain text otherwise.
constexpr bool IsHtml(data::ContactMethod method) {
  return method == data::ContactMethod::Email || method == data::ContactMethod::PostCard;
}

// What to say for a variable: plain text, which loses its braces so that it is no variable itself.
using TemplateValues = std::map<std::string, std::string, std::less<>>;

// HTML whose variables have one look each, that of their brace: a sender would not find one with tags in it.
std::string WithWholeVariables(std::string_view html);

// The text with its variables' values in their place; one without a value says nothing. Values become HTML in HTML.
std::string Merged(std::string_view text, const TemplateValues& values, bool html);

}  // namespace recall
