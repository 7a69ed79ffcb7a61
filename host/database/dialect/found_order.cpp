#include "database/dialect/found_order.h"

#include <algorithm>

#include "database/schema.h"
#include "forms/text.h"

namespace host::sql {
namespace {

constexpr std::size_t kFewLetters = 3;

// What stands under the name that the rows are sorted by: its column, or the name itself.
std::string_view ColumnUnder(const Tokens& statement, std::size_t from, std::string_view name) {
  for (std::size_t i = 1; i + 1 < from; ++i) {
    if (statement[i].Is("AS") && statement[i - 1].IsName() && forms::EqualsIgnoringCase(statement[i + 1].text, name)) {
      return statement[i - 1].text;
    }
  }
  return name;
}

bool Holds(std::string_view columns, std::string_view column, bool first) {
  for (std::size_t begin = 0; begin < columns.size();) {
    const std::size_t end = std::min(columns.find(',', begin), columns.size());
    if (forms::EqualsIgnoringCase(forms::Trim(columns.substr(begin, end - begin)), column)) {
      return true;
    }
    begin = first ? columns.size() : end + 1;
  }
  return false;
}

// Whether an index finds what begins so, or tells of each row in the order whether it has the letters.
bool IndexHelps(std::string_view column, bool anywhere, std::string_view order) {
  return std::ranges::any_of(PracticeTables(), [&](const Table& table) {
    return std::ranges::any_of(table.indexes, [&](const Index& index) {
      return index.of == Index::Of::Values &&
             ((!anywhere && Holds(index.columns, column, true)) ||
              (Holds(index.columns, order, true) && Holds(index.columns, column, false)));
    });
  });
}

bool IsKey(std::string_view column) {
  return std::ranges::any_of(PracticeTables(),
                             [&](const Table& table) { return forms::EqualsIgnoringCase(table.key, column); });
}

bool FindsFew(const Tokens& statement, std::size_t from, std::size_t end, std::string_view order) {
  bool few = false;
  for (std::size_t i = from; i + 1 < end; ++i) {
    if (statement[i].Is("BETWEEN") && statement[i + 1].IsNumber() && IsKey(statement[i - 1].text)) {
      if (statement[i + 1].text.size() < kFewLetters) {
        return false;
      }
      few = true;
      continue;
    }
    if (!statement[i].Is("LIKE") || statement[i + 1].kind != Kind::Text) {
      continue;
    }
    std::size_t column = i - 1;
    while (column > from && statement[column].Is(')')) {
      --column;
    }
    const std::string_view pattern = statement[i + 1].text;
    if (!statement[column].IsName() || IndexHelps(statement[column].text, pattern.starts_with('%'), order)) {
      return false;
    }
    few = few || pattern.size() >= kFewLetters + static_cast<std::size_t>(std::ranges::count(pattern, '%'));
  }
  return few;
}

}  // namespace

void SortWhatIsFound(Tokens& statement) {
  const std::size_t from = FindWord(statement, 0, "FROM");
  const std::size_t where = FindWord(statement, from, "WHERE");
  const std::size_t order = FindWord(statement, where, {"UNION", "GROUP", "ORDER"});
  if (!statement[0].Is("SELECT") || order + 2 >= statement.size() || !statement[order].Is("ORDER") ||
      !statement[order + 2].IsName() || statement[order + 2].IsNumber()) {
    return;
  }
  const std::size_t end = GroupEnd(statement, order);
  const std::size_t term = end > order + 4 && statement[order + 3].Is('.') ? order + 4 : order + 2;
  if (FindsFew(statement, where, order, ColumnUnder(statement, from, statement[term].text))) {
    statement[order + 2].apart = false;
    Insert(statement, order + 2, Words("+"));
  }
}

}  // namespace host::sql
