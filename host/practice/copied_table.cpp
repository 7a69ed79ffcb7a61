#include "practice/copied_table.h"

#include <sodium.h>

#include <charconv>
#include <cmath>
#include <limits>

namespace host {
namespace {

using session::Value;

constexpr std::int64_t kRowsAtOnce = 1000;

// A number in a text, as an engine without strict types may keep it; the value itself where there is none.
template <class Number>
Value ParsedNumber(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr) {
    return value;
  }
  Number number{};
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
  return error == std::errc() && end == text->data() + text->size() ? Value(number) : value;
}

Value WholeNumber(const Value& value) {
  Value number = ParsedNumber<std::int64_t>(value);
  const auto* real = std::get_if<double>(&number);
  if (real != nullptr && std::trunc(*real) == *real && std::abs(*real) < std::numeric_limits<std::int32_t>::max()) {
    return static_cast<std::int64_t>(*real);
  }
  return number;
}

Value RealNumber(const Value& value) {
  const Value number = ParsedNumber<double>(value);
  const auto* whole = std::get_if<std::int64_t>(&number);
  return whole == nullptr ? number : Value(static_cast<double>(*whole));
}

Value Amount(const Value& value) {
  if (std::holds_alternative<forms::Currency>(value)) {
    return value;
  }
  const auto amount = forms::Currency::Parse(session::ToText(value));
  return amount ? Value(*amount) : value;
}

// By the column's type; what is of another is left to the engine that it is given to.
Value OfType(ColumnType type, Value value) {
  if (session::IsNull(value)) {
    return value;
  }
  const bool is_text = type == ColumnType::Text || type == ColumnType::Memo;
  const auto* text = std::get_if<std::string>(&value);
  if (!is_text && text != nullptr && text->empty()) {
    return {};
  }
  switch (type) {
    case ColumnType::Int:
    case ColumnType::SmallInt:
      return WholeNumber(value);
    case ColumnType::Money:
      return Amount(value);
    case ColumnType::Real:
      return RealNumber(value);
    case ColumnType::Text:
    case ColumnType::Memo:
      return session::ToText(value);
    case ColumnType::DateTime:
    case ColumnType::Guid:
      return value;
  }
  return value;
}

class Hash {
 public:
  Hash() { crypto_generichash_init(&state_, nullptr, 0, kSize); }

  // With its type and size, so that no two rows of values hash alike.
  void Add(const Value& value) {
    const std::string text = session::ToText(value);
    Add(std::to_string(value.index()) + ":" + std::to_string(text.size()) + ":");
    Add(text);
  }
  std::array<unsigned char, 32> End() {
    std::array<unsigned char, 32> hash{};
    crypto_generichash_final(&state_, hash.data(), hash.size());
    return hash;
  }

 private:
  static constexpr std::size_t kSize = 32;

  void Add(const std::string& text) {
    crypto_generichash_update(&state_, reinterpret_cast<const unsigned char*>(text.data()), text.size());
  }

  crypto_generichash_state state_{};
};

}  // namespace

CopiedTable::CopiedTable(const Table& table, const CreationOptions& options) : table_(table), columns_(table.columns) {
  if (options.row_guids && table.row_guid) {
    columns_.push_back({.name = "UniqueID", .type = ColumnType::Guid});
  }
  columns_.push_back({.name = "OfficeID"});
  for (const Column& column : columns_) {
    names_ += (names_.empty() ? "" : ", ") + std::string(column.name);
  }
}

RowPlace CopiedTable::PlaceOf(const Row& row) const {
  return {session::ToId(row.front()), session::ToId(row.back())};
}

void CopiedTable::Read(const PracticeDatabase& database, const std::optional<RowPlace>& behind,
                       const std::function<bool(Row row)>& take) const {
  const std::string key(table_.key);
  std::string condition;
  if (behind) {
    const std::string number = std::to_string(behind->key);
    condition = " WHERE " + key + " >= " + number + " AND (" + key + " > " + number + " OR OfficeID > " +
                std::to_string(behind->office) + ")";
  }
  const auto rows = database.Run("SELECT " + names_ + " FROM " + std::string(table_.name) + condition + " ORDER BY " +
                                 key + ", OfficeID");
  for (; !rows->Eof(); rows->MoveNext()) {
    Row row;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      row.push_back(OfType(columns_[i].type, rows->Get(i)));
    }
    if (!take(std::move(row))) {
      return;
    }
  }
}

std::optional<TableDigest> DigestOf(const PracticeDatabase& database, const CopiedTable& table,
                                    const std::function<bool(std::int64_t rows)>& goes_on) {
  TableDigest digest;
  Hash hash;
  bool stopped = false;
  table.Read(database, std::nullopt, [&](const CopiedTable::Row& row) {
    for (const Value& value : row) {
      hash.Add(value);
    }
    ++digest.rows;
    stopped = digest.rows % kRowsAtOnce == 0 && !goes_on(digest.rows);
    return !stopped;
  });
  digest.hash = hash.End();
  return stopped ? std::nullopt : std::optional(digest);
}

}  // namespace host
