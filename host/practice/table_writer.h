#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "data/literal.h"
#include "practice/demo_random.h"
#include "practice/practice.h"

namespace host::demo {

// What tells the rows of all offices apart: each table's next ID, and the row GUIDs.
struct Identities {
  explicit Identities(std::uint64_t seed) : guids(seed) {}

  std::int32_t& NextId(std::string_view table) { return next_ids.try_emplace(std::string(table), 1).first->second; }

  std::map<std::string, std::int32_t> next_ids;
  Random guids;
};

// A text that is Null when it is empty.
struct OrNull {
  std::string_view text;
};

// Fills one office's part of a table, many rows a statement. Throws session::DatabaseError.
class TableWriter {
 public:
  // `columns` are parted by commas, the key first.
  TableWriter(OfficeDatabase& database, Identities& identities, std::string_view table, std::string_view columns);

  // A row with the next ID, which it returns. Values are texts, numbers, amounts, dates, optional ones, OrNull, or
  // nullptr.
  template <class... Values>
  std::int32_t Row(const Values&... values) {
    const std::int32_t id = next_id_++;
    Begin(id);
    (Append(values), ...);
    End();
    return id;
  }
  // The ID that the next row will have.
  std::int32_t NextId() const { return next_id_; }
  // The rows not yet in the table. Every writer is flushed before its transaction is committed.
  void Flush();

 private:
  void Begin(std::int32_t id);
  void End();
  void Append(std::nullptr_t) { rows_ += ", Null"; }
  void Append(OrNull value) { value.text.empty() ? Append(nullptr) : Append(value.text); }
  template <class Value>
  void Append(const std::optional<Value>& value) {
    value ? Append(*value) : Append(nullptr);
  }
  template <class Value>
  void Append(const Value& value) {
    rows_ += ", ";
    rows_ += data::Literal(value).Text();
  }

  OfficeDatabase& database_;
  std::int32_t& next_id_;
  std::string head_;
  std::string tail_;  // the office, which ends every row
  Random* guids_;     // of a table that keeps row GUIDs
  std::string rows_;
};

}  // namespace host::demo
