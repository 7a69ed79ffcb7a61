#include "com/ado_connection.h"

#include "com/ado_recordset.h"
#include "forms/text.h"

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
    const Variant given = connection_.Call("Execute", {Variant::Of(sql)});
    DispatchObject recordset(ToObject(given), "The recordset");
    const bool nothing = V_VT(&given) == VT_EMPTY || V_VT(&given) == VT_DISPATCH;
    if (recordset.Get() == nullptr && (!nothing || forms::EqualsIgnoringCase(forms::Left(sql, 6), "SELECT"))) {
      throw session::DatabaseError("The connection of the host gives no recordset for \"Execute\".", {},
                                   DISP_E_TYPEMISMATCH);
    }
    return std::make_unique<AdoRecordset>(std::move(recordset), sql, IsBatch(sql));
  } catch (const session::DatabaseError& failure) {
    throw ErrorOf(failure, sql);
  }
}

void AdoConnection::Run(const char* member) {
  try {
    connection_.Call(member);
  } catch (const session::DatabaseError& failure) {
    throw ErrorOf(failure, member);
  }
}

session::DatabaseError AdoConnection::ErrorOf(const session::DatabaseError& failure, const std::string& sql) const {
  try {
    if (connection_.Offers("Errors")) {
      const DispatchObject errors = connection_.Object("Errors", "Errors");
      if (errors.Int("Count") > 0) {
        const DispatchObject error = errors.Object("Item", "An error", {Variant::Of(0)});
        const std::int32_t number = error.Int("Number");
        const std::string description = error.Text("Description");
        // Errors of earlier calls are kept until the provider has a new one.
        if (number == failure.Code() || description == failure.what()) {
          const std::int32_t native = error.Int("NativeError");
          return {description, sql, native != 0 ? native : number};
        }
      }
    }
  } catch (const session::DatabaseError&) {  // NOLINT(bugprone-empty-catch): the host keeps none; the failure speaks
  }
  return {failure.what(), sql, failure.Code()};
}

}  // namespace com
