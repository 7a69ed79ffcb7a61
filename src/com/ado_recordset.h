#pragma once

#include <vector>

#include "automation/dispatch_object.h"
#include "session/connection.h"

namespace com {

using automation::DispatchObject;
using automation::Variant;

// A recordset that answers to ADO's documented names (State, NextRecordset, Fields, EOF, GetRows). Rows are fetched a
// block at a time, those of several statements all at once.
class AdoRecordset : public session::Recordset {
 public:
  // Of a batch of statements the last result that has fields; `recordset` may hold none at all, and then there are
  // none. Throws session::DatabaseError.
  AdoRecordset(DispatchObject recordset, bool batch);

  const std::vector<session::Field>& Fields() const override { return fields_; }
  bool Eof() const override { return row_ >= rows_; }
  void MoveNext() override;
  session::Value Get(std::size_t field) const override;

 private:
  void SkipResultsWithoutRows();
  void ReadFields();
  void Fetch(std::int32_t count);

  DispatchObject recordset_;  // holds nothing when there is no more to fetch
  std::vector<session::Field> fields_;
  Variant block_;  // by field and row, as GetRows gives it
  LONG first_field_ = 0;
  LONG row_ = 0;
  LONG rows_ = 0;  // one past the block's last
};

}  // namespace com
