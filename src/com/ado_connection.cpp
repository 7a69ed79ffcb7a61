#include "com/ado_connection.h"

#include <utility>

#include "com/ado_errors.h"
#include "com/ado_recordset.h"
#include "forms/text.h"

namespace com {
namespace {

using automation::ToObject;

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

bool IsSelect(std::string_view sql) {
  return forms::EqualsIgnoringCase(forms::Left(sql, 6), "SELECT");
}

}  // namespace

std::unique_ptr<session::Recordset> AdoConnection::Execute(const std::string& sql) {
  Ready(sql);
  const bool batch = IsBatch(sql);
  try {
    const Variant given = connection_.Call("Execute", {Variant::Of(sql)});
    DispatchObject recordset(ToObject(given), "The recordset");
    const bool nothing = V_VT(&given) == VT_EMPTY || V_VT(&given) == VT_DISPATCH;
    if (recordset.Get() == nullptr && (!nothing || IsSelect(sql))) {
      throw session::DatabaseError("The connection of the host gives no recordset for \"Execute\".", {},
                                   DISP_E_TYPEMISMATCH);
    }
    return std::make_unique<AdoRecordset>(
        std::move(recordset), sql, batch,
        [this, sql](const session::DatabaseError& failure) { return Failed(failure, sql, false); });
  } catch (const session::DatabaseError& failure) {
    throw Failed(failure, sql, transaction_ == Transaction::None && (batch || !IsSelect(sql)));
  }
}

void AdoConnection::BeginTrans() {
  Ready("BeginTrans");
  Run("BeginTrans", false);
  transaction_ = Transaction::Open;
}

void AdoConnection::CommitTrans() {
  Ready("CommitTrans");
  Run("CommitTrans", true);
  transaction_ = Transaction::None;
}

void AdoConnection::RollbackTrans() {
  const Transaction before = std::exchange(transaction_, Transaction::None);
  try {
    Run("RollbackTrans", false);
  } catch (const session::DatabaseError& error) {
    if (before != Transaction::Lost && !error.ConnectionLost()) {
      throw;
    }
  }
}

void AdoConnection::Ready(const std::string& sql) {
  if (transaction_ == Transaction::Lost) {
    throw session::DatabaseError("The transaction has ended with its connection.", sql, 0,
                                 session::DatabaseError::Origin::Connection);
  }
  if (lost_ && transaction_ == Transaction::None && HandedOut) {
    Use(HandedOut());
    lost_ = false;
  }
}

void AdoConnection::Run(const char* member, bool change) {
  try {
    connection_.Call(member);
  } catch (const session::DatabaseError& failure) {
    throw Failed(failure, member, change);
  }
}

session::DatabaseError AdoConnection::Failed(const session::DatabaseError& failure, const std::string& sql,
                                             bool change) {
  session::DatabaseError error = ProviderError(connection_, failure, sql, change);
  if (error.ConnectionLost()) {
    lost_ = true;
    transaction_ = transaction_ == Transaction::Open ? Transaction::Lost : transaction_;
  }
  return error;
}

}  // namespace com
