#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "database/migration.h"
#include "session/connection.h"

namespace host {

// An open practice database of whichever engine.
struct PracticeDatabase {
  std::unique_ptr<session::Connection> connection;
  // The screens' dialect as the engine reads it.
  std::string (*prepare)(std::string_view statement) = nullptr;
  CreationOptions options;

  // Runs a statement in the screens' dialect.
  std::unique_ptr<session::Recordset> Run(std::string_view statement) const {
    return connection->Execute(prepare(statement));
  }
  bool KeepsRowGuids(std::string_view table) const;
};

// Opens the database of a URL: "sqlite:PATH" ("sqlite::memory:" lives as long as it is open). A new one is made with
// `options`, an older one brought up to date. Throws session::DatabaseError, for an engine that is not built in too.
PracticeDatabase OpenDatabase(const std::string& url, const CreationOptions& options = {});

}  // namespace host
