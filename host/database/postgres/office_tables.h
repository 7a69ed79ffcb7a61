#pragma once

#include "database/postgres/postgres_schema.h"

namespace host {

// The tables of one office of a group: they stand in a schema of their own, which is the first of the search path, in a
// database that has the ground of all.
class OfficeTables final : public PostgresSchema {
 public:
  std::string Tables() const override;
  std::vector<std::string> Ground() const override { return {}; }
  std::vector<std::string> Finish() const override { return {}; }
};

}  // namespace host
