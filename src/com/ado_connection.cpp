#include "com/ado_connection.h"

#include "com/ado_recordset.h"

namespace com {
namespace {

// A semicolon that is not in a literal parts statements.
bool IsBatch(std::string_view sql) {
  bool in_literal = false;
  for (const char c : sql) {
    in_literal = in_literal != (c == '\'');
    if (c == ';' && !in_literal) {
      return true;
    }
  }
  return false;
}

}  // namespace

using automation::ToObject;
using automation::Variant;

std::unique_ptr<session::Recordset> AdoConnection::Execute(const std::string& sql) {
  try {
    DispatchObject recordset(ToObject(connection_.Call("Execute", {Variant::Of(sql)})), "The recordset");
    return std::make_unique<AdoRecordset>(std::move(recordset), IsBatch(sql));
  } catch (const session::DatabaseError& failure) {
    throw ErrorOf(failure, sql);
  }
}

void AdoConnection::Run(const char* member) {
  try {
    connection_.Call(member);
  } catch (const session::DatabaseError& failure) {
    throw ErrorOf(failure, {});
  }
}

session::DatabaseError AdoConnection::ErrorOf(const session::DatabaseError& failure, const std::string& sql) const {
  try {
    if (connection_.Offers("Errors")) {
      const DispatchObject errors = connection_.Object("Errors", "Errors");
      if (errors.Int("Count") > 0) {
        const DispatchObject error = errors.Object("Item", "An error", {Variant::Of(0)});
        const std::int32_t native = error.Int("NativeError");
        return {error.Text("Description"), sql, native != 0 ? native : error.Int("Number")};
      }
    }
  } catch (const session::DatabaseError&) {  // the host keeps no such errors: the failure speaks for itself
    return {failure.what(), sql, failure.Code()};
  }
  return {failure.what(), sql, failure.Code()};
}

}  // namespace com
