#pragma once

#include <string>
#include <vector>

#include "database/postgres/postgres_readers.h"
#include "database/postgres/postgres_values.h"
#include "session/connection.h"

namespace host {

// Rows that were read whole.
class PostgresRows final : public session::Recordset {
 public:
  // No `result` is what a batch without rows returns.
  PostgresRows(PostgresResult result, std::vector<session::Field> fields);

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return row_ >= count_; }
  void MoveNext() override;
  session::Value Get(std::size_t field) const override;

 private:
  PostgresResult result_;
  std::vector<session::Field> fields_;
  int row_ = 0;
  int count_ = 0;
};

// Rows of a reader, fetched as they are asked for.
class PostgresStream final : public session::Recordset {
 public:
  // The select has been sent. `lease` goes back after the last row.
  PostgresStream(PostgresReaders::Lease lease, PostgresColumns& columns);

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return row_ == nullptr; }
  void MoveNext() override;
  session::Value Get(std::size_t field) const override;

 private:
  // The next row, or the result without rows behind the last one.
  PostgresResult Fetch();
  void Stand(PostgresResult fetched);

  PostgresReaders::Lease lease_;
  PostgresResult row_;  // null behind the last one
  std::vector<session::Field> fields_;
};

}  // namespace host
