#include "session/argument_text.h"

#include <charconv>

#include "forms/text.h"
#include "session/value.h"

namespace session {

std::string TextOf(bool value) {
  return value ? "True" : "False";
}

std::string TextOf(std::int32_t value) {
  return std::to_string(value);
}

std::string TextOf(double value) {
  return ToText(Value(value));
}

std::string TextOf(forms::Currency value) {
  return forms::ToPlainText(value);
}

std::string TextOf(const std::string& value) {
  return value;
}

void ReadText(const std::string& text, bool& value) {
  value = text.empty() ? value : forms::IsOn(text);
}

void ReadText(const std::string& text, std::int32_t& value) {
  value = text.empty() ? value : ToId(Value(text));
}

void ReadText(const std::string& text, double& value) {
  if (!text.empty()) {
    value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
  }
}

void ReadText(const std::string& text, forms::Currency& value) {
  value = text.empty() ? value : forms::Currency::Parse(text).value_or(forms::Currency());
}

void ReadText(const std::string& text, std::string& value) {
  value = text.empty() ? value : text;
}

}  // namespace session
