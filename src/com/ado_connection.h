#pragma once

#include <functional>
#include <memory>
#include <string>

#include "automation/dispatch_object.h"
#include "session/connection.h"

namespace com {

using automation::DispatchObject;
using automation::Variant;

// The host's connection, called by ADO's documented names (Execute, BeginTrans, CommitTrans, RollbackTrans, Cancel,
// Errors). An error of the provider is told in the words of its Errors (see `ProviderError`).
//
// A lost connection ends the transaction; what comes after it, outside one, is asked of the connection that the host
// hands out then.
class AdoConnection : public session::Connection {
 public:
  // What the host has handed out last is called from now on.
  void Use(DispatchObject connection) { connection_ = std::move(connection); }
  // Gives the host's connection of now; asked after a loss.
  std::function<DispatchObject()> HandedOut;

  std::unique_ptr<session::Recordset> Execute(const std::string& sql) override;
  void BeginTrans() override;
  void CommitTrans() override;
  // Silent after the loss of the connection.
  void RollbackTrans() override;
  // From the host's own thread only, as every call.
  void Cancel() override { Run("Cancel", false); }

 private:
  enum class Transaction {
    None,
    Open,
    Lost,  // with its connection
  };

  // Before each call that the connection must be there for.
  void Ready(const std::string& sql);
  void Run(const char* member, bool change);
  session::DatabaseError Failed(const session::DatabaseError& failure, const std::string& sql, bool change);

  DispatchObject connection_{{}, "The connection"};
  bool lost_ = false;
  Transaction transaction_ = Transaction::None;
};

}  // namespace com
