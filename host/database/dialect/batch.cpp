#include "database/dialect/batch.h"

#include <sqlite3.h>

#include "database/dialect/statement_forms.h"
#include "forms/text.h"
#include "session/connection.h"
#include "session/value.h"

namespace host::sql {
namespace {

std::string NewGuid() {
  session::Guid guid;
  sqlite3_randomness(static_cast<int>(guid.bytes.size()), guid.bytes.data());
  guid.bytes[6] = static_cast<std::uint8_t>((guid.bytes[6] & 0x0FU) | 0x40U);
  guid.bytes[8] = static_cast<std::uint8_t>((guid.bytes[8] & 0x3FU) | 0x80U);
  return session::ToText(guid);
}

void ReplaceWords(Tokens& statement) {
  for (std::size_t i = 0; i < statement.size(); ++i) {
    Token& token = statement[i];
    const bool qualifies = i + 1 < statement.size() && statement[i + 1].Is('.');
    if (qualifies || (i > 0 && statement[i - 1].Is('.'))) {
      continue;
    }
    if (token.Is("TRUE")) {
      token.text = "1";
    } else if (token.Is("FALSE")) {
      token.text = "0";
    } else if (token.Is("DISTINCTROW")) {
      token.text = "DISTINCT";
    }
  }
}

}  // namespace

std::vector<Tokens> ReadBatch(std::string_view batch) {
  std::vector<Tokens> statements = SplitStatements(Tokenize(batch));
  for (Tokens& statement : statements) {
    ReplaceWords(statement);
    DropOwners(statement);
  }
  return statements;
}

void FillGuids(Tokens& statement) {
  Edits edits(statement);
  for (std::size_t i = 0; i + 2 < statement.size(); ++i) {
    if (statement[i].Is("NEWID") && statement[i + 1].Is('(') && statement[i + 2].Is(')')) {
      statement[i] = {Kind::Text, NewGuid(), statement[i].apart};
      edits.Erase(i + 1, i + 3);
    }
  }
  edits.Make();
}

bool Variables::Take(const Tokens& statement) {
  if (statement[0].Is("DECLARE")) {
    return true;
  }
  if (!statement[0].Is("SET") || statement.size() < 2) {
    return false;
  }
  if (statement[1].kind == Kind::Variable && statement.size() > 3 && statement[2].Is('=')) {
    Tokens value = Slice(statement, 3, statement.size());
    FillGuids(value);
    Fill(value);
    // Values that are made of one another would grow past all bounds.
    constexpr std::size_t kMost = 1000;
    if (value.size() > kMost) {
      throw session::DatabaseError("The value of the variable " + statement[1].text + " is too long.", {},
                                   SQLITE_TOOBIG);
    }
    values_[forms::ToLower(statement[1].text)] = std::move(value);
    return true;
  }
  return statement[1].Is("NOCOUNT");
}

void Variables::Fill(Tokens& statement) const {
  Edits edits(statement);
  for (std::size_t i = 0; i < statement.size(); ++i) {
    if (statement[i].kind != Kind::Variable) {
      continue;
    }
    const std::string name = forms::ToLower(statement[i].text);
    const auto value = values_.find(name);
    if (name == "@@identity") {
      edits.Replace(i, i + 1, identity_);
    } else if (value != values_.end()) {
      edits.Replace(i, i + 1, value->second);
    }
  }
  edits.Make();
}

}  // namespace host::sql
