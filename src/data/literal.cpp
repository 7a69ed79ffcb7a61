#include "data/literal.h"

#include <charconv>
#include <string>

namespace data {

// The one way from a text of any origin into a statement.
class LiteralMaker {
 public:
  // Between quotes, with every one inside doubled.
  static Sql Quoted(std::string_view text, char open, char close) {
    std::string quoted(1, open);
    for (const char c : text) {
      quoted.append(c == close ? 2 : 1, c);
    }
    return Sql::Made(quoted + close);
  }
  static Sql Number(std::string digits) { return Sql::Made(std::move(digits)); }
  static Sql Moment(const std::string& time) { return Sql::Made("#" + time + "#"); }
};

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
  Sql operator()(std::monostate) const { return Words("Null"); }
  Sql operator()(std::int64_t number) const { return LiteralMaker::Number(std::to_string(number)); }
  Sql operator()(double number) const { return LiteralMaker::Number(session::ToText(session::Value(number))); }
  Sql operator()(forms::Currency amount) const { return Literal(amount); }
  Sql operator()(const std::string& text) const { return Literal(text); }
  Sql operator()(forms::DateTime time) const { return Literal(time); }
  Sql operator()(const session::Guid& guid) const { return Literal(session::ToText(guid)); }
  Sql operator()(const session::Blob& blob) const { return Literal(session::ToText(session::Value(blob))); }
};

}  // namespace

Sql Literal(std::string_view text) {
  return LiteralMaker::Quoted(text, '\'', '\'');
}

Sql Literal(std::int32_t number) {
  return LiteralMaker::Number(std::to_string(number));
}

Sql Literal(forms::Currency amount) {
  return LiteralMaker::Number(forms::ToPlainText(amount));
}

Sql Literal(forms::Date date) {
  return LiteralMaker::Moment(forms::FormatSlashed(date));
}

Sql Literal(forms::DateTime time) {
  const forms::Date date = forms::DateOf(time);
  return time == forms::AtMidnight(date) ? Literal(date) : LiteralMaker::Moment(forms::FormatStamp(time));
}

Sql ValueLiteral(const session::Value& value) {
  return std::visit(LiteralOf{}, value);
}

Sql NumberLiteral(std::string_view typed) {
  double number = 0;
  const char* end = typed.data() + typed.size();
  const auto [stop, error] = std::from_chars(typed.data(), end, number);
  const bool whole = error == std::errc() && stop == end && typed.find_first_of("in") == std::string_view::npos;
  return whole ? LiteralMaker::Number(std::string(typed)) : Literal(typed);
}

Sql LikeBeginning(std::string_view text) {
  return Literal(EscapeWildcards(text) + "%");
}

Sql LikeContaining(std::string_view text) {
  return Literal("%" + EscapeWildcards(text) + "%");
}

Sql LikeBeginningInDoubleQuotes(std::string_view text) {
  return LiteralMaker::Quoted(EscapeWildcards(text) + "%", '"', '"');
}

Sql Bracketed(std::string_view name) {
  return LiteralMaker::Quoted(name, '[', ']');
}

}  // namespace data
