#pragma once

#include <string>
#include <vector>

#include "database/migration.h"

// The statements that make the schema in SQLite. They use nothing that an ordinary SQLite tool does not have.
namespace host::sqlite {

std::string CreateTable(const Table& table, const CreationOptions& options, int version);
std::string AddColumn(const Table& table, const Column& column);
std::string CreateIndex(const Table& table, const Index& index);
// Keys are unique within an office.
std::string CreateKeyIndex(const Table& table);
// Hands out a key to a row that has none, and takes note of the keys that rows bring along.
std::vector<std::string> KeyTriggers(const Table& table);

}  // namespace host::sqlite
