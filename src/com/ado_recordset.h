#pragma once

#include <vector>

#include "automation/dispatch_object.h"
#include "session/connection.h"

namespace com {

using automation::DispatchObject;
using automation::Variant;

// A recordset that answers to ADO's documented names (State, NextRecordset, Fields, EOF, GetRows). Rows are fetched a
// block at a time.
class AdoRecordset : public session::Recordset {
 public:
  // Of several results the first that has rows; `recordset` may hold none at all, and then there are no fields.
  // Throws session::DatabaseError.
  explicit AdoRecordset(DispatchObject recordset);

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return row_ >= rows_; }
  void MoveNext() override;
  session::Value Get(std::size_t field) const override;

 private:
  void SkipResultsWithoutRows();
  void ReadFields();
  void Fetch();

  DispatchObject recordset_;
  std::vector<session::Field> fields_;
  Variant block_;  // by field and row, as GetRows gives it
  LONG first_field_ = 0;
  LONG row_ = 0;
  LONG rows_ = 0;  // one past the block's last
};

}  // namespace com
