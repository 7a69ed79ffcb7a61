#include "database/dialect/batch.h"
#include "database/dialect/postgres_comparisons.h"
#include "database/dialect/postgres_names.h"
#include "database/dialect/postgres_patterns.h"
#include "database/dialect/postgres_selects.h"
#include "database/dialect/postgres_statements.h"
#include "database/dialect/prepare_sql.h"
#include "database/dialect/statement_forms.h"
#include "database/dialect/written.h"

namespace host {
namespace {

using sql::Token;
using sql::Tokens;

// The server may be told to read backslashes in plain texts, so a text with one says how it is read.
std::string TextLiteral(std::string_view text) {
  if (text.find('\\') == std::string_view::npos) {
    return sql::Quoted(text, '\'');
  }
  std::string doubled;
  for (const char c : text) {
    doubled.append(c == '\\' ? 2 : 1, c);
  }
  return "E" + sql::Quoted(doubled, '\'');
}

constexpr sql::Spelling kSpelling = {
    .text = TextLiteral,
    .moment = [](std::string_view iso) { return "TIMESTAMP " + sql::Quoted(iso, '\''); },
    .name = sql::InQuotes,
};

void Translate(Tokens& statement) {
  // Before words of PostgreSQL's own stand in it.
  sql::QuoteCaptions(statement);
  const Token first = statement[0];
  if (first.Is("DELETE")) {
    sql::DropDeleteStar(statement);
    sql::UnjoinDeleted(statement);
  } else if (first.Is("INSERT")) {
    sql::QuoteBareValues(statement);
    sql::FitValues(statement);
  } else if (first.Is("UPDATE")) {
    sql::UnqualifySet(statement);
    sql::UnjoinUpdated(statement);
  }
  sql::RenameTypes(statement);
  sql::LimitTop(statement);
  sql::JoinLaterally(statement);
  sql::FitSums(statement);
  sql::FitComparisons(statement);
  sql::MatchPatterns(statement);
  sql::FitLists(statement);
  sql::SortDistinct(statement);
  sql::SortNullFirst(statement);
  sql::SelectVisibleTables(statement);
  sql::NameDerived(statement);
  sql::RenameFunctions(statement);
}

std::string Translated(Tokens statement) {
  Translate(statement);
  return sql::Written(statement, kSpelling);
}

// "if not exists (...) create table ...": a block, as "CREATE TABLE IF NOT EXISTS" asks for the right to make tables
// where the table is there.
std::string Block(const Tokens& statement) {
  const bool asks = statement.size() > 3 && statement[1].Is("NOT") && statement[2].Is("EXISTS") && statement[3].Is('(');
  const std::size_t then = asks ? sql::AfterGroup(statement, 3) : statement.size();
  if (then >= statement.size()) {
    return Translated(statement);
  }
  return "DO " + TextLiteral("BEGIN " + Translated(sql::Slice(statement, 0, then)) + " THEN " +
                             Translated(sql::Slice(statement, then, statement.size())) + "; END IF; END");
}

}  // namespace

std::string PreparePostgres(std::string_view statement) {
  std::string prepared;
  // The last insert's, which answers for a batch that selects nothing.
  std::string returned;
  std::size_t insert_end = 0;
  sql::Variables variables("practice_identity()");
  for (Tokens& tokens : sql::ReadBatch(statement)) {
    if (variables.Take(tokens)) {
      continue;
    }
    variables.Fill(tokens);
    const bool inserts = tokens[0].Is("INSERT");
    if (inserts) {
      returned = sql::TakeOutput(tokens);
    } else if (tokens[0].Is("SELECT")) {
      returned.clear();
    }
    prepared += prepared.empty() ? "" : "; ";
    prepared += tokens[0].Is("IF") ? Block(tokens) : Translated(std::move(tokens));
    insert_end = inserts ? prepared.size() : insert_end;
  }
  if (!returned.empty()) {
    prepared.insert(insert_end, " RETURNING " + returned);
  }
  return sql::WithoutZeros(std::move(prepared), statement);
}

}  // namespace host
