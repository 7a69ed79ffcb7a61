#pragma once

#include <functional>
#include <string>
#include <vector>

#include "automation/dispatch_object.h"
#include "session/connection.h"

namespace com {

using automation::DispatchObject;
using automation::Variant;

// A recordset that answers to ADO's documented names (State, NextRecordset, Fields, EOF, GetRows). Rows are fetched a
// block at a time, those of several statements all at once. What the host's object tells is not believed: one that goes
// on for ever, or gives rows of other fields than it tells, is refused. All throw session::DatabaseError with the
// statement.
class AdoRecordset : public session::Recordset {
 public:
  // Of a batch of statements the last result that has fields; `recordset` may hold none at all, and then there are
  // none. `explain` says what the connection knows of a failure, for as long as rows are read.
  using Explain = std::function<session::DatabaseError(const session::DatabaseError& failure)>;
  AdoRecordset(DispatchObject recordset, std::string statement, bool batch, Explain explain);

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return row_ >= rows_; }
  void MoveNext() override;
  session::Value Get(std::size_t field) const override;

 private:
  void SkipResultsWithoutRows();
  void NextResult();
  void ReadFields();
  void Fetch(std::int32_t count);
  // Of the block that was fetched.
  void ReadBounds();
  [[noreturn]] void Refuse(const std::string& what, HRESULT result = DISP_E_TYPEMISMATCH) const;

  DispatchObject recordset_;  // holds nothing when there is no more to fetch
  std::string statement_;
  Explain explain_;
  int results_ = 0;  // so far
  std::vector<session::Field> fields_;
  Variant block_;  // by field and row, as GetRows gives it
  LONG first_field_ = 0;
  std::int64_t row_ = 0;
  std::int64_t rows_ = 0;     // one past the block's last
  std::int64_t fetched_ = 0;  // rows, so far
};

}  // namespace com
