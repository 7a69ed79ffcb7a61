#pragma once

#include <string>
#include <vector>

#include "database/schema_writer.h"

namespace host {

// What a practice's database refuses to do from now on, as it would on a full disk.
struct Refusal {
  std::string change;  // INSERT, UPDATE or DELETE
  std::string table;
  std::string text;    // the engine's reason
  std::string column;  // of an UPDATE that names it alone
  std::string when;    // a condition on NEW or OLD; empty is always
};

// The statements of the engine that make it refuse, and allow it again, by a number of its own.
std::vector<std::string> Refuse(const SchemaWriter& schema, const Refusal& refusal, std::size_t number);
std::vector<std::string> Allow(const SchemaWriter& schema, const Refusal& refusal, std::size_t number);

}  // namespace host
