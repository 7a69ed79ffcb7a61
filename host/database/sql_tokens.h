#pragma once

#include <string>
#include <string_view>
#include <vector>

// The pieces of a statement in the screens' dialect, as its translators work on them.
namespace host::sql {

enum class Kind {
  Word,      // keyword, name, number
  Name,      // [Employer Name]: the name itself
  Text,      // 'O''Brien' or "O'Brien": the text itself
  Moment,    // #1/2/1980#: "1980-01-02", or "1980-01-02 14:05:00"
  Variable,  // @UniqueID, @@IDENTITY
  Symbol     // an operator or a bracket; also what is not understood
};

struct Token {
  Kind kind = Kind::Symbol;
  std::string text;
  bool apart = true;  // from the token before it

  bool Is(char symbol) const { return kind == Kind::Symbol && text.size() == 1 && text[0] == symbol; }
  // A word, without regard to case; `word` is in capitals.
  bool Is(std::string_view word) const;
  bool IsName() const { return kind == Kind::Word || kind == Kind::Name; }
};

using Tokens = std::vector<Token>;

// Comments count as blanks.
Tokens Tokenize(std::string_view batch);
// Its statements, as ";" parts them; none is empty.
std::vector<Tokens> SplitStatements(Tokens batch);
// A list of words and symbols as tokens: Words("LEFT JOIN").
Tokens Words(std::string_view text);

// Behind the ")" that closes the "(" at `open`; the end when none does.
std::size_t AfterGroup(const Tokens& tokens, std::size_t open);
// The "(" that the ")" at `close` closes; `close` when there is none.
std::size_t GroupOf(const Tokens& tokens, std::size_t close);
// From `from` on, the first of the word within the same group; the end of the group when there is none.
std::size_t FindWord(const Tokens& tokens, std::size_t from, std::string_view word);
// The end of the group that `from` stands in.
std::size_t GroupEnd(const Tokens& tokens, std::size_t from);

void Erase(Tokens& tokens, std::size_t from, std::size_t to);
void Insert(Tokens& tokens, std::size_t at, const Tokens& added);
Tokens Slice(const Tokens& tokens, std::size_t from, std::size_t to);

}  // namespace host::sql
