#pragma once

#include <string>
#include <string_view>

namespace host {

// A batch of statements in the screens' dialect as an engine reads it. Text literals ('...' and "...") and bracketed
// names keep their content. What is no statement of the dialect is passed on, for the engine to refuse. It takes time
// in proportion to the text's length. Throws session::DatabaseError for a zero character that the engine could not
// read, and for a variable whose value is a whole batch.
//
// Of the dialect: #dates#, "DELETE * FROM", "TOP n", "DISTINCTROW", TRUE and FALSE, "+" on text, "Like" with classes
// ("[%]") and letters beyond ASCII without regard to case, "@@IDENTITY", the row-GUID insert, "UPDATE ... SET" of
// qualified columns and with joins, "OUTER APPLY", "if not exists (...) create table", INFORMATION_SCHEMA's tables and
// columns, database and owner prefixes.
std::string PrepareSqlite(std::string_view statement);

// For a server that has the practice's own text functions, "practice_identity()" and citext columns (PostgresSchema).
// Beside a schema's column a literal becomes one of its type; null sorts before every value.
std::string PreparePostgres(std::string_view statement);

// For a server of the kind that the dialect is near to. Untried on a real one.
std::string PrepareServer(std::string_view statement);

}  // namespace host
