#include "database/dialect/prepare_sql.h"

#include <sqlite3.h>

#include <map>

#include "database/dialect/found_order.h"
#include "database/dialect/sql_tokens.h"
#include "database/dialect/statement_forms.h"
#include "database/dialect/text_operators.h"
#include "forms/text.h"
#include "session/connection.h"
#include "session/value.h"

namespace host {
namespace {

using sql::Kind;
using sql::Token;
using sql::Tokens;

std::string NewGuid() {
  session::Guid guid;
  sqlite3_randomness(static_cast<int>(guid.bytes.size()), guid.bytes.data());
  guid.bytes[6] = static_cast<std::uint8_t>((guid.bytes[6] & 0x0FU) | 0x40U);
  guid.bytes[8] = static_cast<std::uint8_t>((guid.bytes[8] & 0x3FU) | 0x80U);
  return session::ToText(guid);
}

void ReplaceWords(Tokens& statement) {
  sql::Edits edits(statement);
  for (std::size_t i = 0; i < statement.size(); ++i) {
    Token& token = statement[i];
    const bool qualifies = i + 1 < statement.size() && statement[i + 1].Is('.');
    if (qualifies || (i > 0 && statement[i - 1].Is('.'))) {
      continue;
    }
    if (token.Is("TRUE")) {
      token.text = "1";
    } else if (token.Is("FALSE")) {
      token.text = "0";
    } else if (token.Is("DISTINCTROW")) {
      token.text = "DISTINCT";
    } else if (token.Is("NEWID") && i + 2 < statement.size() && statement[i + 1].Is('(') && statement[i + 2].Is(')')) {
      token = {Kind::Text, NewGuid(), token.apart};
      edits.Erase(i + 1, i + 3);
    }
  }
  edits.Make();
}

// The values that a batch gives its variables, by name in small letters.
class Variables {
 public:
  // True for a statement that does nothing else: SET NOCOUNT, DECLARE, SET @name = value.
  bool Take(const Tokens& statement) {
    if (statement[0].Is("DECLARE")) {
      return true;
    }
    if (!statement[0].Is("SET") || statement.size() < 2) {
      return false;
    }
    if (statement[1].kind == Kind::Variable && statement.size() > 3 && statement[2].Is('=')) {
      Tokens value = sql::Slice(statement, 3, statement.size());
      Fill(value);
      // Values that are made of one another would grow past all bounds.
      constexpr std::size_t kMost = 1000;
      if (value.size() > kMost) {
        throw session::DatabaseError("The value of the variable " + statement[1].text + " is too long.", {},
                                     SQLITE_TOOBIG);
      }
      values_[forms::ToLower(statement[1].text)] = std::move(value);
      return true;
    }
    return statement[1].Is("NOCOUNT");
  }

  // A value that is put in is not looked through again.
  void Fill(Tokens& statement) const {
    sql::Edits edits(statement);
    for (std::size_t i = 0; i < statement.size(); ++i) {
      if (statement[i].kind != Kind::Variable) {
        continue;
      }
      const std::string name = forms::ToLower(statement[i].text);
      const auto value = values_.find(name);
      if (name == "@@identity") {
        edits.Replace(i, i + 1, sql::Words("identity()"));
      } else if (value != values_.end()) {
        edits.Replace(i, i + 1, value->second);
      }
    }
    edits.Make();
  }

 private:
  std::map<std::string, Tokens> values_;
};

void Translate(Tokens& statement) {
  sql::DropOwners(statement);
  sql::ReplaceInformationSchema(statement);
  const Token first = statement[0];
  if (first.Is("DELETE")) {
    sql::DropDeleteStar(statement);
  } else if (first.Is("INSERT")) {
    sql::QuoteBareValues(statement);
  } else if (first.Is("UPDATE")) {
    sql::UnqualifySet(statement);
    sql::UnjoinUpdated(statement);
  } else if (first.Is("IF")) {
    sql::CreateIfNotExists(statement);
  }
  if (statement[0].Is("CREATE")) {
    sql::CollateNewText(statement);
  }
  sql::LimitTop(statement);
  sql::JoinApplied(statement);
  sql::JoinTexts(statement);
  sql::TranslatePatterns(statement);
  sql::FoldComparisons(statement);
  sql::SortWhatIsFound(statement);
}

std::string Quoted(std::string_view text, char quote) {
  std::string quoted(1, quote);
  for (const char c : text) {
    quoted.append(c == quote ? 2 : 1, c);
  }
  return quoted + quote;
}

// A statement's text ends at a zero character, so a text with one is written by its bytes.
std::string TextLiteral(std::string_view text) {
  if (text.find('\0') == std::string_view::npos) {
    return Quoted(text, '\'');
  }
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string literal = "CAST(x'";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    literal += kDigits[byte >> 4U];
    literal += kDigits[byte & 0x0FU];
  }
  return literal + "' AS TEXT)";
}

std::string Written(const Token& token) {
  switch (token.kind) {
    case Kind::Text:
      return TextLiteral(token.text);
    case Kind::Moment:
      return Quoted(token.text, '\'');
    case Kind::Name:
      return token.text.find(']') == std::string::npos ? "[" + token.text + "]" : Quoted(token.text, '"');
    default:
      return token.text;
  }
}

std::string Written(const Tokens& statement) {
  std::string text;
  for (std::size_t i = 0; i < statement.size(); ++i) {
    const bool would_merge = i > 0 && statement[i].kind != Kind::Symbol && statement[i - 1].kind != Kind::Symbol;
    if (i > 0 && (statement[i].apart || would_merge)) {
      text += ' ';
    }
    text += Written(statement[i]);
  }
  return text;
}

}  // namespace

std::string PrepareSqlite(std::string_view statement) {
  std::string prepared;
  std::string output;
  Variables variables;
  for (Tokens& tokens : sql::SplitStatements(sql::Tokenize(statement))) {
    ReplaceWords(tokens);
    if (variables.Take(tokens)) {
      continue;
    }
    variables.Fill(tokens);
    if (tokens[0].Is("INSERT")) {
      output = sql::TakeOutput(tokens);
    } else if (tokens[0].Is("SELECT")) {
      output.clear();
    }
    Translate(tokens);
    prepared += (prepared.empty() ? "" : "; ") + Written(tokens);
  }
  if (!output.empty()) {
    prepared += "; " + output;
  }
  // The engine would read no further, and run a statement without its condition.
  if (prepared.find('\0') != std::string::npos) {
    throw session::DatabaseError("The statement holds a zero character outside its texts.", std::string(statement),
                                 SQLITE_MISUSE);
  }
  return prepared;
}

}  // namespace host
