#include "database/dialect/queries.h"

#include <algorithm>
#include <limits>

namespace host::sql {
namespace {

constexpr auto kOpen = std::numeric_limits<std::size_t>::max();
constexpr auto kNone = std::numeric_limits<std::size_t>::max();

void Note(std::size_t& clause, std::size_t at) {
  clause = std::min(clause, at);
}

void NoteClause(Query& query, const Token& word, std::size_t at) {
  if (word.Is("FROM")) {
    Note(query.from, at);
  } else if (word.Is("GROUP") || word.Is("HAVING")) {
    query.groups = true;
  } else if (word.Is("ORDER")) {
    Note(query.order, at);
  } else if (word.Is("LIMIT") || word.Is("OFFSET")) {
    Note(query.limit, at);
  } else if (!word.Is("WHERE")) {
    return;
  }
  Note(query.list.end, at);
}

void End(Query& query, std::size_t at) {
  for (std::size_t* clause : {&query.list.end, &query.from, &query.order, &query.limit, &query.end}) {
    Note(*clause, at);
  }
}

std::size_t ListBegin(const Tokens& tokens, std::size_t select) {
  const std::size_t next = select + 1;
  return next < tokens.size() && (tokens[next].Is("DISTINCT") || tokens[next].Is("ALL")) ? next + 1 : next;
}

}  // namespace

std::vector<Query> QueriesOf(const Tokens& statement) {
  std::vector<Query> queries;
  std::vector<std::size_t> open = {kNone};  // by group, the query that is read
  for (std::size_t i = 0; i < statement.size(); ++i) {
    const Token& token = statement[i];
    std::size_t& current = open.back();
    if (token.Is('(')) {
      open.push_back(kNone);
    } else if (token.Is(')')) {
      if (current != kNone) {
        End(queries[current], i);
      }
      open.pop_back();
      if (open.empty()) {
        open.push_back(kNone);
      }
    } else if (token.Is("SELECT")) {
      current = queries.size();
      queries.push_back({.select = i,
                         .distinct = i + 1 < statement.size() && statement[i + 1].Is("DISTINCT"),
                         .list = {ListBegin(statement, i), kOpen},
                         .from = kOpen,
                         .order = kOpen,
                         .limit = kOpen,
                         .end = kOpen});
    } else if (current != kNone && (token.Is("UNION") || token.Is("EXCEPT") || token.Is("INTERSECT"))) {
      End(queries[current], i);
      current = kNone;
    } else if (current != kNone && token.kind == Kind::Word) {
      NoteClause(queries[current], token, i);
    }
  }
  for (Query& query : queries) {
    End(query, statement.size());
  }
  return queries;
}

std::vector<Range> Parts(const Tokens& tokens, Groups& groups, Range range) {
  std::vector<Range> parts;
  if (range.begin >= range.end) {
    return parts;
  }
  parts.push_back({range.begin, range.end});
  for (std::size_t i = range.begin; i < range.end; i = tokens[i].Is('(') ? groups.After(i) : i + 1) {
    if (tokens[i].Is(',')) {
      parts.back().end = i;
      parts.push_back({i + 1, range.end});
    }
  }
  return parts;
}

}  // namespace host::sql
