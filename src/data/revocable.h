#pragma once

#include <vector>

#include "data/statements.h"

namespace data {

// Statements that stand or fall together where no transaction encloses them: each brings the one that takes it back.
class Revocable {
 public:
  explicit Revocable(const Statements& statements) : statements_(statements) {}
  Revocable(const Revocable&) = delete;
  Revocable& operator=(const Revocable&) = delete;
  // Takes back, the last first, unless kept. A statement that fails then ends that.
  ~Revocable();

  // Throws session::DatabaseError.
  void Run(const Sql& statement, Sql back);
  // Takes back what was run otherwise.
  void Back(Sql back) { back_.push_back(std::move(back)); }
  void Keep() { back_.clear(); }

 private:
  const Statements& statements_;
  std::vector<Sql> back_;
};

}  // namespace data
