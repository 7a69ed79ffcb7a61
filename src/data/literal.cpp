#include "data/literal.h"

namespace data {
namespace {

std::string EscapeWildcards(std::string_view text) {
  std::string pattern;
  for (const char c : text) {
    if (c == '%' || c == '_' || c == '[') {
      pattern += '[';
      pattern += c;
      pattern += ']';
    } else {
      pattern += c;
    }
  }
  return pattern;
}

struct LiteralOf {
  std::string operator()(std::monostate) const { return "Null"; }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(double number) const { return session::ToText(session::Value(number)); }
  std::string operator()(forms::Currency amount) const { return Literal(amount); }
  std::string operator()(const std::string& text) const { return Literal(text); }
  std::string operator()(forms::DateTime time) const { return Literal(time); }
  std::string operator()(const session::Guid& guid) const { return Literal(session::ToText(guid)); }
  std::string operator()(const session::Blob& blob) const { return Literal(session::ToText(session::Value(blob))); }
};

}  // namespace

std::string Literal(std::string_view text) {
  std::string literal = "'";
  for (const char c : text) {
    literal.append(c == '\'' ? 2 : 1, c);
  }
  return literal + "'";
}

std::string Literal(std::int32_t number) {
  return std::to_string(number);
}

std::string Literal(forms::Currency amount) {
  return forms::ToPlainText(amount);
}

std::string Literal(forms::Date date) {
  return "#" + forms::FormatSlashed(date) + "#";
}

std::string Literal(forms::DateTime time) {
  const forms::Date date = forms::DateOf(time);
  return time == forms::AtMidnight(date) ? Literal(date) : "#" + forms::FormatStamp(time) + "#";
}

std::string ValueLiteral(const session::Value& value) {
  return std::visit(LiteralOf{}, value);
}

std::string LikeBeginning(std::string_view text) {
  return Literal(EscapeWildcards(text) + "%");
}

std::string LikeContaining(std::string_view text) {
  return Literal("%" + EscapeWildcards(text) + "%");
}

}  // namespace data
