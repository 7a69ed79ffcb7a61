#include <algorithm>
#include <array>

#include "database/dialect/batch.h"
#include "database/dialect/prepare_sql.h"
#include "database/dialect/statement_forms.h"
#include "database/dialect/written.h"

namespace host {
namespace {

using sql::Tokens;

// "20261121 14:05:00", which no language setting reads otherwise.
std::string MomentLiteral(std::string_view iso) {
  std::string digits(iso);
  std::erase(digits, '-');
  return sql::Quoted(digits, '\'');
}

constexpr sql::Spelling kSpelling = {
    .text = [](std::string_view text) { return "N" + sql::Quoted(text, '\''); },
    .moment = MomentLiteral,
    .name =
        [](std::string_view name) {
          std::string closed;
          for (const char c : name) {
            closed.append(c == ']' ? 2 : 1, c);
          }
          return "[" + closed + "]";
        },
};

}  // namespace

std::string PrepareServer(std::string_view statement) {
  std::string prepared;
  for (Tokens& tokens : sql::ReadBatch(statement)) {
    if (tokens[0].Is("DELETE")) {
      sql::DropDeleteStar(tokens);
    } else if (tokens[0].Is("INSERT")) {
      sql::QuoteBareValues(tokens);
    }
    prepared += (prepared.empty() ? "" : "; ") + sql::Written(tokens, kSpelling);
  }
  return sql::WithoutZeros(std::move(prepared), statement);
}

}  // namespace host
