#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "database/database.h"

namespace host {

// A row's key and office, by which the rows of a table are ordered. An engine may hold keys that another cannot.
struct RowPlace {
  std::int64_t key = 0;
  std::int64_t office = 0;

  // "record 5 of office 1".
  std::string Named() const;
  friend bool operator==(const RowPlace&, const RowPlace&) = default;
  bool operator<(const RowPlace& other) const { return std::tie(key, office) < std::tie(other.key, other.office); }
};

// A value as every engine says it, by the type of its column, whatever an engine made of it.
session::Value CopiedValue(ColumnType type, session::Value value);

// A table's rows as every engine says them.
class CopiedTable {
 public:
  // With `office` the rows of that one alone.
  CopiedTable(const Table& table, const CreationOptions& options, std::optional<std::int32_t> office = {});

  const Table& Of() const { return table_; }
  const std::vector<Column>& Columns() const { return columns_; }
  // "pID, pLASNAM, ..., OfficeID", the key first.
  const std::string& Names() const { return names_; }

  using Row = std::vector<session::Value>;
  static RowPlace PlaceOf(const Row& row);

  // Rows in order, fetched as they are asked for. All throw session::DatabaseError.
  class Rows {
   public:
    Rows(const CopiedTable& table, std::unique_ptr<session::Recordset> rows) : table_(table), rows_(std::move(rows)) {}
    // The next row; nothing behind the last.
    std::optional<Row> Next();

   private:
    const CopiedTable& table_;
    std::unique_ptr<session::Recordset> rows_;
    bool begun_ = false;
  };
  // The rows behind a place. `this` outlives them.
  Rows Read(const PracticeDatabase& database, const std::optional<RowPlace>& behind = {}) const;

 private:
  const Table& table_;
  std::vector<Column> columns_;
  std::string names_;
  std::optional<std::int32_t> office_;
};

// What two databases hold of a table.
struct Comparison {
  std::int64_t rows = 0;   // that were compared
  std::string difference;  // the first, "pLASNAM of record 5 of office 1"; empty while they are the same
};

// Compares until the first difference. Nothing when `goes_on`, which is told how many rows were compared, said no.
std::optional<Comparison> Compare(const PracticeDatabase& one, const PracticeDatabase& other, const CopiedTable& table,
                                  const std::function<bool(std::int64_t rows)>& goes_on);

}  // namespace host
