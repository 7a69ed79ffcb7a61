#include "database/odbc/odbc_recordset.h"

#include <utility>

namespace host {
namespace {

constexpr std::size_t kPage = 100;  // rows

[[noreturn]] void FailWithoutRow() {
  throw session::DatabaseError("There is no current row.", {}, 0);
}

}  // namespace

OdbcRecordset::OdbcRecordset(std::vector<session::Field> fields, OdbcRows rows)
    : fields_(std::move(fields)), page_(std::move(rows)) {
  page_.ended = true;
}

OdbcRecordset::OdbcRecordset(std::vector<session::Field> fields, OdbcReaders::Lease lease, OdbcStatement statement,
                             std::string batch)
    : fields_(std::move(fields)), lease_(std::move(lease)), statement_(std::move(statement)), batch_(std::move(batch)) {
  FetchPage();
}

void OdbcRecordset::MoveNext() {
  if (Eof()) {
    FailWithoutRow();
  }
  if (++row_ == page_.values.size() && !page_.ended) {
    FetchPage();
  }
}

session::Value OdbcRecordset::Get(std::size_t field) const {
  if (Eof() || field >= fields_.size()) {
    FailWithoutRow();
  }
  return page_.values[row_][field];
}

void OdbcRecordset::FetchPage() {
  page_ = {.values = {}, .ended = true};
  row_ = 0;
  try {
    page_ = FetchOdbcRows(*lease_, statement_.get(), fields_, kPage, batch_);
  } catch (const session::DatabaseError&) {
    Close();
    throw;
  }
  if (page_.ended) {
    Close();
  }
}

void OdbcRecordset::Close() {
  statement_.reset();
  lease_.reset();
}

}  // namespace host
