#pragma once

#include "database/engine.h"

namespace host {

// Practices behind ODBC drivers: "odbc:CONNECTION-STRING".
//
// On a PostgreSQL server they are the same as by the engine of its own. A practice that somebody has set up on another
// server can be opened, where statements are written as `PrepareServer` says; that has not been tried on any.
class OdbcEngine final : public Engine {
 public:
  std::string_view Shape() const override { return "odbc:CONNECTION-STRING"; }
  PracticeDatabase OpenNew(const std::string& url, const CreationOptions& options) const override;
  PracticeDatabase Open(const std::string& url) const override;
  bool IsVacant(const std::string& url) const override;
  std::string PlaceOf(const std::string& url) const override;
};

}  // namespace host
