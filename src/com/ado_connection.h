#pragma once

#include <memory>
#include <string>

#include "automation/dispatch_object.h"
#include "session/connection.h"

namespace com {

using automation::DispatchObject;

// The host's connection, called by ADO's documented names (Execute, BeginTrans, CommitTrans, RollbackTrans, Cancel,
// Errors). An error of the provider is told in the words of its Errors.
class AdoConnection : public session::Connection {
 public:
  // What the host has handed out last is called from now on.
  void Use(DispatchObject connection) { connection_ = std::move(connection); }

  std::unique_ptr<session::Recordset> Execute(const std::string& sql) override;
  void BeginTrans() override { Run("BeginTrans"); }
  void CommitTrans() override { Run("CommitTrans"); }
  void RollbackTrans() override { Run("RollbackTrans"); }
  // From the host's own thread only, as every call.
  void Cancel() override { Run("Cancel"); }

 private:
  void Run(const char* member);
  // What the provider said of a failure, or the failure itself.
  session::DatabaseError ErrorOf(const session::DatabaseError& failure, const std::string& sql) const;

  DispatchObject connection_{{}, "The connection"};
};

}  // namespace com
