#pragma once

#include "database/engine.h"

namespace host {

// Practices in SQLite files: "sqlite:PATH", or "sqlite::memory:", which lives as long as it is open.
class SqliteEngine final : public Engine {
 public:
  std::string_view Shape() const override { return "sqlite:PATH"; }
  PracticeDatabase OpenNew(const std::string& url, const CreationOptions& options) const override;
  PracticeDatabase Open(const std::string& url) const override;
  bool IsVacant(const std::string& url) const override;
};

}  // namespace host
