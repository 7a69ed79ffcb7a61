#include "database/dialect/sql_tokens.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <unordered_set>

#include "database/dialect/date_literal.h"
#include "forms/text.h"

namespace host::sql {
namespace {

bool IsWordCharacter(char c) {
  return c == '_' || c == '$' || std::isalnum(static_cast<unsigned char>(c)) != 0 ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

class Scanner {
 public:
  explicit Scanner(std::string_view batch) : rest_(batch) {}

  Tokens Scan() {
    for (bool apart = SkipBlanks(); !rest_.empty(); apart = SkipBlanks()) {
      Token token = Next();
      token.apart = apart;
      tokens_.push_back(std::move(token));
    }
    return std::move(tokens_);
  }

 private:
  // True when something was skipped.
  bool SkipBlanks() {
    const std::size_t before = rest_.size();
    for (;;) {
      if (rest_.starts_with("--")) {
        Take(rest_.find('\n'));
      } else if (rest_.starts_with("/*")) {
        const std::size_t end = rest_.find("*/", 2);
        Take(end == std::string_view::npos ? end : end + 2);
      } else if (!rest_.empty() && IsBlank(rest_.front())) {
        Take(1);
      } else {
        return rest_.size() != before;
      }
    }
  }

  Token Next() {
    switch (rest_.front()) {
      case '\'':
      case '"':
        return Quoted(Kind::Text, rest_.front());
      case '[':
        return Quoted(Kind::Name, ']');
      case '#':
        return Moment();
      case '@':
        return {Kind::Variable, Run(rest_.find_first_not_of('@'))};
      default:
        return IsWordCharacter(rest_.front()) ? Token{Kind::Word, Run(0)} : Symbol();
    }
  }

  // Up to the closing character, which stands for itself when doubled.
  Token Quoted(Kind kind, char close) {
    std::string content;
    std::size_t i = 1;
    for (; i < rest_.size(); ++i) {
      if (rest_[i] == close) {
        if (i + 1 == rest_.size() || rest_[i + 1] != close) {
          Take(i + 1);
          return {kind, std::move(content)};
        }
        ++i;
      }
      content += rest_[i];
    }
    return {Kind::Symbol, std::string(Take(i))};
  }

  Token Moment() {
    if (const std::size_t end = rest_.find('#', 1); end != std::string_view::npos) {
      if (auto iso = IsoMoment(rest_.substr(1, end - 1))) {
        Take(end + 1);
        return {Kind::Moment, std::move(*iso)};
      }
    }
    return Symbol();
  }

  // Word characters, and a number's decimals, from `from` on, and what stands before them.
  std::string Run(std::size_t from) {
    std::size_t i = std::min(from, rest_.size());
    const bool number = i < rest_.size() && std::isdigit(static_cast<unsigned char>(rest_[i])) != 0;
    while (i < rest_.size() && (IsWordCharacter(rest_[i]) || (number && rest_[i] == '.'))) {
      ++i;
    }
    return std::string(Take(i));
  }

  Token Symbol() {
    for (const std::string_view symbol : {"<>", "<=", ">=", "!=", "||"}) {
      if (rest_.starts_with(symbol)) {
        return {Kind::Symbol, std::string(Take(2))};
      }
    }
    return {Kind::Symbol, std::string(Take(1))};
  }

  std::string_view Take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view rest_;
  Tokens tokens_;
};

}  // namespace

bool Token::Is(std::string_view word) const {
  return kind == Kind::Word && text.size() == word.size() &&
         std::equal(text.begin(), text.end(), word.begin(),
                    [](char c, char upper) { return std::toupper(static_cast<unsigned char>(c)) == upper; });
}

bool Token::IsNumber() const {
  return kind == Kind::Word && std::isdigit(static_cast<unsigned char>(text.front())) != 0;
}

bool Token::IsKeyword() const {
  static const std::unordered_set<std::string_view> words = {
      "ALL",      "AND",    "ANY",       "AS",     "ASC",    "BETWEEN", "BY",    "CASE",   "CROSS", "DELETE",  "DESC",
      "DISTINCT", "ELSE",   "END",       "ESCAPE", "EXCEPT", "EXISTS",  "FROM",  "FULL",   "GROUP", "HAVING",  "IN",
      "INNER",    "INSERT", "INTERSECT", "INTO",   "IS",     "JOIN",    "LEFT",  "LIKE",   "LIMIT", "NATURAL", "NOT",
      "NULL",     "OFFSET", "ON",        "OR",     "ORDER",  "OUTER",   "RIGHT", "SELECT", "SET",   "SOME",    "THEN",
      "TOP",      "UNION",  "UPDATE",    "USING",  "VALUES", "WHEN",    "WHERE", "WITH"};
  constexpr std::size_t kLongest = 9;
  return kind == Kind::Word && text.size() <= kLongest && words.contains(forms::ToUpper(text));
}

Tokens Tokenize(std::string_view batch) {
  return Scanner(batch).Scan();
}

std::vector<Tokens> SplitStatements(Tokens batch) {
  std::vector<Tokens> statements(1);
  for (Token& token : batch) {
    if (!token.Is(';')) {
      statements.back().push_back(std::move(token));
    } else if (!statements.back().empty()) {
      statements.emplace_back();
    }
  }
  if (statements.back().empty()) {
    statements.pop_back();
  }
  return statements;
}

Tokens Words(std::string_view text) {
  Tokens tokens = Tokenize(text);
  if (!tokens.empty()) {
    tokens.front().apart = true;
  }
  return tokens;
}

std::size_t AfterGroup(const Tokens& tokens, std::size_t open) {
  return std::min(GroupEnd(tokens, open + 1) + 1, tokens.size());
}

std::size_t FindWord(const Tokens& tokens, std::size_t from, std::initializer_list<std::string_view> words) {
  const auto found = [&](const Token& token) {
    return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.Is(word); });
  };
  std::size_t i = from;
  while (i < tokens.size() && !tokens[i].Is(')') && !found(tokens[i])) {
    i = tokens[i].Is('(') ? AfterGroup(tokens, i) : i + 1;
  }
  return i;
}

std::size_t FindWord(const Tokens& tokens, std::size_t from, std::string_view word) {
  return FindWord(tokens, from, {word});
}

std::size_t GroupEnd(const Tokens& tokens, std::size_t from) {
  int depth = 0;
  for (std::size_t i = from; i < tokens.size(); ++i) {
    if (tokens[i].Is('(')) {
      ++depth;
    } else if (tokens[i].Is(')') && depth-- == 0) {
      return i;
    }
  }
  return tokens.size();
}

void Erase(Tokens& tokens, std::size_t from, std::size_t to) {
  tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(from), tokens.begin() + static_cast<std::ptrdiff_t>(to));
}

void Insert(Tokens& tokens, std::size_t at, const Tokens& added) {
  tokens.insert(tokens.begin() + static_cast<std::ptrdiff_t>(at), added.begin(), added.end());
}

Tokens Slice(const Tokens& tokens, std::size_t from, std::size_t to) {
  return {tokens.begin() + static_cast<std::ptrdiff_t>(from), tokens.begin() + static_cast<std::ptrdiff_t>(to)};
}

std::size_t Groups::After(std::size_t open) {
  return std::min(End(open + 1) + 1, tokens_.size());
}

std::size_t Groups::End(std::size_t from) {
  Find();
  return ends_[std::min(from, tokens_.size())];
}

std::size_t Groups::Open(std::size_t close) {
  Find();
  return opens_[close];
}

// From behind: the innermost ")" that is not opened yet ends the group of what stands before it.
void Groups::Find() {
  if (!ends_.empty()) {
    return;
  }
  ends_.resize(tokens_.size() + 1, tokens_.size());
  opens_.resize(tokens_.size());
  std::vector<std::size_t> closes;
  for (std::size_t i = tokens_.size(); i-- > 0;) {
    opens_[i] = i;
    if (tokens_[i].Is(')')) {
      closes.push_back(i);
    } else if (tokens_[i].Is('(') && !closes.empty()) {
      opens_[closes.back()] = i;
      closes.pop_back();
    }
    ends_[i] = closes.empty() ? tokens_.size() : closes.back();
  }
}

void Edits::Replace(std::size_t from, std::size_t to, Tokens with) {
  edits_.push_back({from, to, std::move(with)});
}

void Edits::Wrap(std::size_t from, std::size_t to, Tokens before, Tokens after) {
  before.front().apart = std::exchange(tokens_[from].apart, false);
  after.front().apart = !after.front().Is(')');
  Insert(from, std::move(before));
  Insert(to, std::move(after));
}

void Edits::Make() {
  if (edits_.empty()) {
    return;
  }
  std::ranges::stable_sort(edits_, {}, &Edit::from);
  Tokens made;
  const auto take = [&](auto from, auto to) {
    made.insert(made.end(), std::make_move_iterator(from), std::make_move_iterator(to));
  };
  std::size_t at = 0;
  for (Edit& edit : edits_) {
    take(tokens_.begin() + static_cast<std::ptrdiff_t>(at), tokens_.begin() + static_cast<std::ptrdiff_t>(edit.from));
    take(edit.with.begin(), edit.with.end());
    at = edit.to;
  }
  take(tokens_.begin() + static_cast<std::ptrdiff_t>(at), tokens_.end());
  tokens_ = std::move(made);
  edits_.clear();
}

}  // namespace host::sql
