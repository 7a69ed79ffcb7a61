#pragma once

#include <memory>

#include "automation/com_ptr.h"
#include "session/connection.h"

namespace host {

// Rows, read forward, shaped as ADO documents Recordset: State, BOF, EOF, MoveNext, GetRows(rows), Fields (Count, Item
// by number or name: Name, Type, DefinedSize, Value), NextRecordset, which gives Nothing, and Close. `rs("pID")` and
// `rs.Fields("pID")` give a field, whose value is the current row's. Closed from the start when `rows` has no fields.
//
// The objects keep `connection` alive, and the rows until the recordset is closed.
automation::ComPtr<IDispatch> MakeRecordsetObject(std::shared_ptr<session::Connection> connection,
                                                  std::unique_ptr<session::Recordset> rows);

}  // namespace host
