#pragma once

#include <string>
#include <vector>

#include "database/odbc/odbc_readers.h"
#include "database/odbc/odbc_rows.h"
#include "session/connection.h"

namespace host {

// The rows of one statement.
class OdbcRecordset final : public session::Recordset {
 public:
  // Rows that were fetched already.
  OdbcRecordset(std::vector<session::Field> fields, OdbcRows rows);
  // Fetches the rows of a statement that was run on the borrowed handle, a page at a time as they are asked for. The
  // handle goes back after the last one.
  OdbcRecordset(std::vector<session::Field> fields, OdbcReaders::Lease lease, OdbcStatement statement,
                std::string batch);

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return row_ == page_.values.size(); }
  void MoveNext() override;
  session::Value Get(std::size_t field) const override;

 private:
  void FetchPage();
  void Close();

  std::vector<session::Field> fields_;
  OdbcReaders::Lease lease_;
  OdbcStatement statement_;
  std::string batch_;
  OdbcRows page_;
  std::size_t row_ = 0;
};

}  // namespace host
