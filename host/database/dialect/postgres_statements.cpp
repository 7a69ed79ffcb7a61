#include "database/dialect/postgres_statements.h"

#include <unordered_map>

#include "database/dialect/operands.h"
#include "database/dialect/postgres_comparisons.h"
#include "database/dialect/queries.h"
#include "database/dialect/statement_forms.h"
#include "forms/text.h"

namespace host::sql {
namespace {

bool IsAt(const Tokens& tokens, std::size_t i, std::string_view word) {
  return i < tokens.size() && tokens[i].Is(word);
}

// Of a new table; a text's size is checked.
void RenameColumns(Tokens& statement, Edits& edits, Groups& groups) {
  const std::size_t open = FindWord(statement, 0, "TABLE") + 2;
  if (open >= statement.size() || !statement[open].Is('(')) {
    return;
  }
  for (const Range& column : Parts(statement, groups, {open + 1, groups.End(open + 1)})) {
    const std::size_t type = column.begin + 1;
    const auto named = type < column.end ? TypeNamed(statement[type]) : std::nullopt;
    if (!named) {
      continue;
    }
    const bool sized = type + 2 < column.end && statement[type + 1].Is('(');
    Tokens words = Words(PostgresType(*named));
    if (named == ColumnType::Text && sized && statement[type + 2].IsNumber()) {
      Tokens check = Words("CHECK (length(");
      check.push_back({statement[column.begin].kind, statement[column.begin].text, false});
      const Tokens most = Words(") <= " + statement[type + 2].text + ")");
      check.insert(check.end(), most.begin(), most.end());
      check[check.size() - most.size()].apart = false;
      words.insert(words.end(), check.begin(), check.end());
    }
    edits.Replace(type, sized ? groups.After(type + 1) : type + 1, std::move(words));
  }
}

void RenameCasts(Tokens& statement, Edits& edits, Operands& operands) {
  for (std::size_t i = 0; i + 3 < statement.size(); ++i) {
    if (!statement[i].Is("CAST") || !statement[i + 1].Is('(')) {
      continue;
    }
    Groups& groups = operands.Brackets();
    const std::size_t end = groups.End(i + 2);
    std::size_t type = end - 1;
    if (statement[type].Is(')')) {
      type = groups.Open(type) - 1;
    }
    const auto named = type > i + 3 && statement[type - 1].Is("AS") ? TypeNamed(statement[type]) : std::nullopt;
    if (!named) {
      continue;
    }
    edits.Replace(type, end, Words(PostgresType(*named)));
    if (!IsText(named) || operands.End(i + 2) != type - 1) {
      continue;
    }
    const auto from = operands.Beginning(i + 2);
    if (from == ColumnType::Money || from == ColumnType::DateTime) {
      WrapAsText(edits, i + 2, type - 1, *from);
    }
  }
}

}  // namespace

std::string_view PostgresType(ColumnType type) {
  switch (type) {
    case ColumnType::Int:
      return "int";
    case ColumnType::SmallInt:
      return "smallint";
    case ColumnType::Money:
      return "numeric(19,4)";
    case ColumnType::Real:
      return "float8";
    case ColumnType::Text:
    case ColumnType::Memo:
      return "citext";
    case ColumnType::DateTime:
      return "timestamp(0)";
    case ColumnType::Guid:
      return "uuid";
  }
  return {};
}

void UnjoinDeleted(Tokens& statement) {
  if (!IsAt(statement, 1, "FROM")) {
    Erase(statement, 1, FindWord(statement, 1, "FROM"));
  } else if (const std::size_t second = FindWord(statement, 2, {"FROM", "WHERE"}); IsAt(statement, second, "FROM")) {
    Erase(statement, 1, second);
  }
  const std::size_t join = FindWord(statement, 2, {"INNER", "JOIN", "WHERE"});
  if (const auto joined = InnerJoins(statement, join)) {
    Erase(statement, join, statement.size());
    for (const Tokens& part : {Words("USING"), joined->sources, Words("WHERE"), joined->condition}) {
      Insert(statement, statement.size(), part);
    }
  }
}

void SelectVisibleTables(Tokens& statement) {
  Edits edits(statement);
  for (std::size_t i = 0; i + 2 < statement.size(); ++i) {
    if (!statement[i].Is("INFORMATION_SCHEMA") || !statement[i + 1].Is('.')) {
      continue;
    }
    const bool columns = statement[i + 2].Is("COLUMNS");
    Tokens select =
        Words(columns ? "(SELECT c.relname::citext AS table_name, a.attname::citext AS column_name, "
                        "format_type(a.atttypid, a.atttypmod)::citext AS data_type FROM pg_catalog.pg_class c "
                        "JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped "
                      : "(SELECT c.relname::citext AS table_name FROM pg_catalog.pg_class c ");
    const Tokens visible = Words(
        "WHERE c.relkind IN ('r', 'p', 'f', 'v') AND pg_table_is_visible(c.oid) AND "
        "c.relnamespace <> 'pg_catalog'::regnamespace)");
    select.insert(select.end(), visible.begin(), visible.end());
    edits.Replace(i, i + 3, std::move(select));
    i += 2;
  }
  edits.Make();
}

void RenameFunctions(Tokens& statement) {
  static const std::unordered_map<std::string_view, std::string_view> names = {
      {"ISNULL", "COALESCE"}, {"IFNULL", "COALESCE"}, {"LEN", "length"}, {"TRIM", "btrim"}};
  Edits edits(statement);
  Groups groups(statement);
  for (std::size_t i = 0; i + 2 < statement.size(); ++i) {
    Token& word = statement[i];
    if (word.kind != Kind::Word || !statement[i + 1].Is('(')) {
      continue;
    }
    const bool empty = statement[i + 2].Is(')');
    if (const auto name = names.find(forms::ToUpper(word.text)); name != names.end()) {
      word.text = name->second;
    } else if (empty && (word.Is("GETDATE") || word.Is("NOW"))) {
      edits.Replace(i, i + 3, Words("LOCALTIMESTAMP(0)"));
    } else if (empty && word.Is("NEWID")) {
      word.text = "gen_random_uuid";
    } else if (word.Is("CHAR")) {
      word.text = "chr";
      edits.Wrap(i, groups.After(i + 1), Words("CAST("), Words("AS citext)"));
    } else if (word.Is("GROUP_CONCAT")) {
      const std::vector<Range> arguments = Parts(statement, groups, {i + 2, groups.End(i + 2)});
      word.text = "string_agg";
      if (!arguments.empty()) {
        edits.Wrap(i + 2, arguments.front().end, Words("CAST("),
                   Words(arguments.size() > 1 ? "AS citext)" : "AS citext), ','"));
      }
    }
  }
  edits.Make();
}

void RenameTypes(Tokens& statement) {
  Edits edits(statement);
  Operands operands(statement);
  if (statement[0].Is("CREATE")) {
    RenameColumns(statement, edits, operands.Brackets());
  }
  RenameCasts(statement, edits, operands);
  edits.Make();
}

}  // namespace host::sql
