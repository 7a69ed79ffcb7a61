#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "database/dialect/sql_tokens.h"

// What every engine reads of a batch in the same way.
namespace host::sql {

// Its statements, none empty, in the words that the engines share: 1 and 0 for TRUE and FALSE, DISTINCT for
// DISTINCTROW, without the owners of tables.
std::vector<Tokens> ReadBatch(std::string_view batch);

// A random GUID stands in place of each "newid()".
void FillGuids(Tokens& statement);

// The values that a batch gives its variables, for engines that know none.
class Variables {
 public:
  // `identity` is the engine's call for "@@IDENTITY".
  explicit Variables(std::string_view identity) : identity_(Words(identity)) {}

  // True for a statement that does nothing else: SET NOCOUNT, DECLARE, SET @name = value. Throws
  // session::DatabaseError for a value that is a whole batch.
  bool Take(const Tokens& statement);
  // A value that is put in is not looked through again.
  void Fill(Tokens& statement) const;

 private:
  Tokens identity_;
  std::map<std::string, Tokens> values_;  // by name in small letters
};

}  // namespace host::sql
