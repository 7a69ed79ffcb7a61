#pragma once

#include "database/engine.h"

namespace host {

// Practices on PostgreSQL servers: "postgresql://USER@HOST:PORT/DATABASE?OPTION=VALUE", libpq's own URL. The database
// is there, with UTF8 text; a practice is made in it when it holds no table.
class PostgresEngine final : public Engine {
 public:
  PracticeDatabase OpenNew(const std::string& url, const CreationOptions& options) const override;
  PracticeDatabase Open(const std::string& url) const override;
  bool IsVacant(const std::string& url) const override;
};

}  // namespace host
