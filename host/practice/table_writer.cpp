#include "practice/table_writer.h"

#include "data/statements.h"

namespace host::demo {
namespace {

// Statements of this many characters cost little more to run than larger ones.
constexpr std::size_t kStatementSize = 60000;

}  // namespace

TableWriter::TableWriter(OfficeDatabase& database, Identities& identities, std::string_view table,
                         std::string_view columns)
    : database_(database),
      next_id_(identities.NextId(table)),
      head_("INSERT INTO " + std::string(table) + " (" + std::string(columns)),
      tail_(data::Statements(database).Office(", ", ")").Text()),
      guids_(database.KeepsRowGuids(table) ? &identities.guids : nullptr) {
  if (guids_ != nullptr) {
    head_ += ", UniqueID";
  }
  if (tail_.empty()) {
    tail_ = ")";
  } else {
    head_ += ", OfficeID";
  }
  head_ += ") VALUES ";
}

void TableWriter::Begin(std::int32_t id) {
  rows_ += rows_.empty() ? "(" : ", (";
  rows_ += data::Literal(id).Text();
}

void TableWriter::End() {
  if (guids_ != nullptr) {
    Append(session::ToText(guids_->Guid()));
  }
  rows_ += tail_;
  if (rows_.size() > kStatementSize) {
    Flush();
  }
}

void TableWriter::Flush() {
  if (rows_.empty()) {
    return;
  }
  database_.Connection().Execute(database_.PrepareSQL(head_ + rows_, 1));
  rows_.clear();
}

}  // namespace host::demo
