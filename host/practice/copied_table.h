#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "database/database.h"

namespace host {

// A row's key and office, by which the rows of a table are ordered.
struct RowPlace {
  std::int32_t key = 0;
  std::int32_t office = 0;
};

// A table's rows as every engine says them: by the types of its columns, whatever an engine made of a value.
class CopiedTable {
 public:
  CopiedTable(const Table& table, const CreationOptions& options);

  const Table& Of() const { return table_; }
  // "pID, pLASNAM, ..., OfficeID", the key first.
  const std::string& Columns() const { return names_; }

  using Row = std::vector<session::Value>;
  RowPlace PlaceOf(const Row& row) const;
  // The rows behind a place, in order, until `take` says that it wants no more. Throws session::DatabaseError.
  void Read(const PracticeDatabase& database, const std::optional<RowPlace>& behind,
            const std::function<bool(Row row)>& take) const;

 private:
  const Table& table_;
  std::vector<Column> columns_;
  std::string names_;
};

// How many rows there are, and a hash over all that is in them.
struct TableDigest {
  std::int64_t rows = 0;
  std::array<unsigned char, 32> hash{};

  friend bool operator==(const TableDigest&, const TableDigest&) = default;
};

// Nothing when `goes_on`, which is told how many rows have been read, said no.
std::optional<TableDigest> DigestOf(const PracticeDatabase& database, const CopiedTable& table,
                                    const std::function<bool(std::int64_t rows)>& goes_on);

}  // namespace host
