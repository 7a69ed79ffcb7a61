#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/schema.h"

namespace host {

// What a practice database is made with and keeps for good.
struct CreationOptions {
  int kind = 1;            // the database kind that the session reports
  int office = 1;          // the office of rows that are inserted without one
  int offices = 1;         // offices 1 to this are set up
  bool row_guids = false;  // link and master tables carry `UniqueID`
  bool group = false;      // the group of its files may work in it too; the files' mode keeps it
};

// The highest key of a row that later keys are handed out behind. One above it is its row's alone: a slip of that size
// must not use up the keys of all offices.
inline constexpr std::int32_t kLastFollowedKey = 2'000'000'000;

// What an index holds beside values of columns; statements that search by phone write the same. Empty for values.
std::string IndexedExpression(const Index& index);
std::string IndexName(const Table& table, const Index& index);

// How an engine writes down the schema. Statements are the engine's own.
class SchemaWriter {
 public:
  virtual ~SchemaWriter() = default;

  // What keeps other programs from making or changing tables until the end of the transaction; empty where beginning
  // one does.
  virtual std::string Lock() const { return {}; }
  // A select of what keeps this login from changing the tables, as a sentence goes on behind "and"; empty, or a null,
  // where nothing does.
  virtual std::string Hindrance() const { return {}; }
  // A select of 1 or 0, or nothing for 1: whether this login may work in the practice at all, and whether it may write
  // there.
  virtual std::string MayOpen() const { return {}; }
  virtual std::string MayWrite() const { return {}; }
  // A select of the offices that this login may enter, the smallest first; empty, or without rows, where it may enter
  // all.
  virtual std::string OpenOffices() const { return {}; }
  // A select of the practice's tables, by the column `name`.
  virtual std::string Tables() const = 0;
  // What comes before the first table of an empty database.
  virtual std::vector<std::string> Ground() const = 0;
  // A table as it was in `version`, with its key and what hands the keys out.
  virtual std::vector<std::string> CreateTable(const Table& table, const CreationOptions& options,
                                               int version) const = 0;
  virtual std::vector<std::string> AddColumn(const Table& table, const Column& column) const = 0;
  virtual std::vector<std::string> CreateIndex(const Table& table, const Index& index) const = 0;
  virtual std::vector<std::string> DropTable(std::string_view table) const = 0;
  // A select of the last key that a table has handed out, and what keeps it from handing out keys up to `last`, or to
  // `kLastFollowedKey`; none where keys are handed out from what the table holds.
  virtual std::string LastKey(const Table& /*table*/) const { return {}; }
  virtual std::vector<std::string> RaiseKeys(const Table& /*table*/, std::int32_t /*last*/) const { return {}; }
  // Has the database itself put down what is written to a table that is `logged`, as the table is in `version`; none
  // where each connection sees to that. Replaces what is there.
  virtual std::vector<std::string> LogChanges(const Table& /*table*/, int /*version*/) const { return {}; }
  // What comes behind the last table that was made or changed.
  virtual std::vector<std::string> Finish() const { return {}; }
};

}  // namespace host
