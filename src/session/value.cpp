#include "session/value.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace session {
namespace {

std::string ToText(double number) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
  return {buffer.data(), end};
}

std::string DateText(forms::DateTime time) {
  return time == forms::AtMidnight(forms::DateOf(time)) ? forms::FormatIso(forms::DateOf(time))
                                                        : forms::FormatIso(time);
}

struct TextOf {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(double number) const { return ToText(number); }
  std::string operator()(forms::Currency amount) const { return forms::ToPlainText(amount); }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(forms::DateTime time) const { return DateText(time); }
  std::string operator()(const Guid& guid) const { return session::ToText(guid); }
  std::string operator()(const Blob& blob) const { return {reinterpret_cast<const char*>(blob.data()), blob.size()}; }
};

}  // namespace

std::string ToText(const Value& value) {
  return std::visit(TextOf{}, value);
}

std::int32_t ToId(const Value& value) {
  std::int64_t id = 0;
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    id = *number;
  } else if (const auto* real = std::get_if<double>(&value); real != nullptr && std::trunc(*real) == *real) {
    id = static_cast<std::int64_t>(*real);
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    const char* end = text->data() + text->size();
    if (const auto [stop, error] = std::from_chars(text->data(), end, id); error != std::errc() || stop != end) {
      return 0;
    }
  }
  const bool fits = id >= std::numeric_limits<std::int32_t>::min() && id <= std::numeric_limits<std::int32_t>::max();
  return fits ? static_cast<std::int32_t>(id) : 0;
}

std::optional<forms::DateTime> ToDateTime(const Value& value) {
  if (const auto* time = std::get_if<forms::DateTime>(&value)) {
    return *time;
  }
  if (const auto* text = std::get_if<std::string>(&value)) {
    return forms::ParseIso(*text);
  }
  return std::nullopt;
}

std::string ToText(const Guid& guid) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "{";
  for (std::size_t i = 0; i < guid.bytes.size(); ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) {
      text += '-';
    }
    text += kDigits[guid.bytes[i] >> 4U];
    text += kDigits[guid.bytes[i] & 0x0FU];
  }
  return text + "}";
}

std::optional<Guid> ParseGuid(std::string_view text) {
  Guid guid;
  std::size_t digits = 0;
  for (const char c : text) {
    if (c == '{' || c == '}' || c == '-') {
      continue;
    }
    unsigned digit = 0;
    if (digits == 2 * guid.bytes.size() || std::from_chars(&c, &c + 1, digit, 16).ptr == &c) {
      return std::nullopt;
    }
    std::uint8_t& byte = guid.bytes.at(digits++ / 2);
    byte = static_cast<std::uint8_t>((byte << 4U) | digit);
  }
  return digits == 2 * guid.bytes.size() ? std::optional(guid) : std::nullopt;
}

}  // namespace session
