#pragma once

#include <optional>

#include "database/dialect/sql_tokens.h"

// The dialect's clauses and statements that engines write otherwise. Each works on one statement and leaves one that it
// does not understand as it is.
namespace host::sql {

// "TAVOWIN.DBO.RSTable" is RSTable.
void DropOwners(Tokens& statement);
// INFORMATION_SCHEMA.TABLES and INFORMATION_SCHEMA.COLUMNS.
void ReplaceInformationSchema(Tokens& statement);
// "SELECT TOP 5 ..." ends with "LIMIT 5".
void LimitTop(Tokens& statement);
// "outer apply (select * from T where ...) a" is a join of T.
void JoinApplied(Tokens& statement);

// "DELETE * FROM".
void DropDeleteStar(Tokens& statement);
// Removes "OUTPUT inserted.UniqueID" from an insert and returns the column; empty without one.
std::string TakeOutput(Tokens& statement);
// A bare word among the values is text: there is no column that it could name.
void QuoteBareValues(Tokens& statement);
// "SET ELTable.elFla=1" sets elFla.
void UnqualifySet(Tokens& statement);
// The tables of "INNER JOIN S ON ... INNER JOIN R ON ... WHERE ..." from the place on, and what is asked of them;
// nothing for other joins.
struct Joined {
  Tokens sources;
  Tokens condition;
};
std::optional<Joined> InnerJoins(const Tokens& statement, std::size_t i);
// "UPDATE T SET ... FROM T INNER JOIN S ON ..." names T once, and "UPDATE t ... FROM T AS t ..." by its own name.
void UnjoinUpdated(Tokens& statement);
// "if not exists (...) create table" is CREATE TABLE IF NOT EXISTS.
void CreateIfNotExists(Tokens& statement);
// Text columns of a new table compare without regard to case.
void CollateNewText(Tokens& statement);

}  // namespace host::sql
