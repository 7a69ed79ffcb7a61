#pragma once

#include <string>
#include <string_view>

#include "database/dialect/sql_tokens.h"

// Statements as text.
namespace host::sql {

// How an engine writes what stands between quotes.
struct Spelling {
  std::string (*text)(std::string_view text);
  std::string (*moment)(std::string_view iso);
  std::string (*name)(std::string_view name);
};

std::string Written(const Tokens& statement, const Spelling& spelling);

// Between quotes, with every one inside doubled.
std::string Quoted(std::string_view text, char quote);
// [Name], or "Na]me".
std::string Bracketed(std::string_view name);

// An engine reads no further than a zero character, and would run a statement without its condition. Throws
// session::DatabaseError when there is one; returns the statement.
std::string WithoutZeros(std::string prepared, std::string_view statement);

}  // namespace host::sql
