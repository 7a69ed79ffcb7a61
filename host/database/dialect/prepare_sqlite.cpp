#include "database/dialect/batch.h"
#include "database/dialect/found_order.h"
#include "database/dialect/prepare_sql.h"
#include "database/dialect/statement_forms.h"
#include "database/dialect/text_operators.h"
#include "database/dialect/written.h"
#include "database/schema.h"

namespace host {
namespace {

using sql::Token;
using sql::Tokens;

void Translate(Tokens& statement) {
  sql::ReplaceInformationSchema(statement);
  const Token first = statement[0];
  if (first.Is("DELETE")) {
    sql::DropDeleteStar(statement);
  } else if (first.Is("INSERT")) {
    sql::QuoteBareValues(statement);
  } else if (first.Is("UPDATE")) {
    sql::UnqualifySet(statement);
    sql::UnjoinUpdated(statement);
  } else if (first.Is("IF")) {
    sql::CreateIfNotExists(statement);
  }
  if (statement[0].Is("CREATE")) {
    sql::CollateNewText(statement);
  }
  sql::LimitTop(statement);
  sql::JoinApplied(statement);
  sql::JoinTexts(statement);
  sql::TranslatePatterns(statement);
  sql::FoldComparisons(statement);
  sql::SortWhatIsFound(statement);
}

// What an insert's OUTPUT asks for, as a select behind it; empty without one. Of the offices that have a row of its key
// the last one is the row that was inserted.
std::string SelectOutput(Tokens& insert) {
  const Table* table = insert.size() > 2 ? FindTable(insert[2].text) : nullptr;
  if (table == nullptr) {
    return {};
  }
  const std::string column = sql::TakeOutput(insert);
  return column.empty() ? column
                        : "SELECT " + column + " FROM " + insert[2].text + " WHERE " + std::string(table->key) +
                              "=identity() ORDER BY rowid DESC LIMIT 1";
}

// A statement's text ends at a zero character, so a text with one is written by its bytes.
std::string TextLiteral(std::string_view text) {
  if (text.find('\0') == std::string_view::npos) {
    return sql::Quoted(text, '\'');
  }
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string literal = "CAST(x'";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    literal += kDigits[byte >> 4U];
    literal += kDigits[byte & 0x0FU];
  }
  return literal + "' AS TEXT)";
}

constexpr sql::Spelling kSpelling = {
    .text = TextLiteral,
    .moment = [](std::string_view iso) { return sql::Quoted(iso, '\''); },
    .name = sql::Bracketed,
};

}  // namespace

std::string PrepareSqlite(std::string_view statement) {
  std::string prepared;
  std::string inserted;
  sql::Variables variables("identity()");
  for (Tokens& tokens : sql::ReadBatch(statement)) {
    sql::FillGuids(tokens);
    if (variables.Take(tokens)) {
      continue;
    }
    variables.Fill(tokens);
    if (tokens[0].Is("INSERT")) {
      inserted = SelectOutput(tokens);
    } else if (tokens[0].Is("SELECT")) {
      inserted.clear();
    }
    Translate(tokens);
    prepared += (prepared.empty() ? "" : "; ") + sql::Written(tokens, kSpelling);
  }
  if (!inserted.empty()) {
    prepared += "; " + inserted;
  }
  return sql::WithoutZeros(std::move(prepared), statement);
}

}  // namespace host
