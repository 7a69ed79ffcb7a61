#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
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
  bool IsNumber() const;
  // A word of the dialect itself, which names no column where it stands without brackets.
  bool IsKeyword() const;
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
// From `from` on, the first of the words within the same group; the end of the group when there is none.
std::size_t FindWord(const Tokens& tokens, std::size_t from, std::initializer_list<std::string_view> words);
std::size_t FindWord(const Tokens& tokens, std::size_t from, std::string_view word);
// The end of the group that `from` stands in.
std::size_t GroupEnd(const Tokens& tokens, std::size_t from);

void Erase(Tokens& tokens, std::size_t from, std::size_t to);
void Insert(Tokens& tokens, std::size_t at, const Tokens& added);
Tokens Slice(const Tokens& tokens, std::size_t from, std::size_t to);

// The groups of a statement, found at the first question, for rules that ask at many places. The statement outlives
// it, with its brackets where they are.
class Groups {
 public:
  explicit Groups(const Tokens& tokens) : tokens_(tokens) {}

  // As the functions of these names.
  std::size_t After(std::size_t open);
  std::size_t End(std::size_t from);
  // The "(" that the ")" at `close` closes; `close` when there is none.
  std::size_t Open(std::size_t close);

 private:
  void Find();

  const Tokens& tokens_;
  std::vector<std::size_t> ends_;   // by where the question starts
  std::vector<std::size_t> opens_;  // by the ")"
};

// Changes to a statement, noted by the places that it has and made all at once. Tokens that stay may be changed in
// place meanwhile.
class Edits {
 public:
  explicit Edits(Tokens& tokens) : tokens_(tokens) {}

  // `with` stands in place of the tokens from `from` to `to`. No two changes share a token.
  void Replace(std::size_t from, std::size_t to, Tokens with);
  void Erase(std::size_t from, std::size_t to) { Replace(from, to, {}); }
  void Insert(std::size_t at, Tokens added) { Replace(at, at, std::move(added)); }
  // "CAST(" before what stands from `from` to `to`, " AS int)" behind it.
  void Wrap(std::size_t from, std::size_t to, Tokens before, Tokens after);
  void Make();

 private:
  struct Edit {
    std::size_t from;
    std::size_t to;
    Tokens with;
  };

  Tokens& tokens_;
  std::vector<Edit> edits_;
};

}  // namespace host::sql
