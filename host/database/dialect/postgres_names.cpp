#include "database/dialect/postgres_names.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "database/dialect/written.h"
#include "database/schema.h"
#include "forms/text.h"

namespace host::sql {
namespace {

// The places of the aliases: what follows AS, but for the type of a cast.
std::vector<std::size_t> AliasesOf(const Tokens& statement) {
  std::vector<std::size_t> aliases;
  std::vector<bool> casts = {false};
  for (std::size_t i = 0; i + 1 < statement.size(); ++i) {
    if (statement[i].Is('(')) {
      casts.push_back(i > 0 && statement[i - 1].Is("CAST"));
    } else if (statement[i].Is(')') && casts.size() > 1) {
      casts.pop_back();
    } else if (statement[i].Is("AS") && !casts.back() && statement[i + 1].IsName()) {
      aliases.push_back(i + 1);
    }
  }
  return aliases;
}

// The names of selects that stand in place of tables.
std::unordered_set<std::string> DerivedTables(const Tokens& statement) {
  std::unordered_set<std::string> names;
  Groups groups(statement);
  for (std::size_t i = 1; i + 1 < statement.size(); ++i) {
    if (!statement[i].Is(')') || !statement[groups.Open(i) + 1].Is("SELECT")) {
      continue;
    }
    const std::size_t name = statement[i + 1].Is("AS") ? i + 2 : i + 1;
    if (name < statement.size() && statement[name].IsName() && !statement[name].IsKeyword()) {
      names.insert(forms::ToLower(statement[name].text));
    }
  }
  return names;
}

bool IsSimple(std::string_view name) {
  return !name.empty() && !forms::IsDigit(name.front()) && std::ranges::all_of(name, [](char c) {
    return c == '_' || forms::IsDigit(c) || ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z');
  });
}

// In brackets and none of a caption: a table or a column, which is in small letters there.
void Unbracket(Token& token) {
  if (IsSimple(token.text)) {
    token.text = forms::ToLower(token.text);
    const Token word{Kind::Word, token.text};
    token.kind = word.IsKeyword() ? Kind::Name : Kind::Word;
  }
}

}  // namespace

void QuoteCaptions(Tokens& statement) {
  std::unordered_map<std::string, std::string> captions;
  for (const std::size_t alias : AliasesOf(statement)) {
    const std::string& text = statement[alias].text;
    if (!TypeOfColumn(text) && FindTable(text) == nullptr) {
      captions.emplace(forms::ToLower(text), text);
    }
  }
  const std::unordered_set<std::string> derived = DerivedTables(statement);
  for (std::size_t i = 0; i < statement.size(); ++i) {
    Token& token = statement[i];
    const bool after_as = i > 0 && statement[i - 1].Is("AS");
    const bool named = token.kind == Kind::Name || (token.kind == Kind::Word && (after_as || !token.IsKeyword()) &&
                                                    (i + 1 == statement.size() || !statement[i + 1].Is('(')));
    if (!named) {
      continue;
    }
    const bool qualified = i >= 2 && statement[i - 1].Is('.');
    const auto caption = !qualified || derived.contains(forms::ToLower(statement[i - 2].text))
                             ? captions.find(forms::ToLower(token.text))
                             : captions.end();
    if (caption != captions.end()) {
      token.kind = Kind::Name;
      token.text = caption->second;
    } else if (token.kind == Kind::Name) {
      Unbracket(token);
    }
  }
}

std::string InQuotes(std::string_view name) {
  return Quoted(name, '"');
}

}  // namespace host::sql
