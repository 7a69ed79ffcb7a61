#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace data {

// Text of a statement that is known when compiling: a column, a table, a phrase.
class Words {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): a phrase of a statement is written as it reads.
  consteval Words(const char* text) : text_(text) {}
  constexpr std::string_view Text() const { return text_; }

 private:
  std::string_view text_;
};

// A statement or a part of one: put together from words known when compiling and from values that went through their
// literal function (data/literal.h). A text of any other origin does not become one.
class Sql {
 public:
  Sql() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): words are a statement
  Sql(Words words) : text_(words.Text()) {}

  const std::string& Text() const { return text_; }
  bool Empty() const { return text_.empty(); }
  // A piece of this statement.
  Sql Part(std::size_t from, std::size_t count = std::string::npos) const { return Made(text_.substr(from, count)); }

  // A statement that a host wrote, as it hands it over.
  static Sql OfHost(std::string text) { return Made(std::move(text)); }

  Sql& operator+=(const Sql& more) {
    text_ += more.text_;
    return *this;
  }
  friend bool operator==(const Sql&, const Sql&) = default;
  friend bool operator==(const Sql& sql, std::string_view text) { return sql.text_ == text; }

 private:
  friend class LiteralMaker;

  static Sql Made(std::string text) {
    Sql sql;
    sql.text_ = std::move(text);
    return sql;
  }

  std::string text_;
};

inline Sql operator+(Sql left, const Sql& right) {
  return std::move(left += right);
}
inline Sql operator+(Sql left, Words right) {
  return std::move(left += Sql(right));
}
inline Sql operator+(Words left, const Sql& right) {
  return Sql(left) + right;
}

}  // namespace data
