#include "database/dialect/statement_forms.h"

#include <algorithm>
#include <array>

#include "forms/text.h"

namespace host::sql {
namespace {

bool IsAt(const Tokens& tokens, std::size_t i, std::string_view word) {
  return i < tokens.size() && tokens[i].Is(word);
}

bool IsAt(const Tokens& tokens, std::size_t i, char symbol) {
  return i < tokens.size() && tokens[i].Is(symbol);
}

bool Names(const Tokens& tokens, std::size_t i, std::string_view name) {
  return i < tokens.size() && tokens[i].IsName() && forms::EqualsIgnoringCase(tokens[i].text, name);
}

void Append(Tokens& tokens, const Tokens& added) {
  Insert(tokens, tokens.size(), added);
}

// "(" tokens ")"
void AppendGroup(Tokens& tokens, const Tokens& content) {
  Append(tokens, Words("("));
  Append(tokens, content);
  tokens.push_back({Kind::Symbol, ")", false});
}

}  // namespace

void DropOwners(Tokens& statement) {
  Edits edits(statement);
  std::size_t done = 0;
  for (std::size_t i = 0; i + 1 < statement.size(); ++i) {
    if (Names(statement, i, "dbo") && statement[i + 1].Is('.')) {
      const bool database_too = i >= done + 2 && statement[i - 1].Is('.') && statement[i - 2].IsName();
      const std::size_t from = database_too ? i - 2 : i;
      done = i + 2;
      if (done < statement.size()) {
        statement[done].apart = statement[from].apart;
      }
      edits.Erase(from, done);
      ++i;
    }
  }
  edits.Make();
}

void ReplaceInformationSchema(Tokens& statement) {
  Edits edits(statement);
  for (std::size_t i = 0; i + 2 < statement.size(); ++i) {
    if (statement[i].Is("INFORMATION_SCHEMA") && statement[i + 1].Is('.')) {
      const bool columns = statement[i + 2].Is("COLUMNS");
      edits.Replace(
          i, i + 3,
          Words(columns
                    ? "(SELECT t.name COLLATE NOCASE AS TABLE_NAME, c.name COLLATE NOCASE AS COLUMN_NAME, c.type AS "
                      "DATA_TYPE FROM sqlite_schema t JOIN pragma_table_info(t.name) c WHERE t.type='table')"
                    : "(SELECT name COLLATE NOCASE AS TABLE_NAME FROM sqlite_schema WHERE type='table')"));
      i += 2;
    }
  }
  edits.Make();
}

void LimitTop(Tokens& statement) {
  Edits edits(statement);
  Groups groups(statement);
  for (std::size_t i = 1; i + 1 < statement.size(); ++i) {
    if (!statement[i].Is("TOP") || !(statement[i - 1].Is("SELECT") || statement[i - 1].Is("DISTINCT"))) {
      continue;
    }
    const std::size_t after = statement[i + 1].Is('(') ? groups.After(i + 1) : i + 2;
    Tokens limit = Words("LIMIT");
    Append(limit, Slice(statement, i + 1, after));
    edits.Erase(i, after);
    edits.Insert(groups.End(after), std::move(limit));
    i = after - 1;
  }
  edits.Make();
}

void JoinApplied(Tokens& statement) {
  Edits edits(statement);
  Groups groups(statement);
  for (std::size_t i = 0; i + 6 < statement.size(); ++i) {
    const bool outer = statement[i].Is("OUTER");
    if (!(outer || statement[i].Is("CROSS")) || !statement[i + 1].Is("APPLY") || !statement[i + 2].Is('(') ||
        !statement[i + 3].Is("SELECT") || !statement[i + 4].Is('*') || !statement[i + 5].Is("FROM")) {
      continue;
    }
    const Token table = statement[i + 6];
    const std::size_t end = groups.End(i + 3);
    std::size_t alias_at = end + 1;
    alias_at += IsAt(statement, alias_at, "AS") ? 1U : 0U;
    if (alias_at >= statement.size() || !(end == i + 7 || IsAt(statement, i + 7, "WHERE"))) {
      continue;
    }
    const Token alias = statement[alias_at];
    Tokens condition = end == i + 7 ? Words("1") : Slice(statement, i + 8, end);
    for (std::size_t c = 0; c + 1 < condition.size(); ++c) {
      if (Names(condition, c, table.text) && condition[c + 1].Is('.')) {
        condition[c].text = alias.text;
      }
    }
    Tokens join = Words(outer ? "LEFT JOIN" : "INNER JOIN");
    join.push_back(table);
    Append(join, Words("AS"));
    join.push_back(alias);
    Append(join, Words("ON"));
    AppendGroup(join, condition);
    edits.Replace(i, alias_at + 1, std::move(join));
    i = alias_at;
  }
  edits.Make();
}

void DropDeleteStar(Tokens& statement) {
  if (IsAt(statement, 1, '*')) {
    Erase(statement, 1, 2);
  }
}

std::string TakeOutput(Tokens& statement) {
  const std::size_t output = FindWord(statement, 0, "OUTPUT");
  if (output + 3 >= statement.size() || !IsAt(statement, 1, "INTO") || !statement[output + 1].Is("INSERTED")) {
    return {};
  }
  std::string column = statement[output + 3].text;
  Erase(statement, output, output + 4);
  return column;
}

void QuoteBareValues(Tokens& statement) {
  std::size_t i = FindWord(statement, 0, "VALUES") + 1;
  while (IsAt(statement, i, '(')) {
    for (++i; i + 1 < statement.size() && !statement[i].Is(')');
         i = statement[i].Is('(') ? AfterGroup(statement, i) : i + 1) {
      Token& value = statement[i];
      const bool alone = (statement[i - 1].Is('(') || statement[i - 1].Is(',')) &&
                         (statement[i + 1].Is(')') || statement[i + 1].Is(','));
      if (alone && value.kind == Kind::Word && !value.Is("NULL") && !value.IsNumber()) {
        value.kind = Kind::Text;
      }
    }
    i += IsAt(statement, i + 1, ',') ? 2U : 1U;
  }
}

void UnqualifySet(Tokens& statement) {
  Edits edits(statement);
  bool target = true;
  for (std::size_t i = FindWord(statement, 1, "SET") + 1; i + 2 < statement.size();
       i = statement[i].Is('(') ? AfterGroup(statement, i) : i + 1) {
    if (statement[i].Is("FROM") || statement[i].Is("WHERE")) {
      break;
    }
    if (target && statement[i].IsName() && statement[i + 1].Is('.')) {
      statement[i + 2].apart = statement[i].apart;
      edits.Erase(i, i + 2);
      i += 2;
    }
    target = statement[i].Is(',');
  }
  edits.Make();
}

std::optional<Joined> InnerJoins(const Tokens& statement, std::size_t i) {
  Joined joined;
  while (IsAt(statement, i, "JOIN") || (IsAt(statement, i, "INNER") && IsAt(statement, i + 1, "JOIN"))) {
    i += statement[i].Is("INNER") ? 2U : 1U;
    const std::size_t on = FindWord(statement, i, "ON");
    const std::size_t end = FindWord(statement, on + 1, {"INNER", "JOIN", "WHERE"});
    if (on == statement.size()) {
      return std::nullopt;
    }
    Append(joined.sources, joined.sources.empty() ? Tokens() : Words(","));
    Append(joined.sources, Slice(statement, i, on));
    Append(joined.condition, joined.condition.empty() ? Tokens() : Words("AND"));
    AppendGroup(joined.condition, Slice(statement, on + 1, end));
    i = end;
  }
  if (joined.sources.empty() || (i < statement.size() && !statement[i].Is("WHERE"))) {
    return std::nullopt;
  }
  if (i < statement.size()) {
    Append(joined.condition, Words("AND"));
    AppendGroup(joined.condition, Slice(statement, i + 1, statement.size()));
  }
  return joined;
}

void UnjoinUpdated(Tokens& statement) {
  const std::size_t from = FindWord(statement, 1, "FROM");
  if (statement.size() < 2 || from + 1 >= statement.size()) {
    return;
  }
  std::size_t behind = from + 2;
  std::size_t name = from + 1;
  if (IsAt(statement, behind, "AS")) {
    name = behind + 1;
    behind += 2;
  }
  const auto joined =
      Names(statement, name, statement[1].text) ? InnerJoins(statement, behind) : std::optional<Joined>();
  if (!joined) {
    return;
  }
  const Tokens target = Slice(statement, from + 1, behind);
  Erase(statement, from + 1, statement.size());
  Append(statement, joined->sources);
  Append(statement, Words("WHERE"));
  Append(statement, joined->condition);
  if (target.size() > 1) {
    Erase(statement, 1, 2);
    Insert(statement, 1, target);
  }
}

void CreateIfNotExists(Tokens& statement) {
  if (!IsAt(statement, 1, "NOT") || !IsAt(statement, 2, "EXISTS") || !IsAt(statement, 3, '(')) {
    return;
  }
  const std::size_t create = AfterGroup(statement, 3);
  if (IsAt(statement, create, "CREATE") && IsAt(statement, create + 1, "TABLE")) {
    Erase(statement, 0, create);
    Insert(statement, 2, Words("IF NOT EXISTS"));
  }
}

void CollateNewText(Tokens& statement) {
  constexpr std::array<std::string_view, 6> kTypes = {"NVARCHAR", "VARCHAR", "NCHAR", "CHAR", "NTEXT", "TEXT"};
  Edits edits(statement);
  Groups groups(statement);
  for (std::size_t i = 3; i < statement.size(); ++i) {
    const bool text = std::any_of(kTypes.begin(), kTypes.end(), [&](auto type) { return statement[i].Is(type); });
    if (text && statement[i - 1].IsName()) {
      edits.Insert(IsAt(statement, i + 1, '(') ? groups.After(i + 1) : i + 1, Words("COLLATE NOCASE"));
    }
  }
  edits.Make();
}

}  // namespace host::sql
