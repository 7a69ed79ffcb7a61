#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

#include "database/office_group.h"

namespace host {

// What is done to a group of practices.
struct OfficesOrder {
  std::string what;  // "create", "add-server", "add-office", "move", "migrate" or "list"
  std::string url;   // of any server of the group, but for "create"
  std::int32_t office = 0;
  GroupServer server;  // "move": where to
  bool row_guids = false;
  std::optional<std::int32_t> demo;  // patients of a new office
  std::string copy;                  // the practice that has the new office
};

// Whether the order has all that it takes, and nothing else.
bool IsWhole(const OfficesOrder& order);

// Carries it out and tells who is at home where; false when a copy was ended by Ctrl+C. Throws session::DatabaseError.
bool RunOffices(const OfficesOrder& order, std::ostream& output);

}  // namespace host
