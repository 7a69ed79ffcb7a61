#pragma once

#include <string_view>

#include "database/dialect/sql_tokens.h"
#include "database/schema.h"

// Statements, functions and types that PostgreSQL writes otherwise.
namespace host::sql {

// "DELETE FROM T INNER JOIN S ON ...", "DELETE T FROM T INNER JOIN S ON ...": S is named by USING.
void UnjoinDeleted(Tokens& statement);
// INFORMATION_SCHEMA's tables and columns, by names that compare without regard to case.
void SelectVisibleTables(Tokens& statement);
// ISNULL, LEN, GETDATE...
void RenameFunctions(Tokens& statement);
// "nvarchar(40)", "datetime", "money": in casts and in a new table.
void RenameTypes(Tokens& statement);
// The type that a column of the schema has, without its size.
std::string_view PostgresType(ColumnType type);

}  // namespace host::sql
