#include "database/dialect/written.h"

#include <sqlite3.h>

#include "session/connection.h"

namespace host::sql {
namespace {

// Two symbols that would begin a comment.
bool WouldComment(const Token& left, const Token& right) {
  return (left.Is('-') && right.Is('-')) || (left.Is('/') && right.Is('*'));
}

std::string Spelt(const Token& token, const Spelling& spelling) {
  switch (token.kind) {
    case Kind::Text:
      return spelling.text(token.text);
    case Kind::Moment:
      return spelling.moment(token.text);
    case Kind::Name:
      return spelling.name(token.text);
    default:
      return token.text;
  }
}

}  // namespace

std::string Written(const Tokens& statement, const Spelling& spelling) {
  std::string text;
  for (std::size_t i = 0; i < statement.size(); ++i) {
    const Token& token = statement[i];
    if (i > 0) {
      const Token& before = statement[i - 1];
      const bool would_merge = token.kind != Kind::Symbol && before.kind != Kind::Symbol;
      if (token.apart || would_merge || WouldComment(before, token)) {
        text += ' ';
      }
    }
    text += Spelt(token, spelling);
  }
  return text;
}

std::string Quoted(std::string_view text, char quote) {
  std::string quoted(1, quote);
  for (const char c : text) {
    quoted.append(c == quote ? 2 : 1, c);
  }
  return quoted + quote;
}

std::string Bracketed(std::string_view name) {
  return name.find(']') == std::string_view::npos ? "[" + std::string(name) + "]" : Quoted(name, '"');
}

std::string WithoutZeros(std::string prepared, std::string_view statement) {
  if (prepared.find('\0') != std::string::npos) {
    throw session::DatabaseError("The statement holds a zero character outside its texts.", std::string(statement),
                                 SQLITE_MISUSE);
  }
  return prepared;
}

}  // namespace host::sql
