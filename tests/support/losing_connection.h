#pragma once

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include "session/connection.h"

namespace test_support {

// A connection that is lost once, and then works, wherever `loses` says so: before each statement, by its text, and
// before each "BEGIN" and "COMMIT". What was in a transaction is rolled back with it.
class LosingConnection final : public session::Connection {
 public:
  explicit LosingConnection(std::unique_ptr<session::Connection> connection) : connection_(std::move(connection)) {}

  std::function<bool(const std::string& sql)> loses;
  int losses = 0;

  // What cannot be lost.
  session::Connection& Whole() { return *connection_; }

  bool ReadOnly() const override { return connection_->ReadOnly(); }
  std::unique_ptr<session::Recordset> Execute(const std::string& sql) override {
    Pass(sql);
    return connection_->Execute(sql);
  }
  void BeginTrans() override {
    Pass("BEGIN");
    connection_->BeginTrans();
    open_ = true;
  }
  void CommitTrans() override {
    Pass("COMMIT");
    connection_->CommitTrans();
    open_ = false;
  }
  void RollbackTrans() override {
    if (std::exchange(open_, false)) {
      connection_->RollbackTrans();
    }
  }
  void Cancel() override { connection_->Cancel(); }

 private:
  void Pass(const std::string& sql) {
    if (!loses || !loses(sql)) {
      return;
    }
    ++losses;
    RollbackTrans();
    throw session::DatabaseError("the server went away", sql, 1, session::DatabaseError::Origin::Connection);
  }

  std::unique_ptr<session::Connection> connection_;
  bool open_ = false;
};

// Loses each statement the first time that it comes.
class EachOnce {
 public:
  bool operator()(const std::string& sql) { return seen_.insert(sql).second; }

 private:
  std::set<std::string> seen_;
};

}  // namespace test_support
