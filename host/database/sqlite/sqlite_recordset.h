#pragma once

#include "database/sqlite/sqlite_handle.h"
#include "session/connection.h"

namespace host {

// The rows of one statement, stepped as they are asked for.
class SqliteRecordset final : public session::Recordset {
 public:
  // `lease` is the handle when it is borrowed for this recordset; it goes back after the last row.
  SqliteRecordset(SqliteHandle& handle, SqliteReaders::Lease lease, SqliteStatement statement, std::string batch);

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return statement_ == nullptr; }
  void MoveNext() override;
  session::Value Get(std::size_t field) const override;

 private:
  SqliteHandle& handle_;
  SqliteReaders::Lease lease_;
  SqliteStatement statement_;  // null behind the last row
  std::string batch_;
  std::vector<session::Field> fields_;
};

// What a batch without rows returns.
class EmptyRecordset final : public session::Recordset {
 public:
  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return true; }
  void MoveNext() override;
  session::Value Get(std::size_t field) const override;

 private:
  std::vector<session::Field> fields_;
};

}  // namespace host
