#pragma once

#include "database/engine.h"

namespace host {

// Practices on PostgreSQL servers: "postgresql://USER@HOST:PORT/DATABASE?OPTION=VALUE", libpq's own URL. The database
// is there, with UTF8 text; a practice is made in it when it holds no table.
class PostgresEngine final : public Engine {
 public:
  std::string_view Shape() const override { return "postgresql://..."; }
  PracticeDatabase OpenNew(const std::string& url, const CreationOptions& options) const override;
  PracticeDatabase Open(const std::string& url) const override;
  bool IsVacant(const std::string& url) const override;
  std::string PlaceOf(const std::string& url) const override;
  void CreateOfficeGroup(const GroupServer& first, const CreationOptions& options) const override;
  std::unique_ptr<OfficeGroup> OpenOfficeGroup(const std::string& url) const override;

  // As `Open`, but no server of a group leads to the others.
  PracticeDatabase OpenAlone(const std::string& url) const;
};

}  // namespace host
