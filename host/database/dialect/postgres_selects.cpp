#include "database/dialect/postgres_selects.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "database/dialect/queries.h"
#include "forms/text.h"

namespace host::sql {
namespace {

// What is selected, without its caption.
Range Expression(const Tokens& tokens, Range item) {
  return item.end >= item.begin + 3 && tokens[item.end - 2].Is("AS") ? Range{item.begin, item.end - 2} : item;
}

// Within the parentheses around all of it.
Range Unwrapped(const Tokens& tokens, Groups& groups, Range range) {
  while (range.end > range.begin + 2 && tokens[range.begin].Is('(') && groups.After(range.begin) == range.end &&
         !tokens[range.begin + 1].Is("SELECT")) {
    range = {range.begin + 1, range.end - 1};
  }
  return range;
}

bool IsConditionWord(const Token& token) {
  constexpr std::array<std::string_view, 8> kWords = {"AND", "OR", "NOT", "IN", "LIKE", "BETWEEN", "IS", "EXISTS"};
  constexpr std::array<std::string_view, 9> kSymbols = {"=", "<>", "!=", "<", "<=", ">", ">=", "~", "!~"};
  return token.kind == Kind::Symbol
             ? std::ranges::find(kSymbols, token.text) != kSymbols.end()
             : std::ranges::any_of(kWords, [&](std::string_view word) { return token.Is(word); });
}

bool IsCondition(const Tokens& tokens, Groups& groups, Range range) {
  int cases = 0;
  for (std::size_t i = range.begin; i < range.end; i = tokens[i].Is('(') ? groups.After(i) : i + 1) {
    if (tokens[i].Is("CASE")) {
      ++cases;
    } else if (tokens[i].Is("END")) {
      --cases;
    } else if (cases == 0 && IsConditionWord(tokens[i])) {
      return true;
    }
  }
  return false;
}

std::string TextOf(const Tokens& tokens, Range range) {
  std::string text;
  for (std::size_t i = range.begin; i < range.end; ++i) {
    text += forms::ToLower(tokens[i].text) + '\n';
  }
  return text;
}

bool IsColumn(const Tokens& tokens, Range range) {
  for (std::size_t i = range.begin; i < range.end; ++i) {
    if ((i - range.begin) % 2 == 0 ? !tokens[i].IsName() : !tokens[i].Is('.')) {
      return false;
    }
  }
  return range.begin < range.end;
}

// An order's term without its direction.
Range Sorted(const Tokens& tokens, Range term) {
  const bool directed =
      term.end > term.begin + 1 && (tokens[term.end - 1].Is("DESC") || tokens[term.end - 1].Is("ASC"));
  return {term.begin, directed ? term.end - 1 : term.end};
}

// What a list selects, by every way in which an order may name it.
class Selected {
 public:
  Selected(const Tokens& tokens, Groups& groups, Range list) : tokens_(tokens) {
    for (const Range& item : Parts(tokens, groups, list)) {
      const Range expression = Expression(tokens, item);
      all_ = all_ || tokens[expression.end - 1].Is('*');
      names_.insert(TextOf(tokens, expression));
      if (IsColumn(tokens, expression)) {
        names_.insert(TextOf(tokens, {expression.end - 1, expression.end}));
      }
      names_.insert(TextOf(tokens, {item.end - 1, item.end}));
      ++count_;
    }
  }

  // "SELECT *": it cannot be told.
  bool All() const { return all_; }
  std::size_t Count() const { return count_; }
  bool Has(Range term) const {
    return tokens_[term.begin].IsNumber() || names_.contains(TextOf(tokens_, term)) ||
           (IsColumn(tokens_, term) && names_.contains(TextOf(tokens_, {term.end - 1, term.end})));
  }

 private:
  const Tokens& tokens_;
  std::unordered_set<std::string> names_;
  bool all_ = false;
  std::size_t count_ = 0;
};

}  // namespace

void FitLists(Tokens& statement) {
  Edits edits(statement);
  Groups groups(statement);
  const bool inserts = statement[0].Is("INSERT");
  for (const Query& query : QueriesOf(statement)) {
    const bool fits_column = inserts && groups.End(query.select) == statement.size();
    for (const Range& item : Parts(statement, groups, query.list)) {
      const Range whole = Expression(statement, item);
      const Range expression = Unwrapped(statement, groups, whole);
      if (expression.end == expression.begin + 1 && statement[expression.begin].kind == Kind::Text) {
        if (!fits_column) {
          edits.Insert(expression.end, {{Kind::Symbol, "::", false}, {Kind::Word, "citext", false}});
        }
      } else if (expression.begin < expression.end && IsCondition(statement, groups, expression)) {
        edits.Wrap(whole.begin, whole.end, Words("CAST(("), Words(") AS int)"));
      }
    }
  }
  for (std::size_t i = 1; i < statement.size(); ++i) {
    const bool result = statement[i - 1].Is("THEN") || statement[i - 1].Is("ELSE");
    if (result && statement[i].kind == Kind::Text && statement[0].Is("SELECT")) {
      edits.Insert(i + 1, {{Kind::Symbol, "::", false}, {Kind::Word, "citext", false}});
    }
  }
  edits.Make();
}

void SortDistinct(Tokens& statement) {
  Edits edits(statement);
  Groups groups(statement);
  for (const Query& query : QueriesOf(statement)) {
    if (!query.distinct || query.groups || query.order + 2 >= query.limit) {
      continue;
    }
    const Selected selected(statement, groups, query.list);
    bool strange = false;
    for (const Range& term : Parts(statement, groups, {query.order + 2, query.limit})) {
      const Range sorted = Sorted(statement, term);
      if (selected.All() || sorted.begin >= sorted.end || selected.Has(sorted)) {
        continue;
      }
      strange = true;
      edits.Wrap(sorted.begin, sorted.end, Words(statement[term.end - 1].Is("DESC") ? "MAX(" : "MIN("), Words(")"));
    }
    if (strange) {
      edits.Erase(query.select + 1, query.select + 2);
      Tokens columns = Words("GROUP BY");
      for (std::size_t column = 1; column <= selected.Count(); ++column) {
        if (column > 1) {
          columns.push_back({Kind::Symbol, ",", false});
        }
        columns.push_back({Kind::Word, std::to_string(column)});
      }
      edits.Insert(query.order, std::move(columns));
    }
  }
  edits.Make();
}

void SortNullFirst(Tokens& statement) {
  Edits edits(statement);
  Groups groups(statement);
  for (const Query& query : QueriesOf(statement)) {
    if (query.order + 2 >= query.limit) {
      continue;
    }
    for (const Range& term : Parts(statement, groups, {query.order + 2, query.limit})) {
      if (term.begin < term.end) {
        edits.Insert(term.end, Words(statement[term.end - 1].Is("DESC") ? "NULLS LAST" : "NULLS FIRST"));
      }
    }
  }
  edits.Make();
}

void NameDerived(Tokens& statement) {
  Edits edits(statement);
  Groups groups(statement);
  int named = 0;
  for (std::size_t i = 1; i + 1 < statement.size(); ++i) {
    const bool table = statement[i - 1].Is("FROM") || statement[i - 1].Is("JOIN") || statement[i - 1].Is("LATERAL");
    if (!table || !statement[i].Is('(') || !statement[i + 1].Is("SELECT")) {
      continue;
    }
    const std::size_t after = groups.After(i);
    const bool has_name = after < statement.size() &&
                          (statement[after].Is("AS") || (statement[after].IsName() && !statement[after].IsKeyword()));
    if (!has_name) {
      edits.Insert(after, Words("AS derived_" + std::to_string(++named)));
    }
  }
  edits.Make();
}

void JoinLaterally(Tokens& statement) {
  Edits edits(statement);
  Groups groups(statement);
  for (std::size_t i = 0; i + 3 < statement.size(); ++i) {
    const bool outer = statement[i].Is("OUTER");
    if (!(outer || statement[i].Is("CROSS")) || !statement[i + 1].Is("APPLY") || !statement[i + 2].Is('(')) {
      continue;
    }
    std::size_t after = groups.After(i + 2);
    if (after < statement.size()) {
      after += statement[after].Is("AS") ? 2U : 1U;
    }
    edits.Replace(i, i + 2, Words(outer ? "LEFT JOIN LATERAL" : "CROSS JOIN LATERAL"));
    if (outer && after <= statement.size()) {
      edits.Insert(after, Words("ON TRUE"));
    }
  }
  edits.Make();
}

}  // namespace host::sql
