#include "database/postgres/postgres_recordset.h"

#include <utility>

namespace host {
namespace {

[[noreturn]] void FailWithoutRow() {
  throw session::DatabaseError("There is no current row.", {}, 0);
}

}  // namespace

PostgresRows::PostgresRows(PostgresResult result, std::vector<session::Field> fields)
    : result_(std::move(result)), fields_(std::move(fields)), count_(PQntuples(result_.get())) {}

void PostgresRows::MoveNext() {
  if (Eof()) {
    FailWithoutRow();
  }
  ++row_;
}

session::Value PostgresRows::Get(std::size_t field) const {
  if (Eof() || field >= fields_.size()) {
    FailWithoutRow();
  }
  return ValueAt(result_.get(), row_, static_cast<int>(field), fields_[field].type);
}

PostgresStream::PostgresStream(PostgresReaders::Lease lease, PostgresColumns& columns) : lease_(std::move(lease)) {
  PostgresResult first = Fetch();
  fields_ = columns.FieldsOf(first.get());
  Stand(std::move(first));
}

PostgresResult PostgresStream::Fetch() {
  try {
    return lease_->Next();
  } catch (const session::DatabaseError&) {
    row_.reset();
    lease_.reset();
    throw;
  }
}

void PostgresStream::Stand(PostgresResult fetched) {
  if (PQntuples(fetched.get()) > 0) {
    row_ = std::move(fetched);
    return;
  }
  row_.reset();
  lease_.reset();
}

void PostgresStream::MoveNext() {
  if (Eof()) {
    FailWithoutRow();
  }
  Stand(Fetch());
}

session::Value PostgresStream::Get(std::size_t field) const {
  if (Eof() || field >= fields_.size()) {
    FailWithoutRow();
  }
  return ValueAt(row_.get(), 0, static_cast<int>(field), fields_[field].type);
}

}  // namespace host
