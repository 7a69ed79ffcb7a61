#include "practice/copied_table.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

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

std::int64_t Whole(const Value& value) {
  const auto* number = std::get_if<std::int64_t>(&value);
  return number == nullptr ? session::ToId(value) : *number;
}

}  // namespace

std::string RowPlace::Named() const {
  return "record " + std::to_string(key) + " of office " + std::to_string(office);
}

Value CopiedValue(ColumnType type, Value value) {
  if (session::IsNull(value)) {
    return value;
  }
  const bool is_text = type == ColumnType::Text || type == ColumnType::Memo;
  const auto* text = std::get_if<std::string>(&value);
  if (!is_text && text != nullptr && text->empty()) {
    return {};
  }
  // What is of another type is left to the engine that it is given to.
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

CopiedTable::CopiedTable(const Table& table, const CreationOptions& options, std::optional<std::int32_t> office)
    : table_(table), columns_(table.columns), office_(office) {
  if (options.row_guids && table.row_guid) {
    columns_.push_back({.name = "UniqueID", .type = ColumnType::Guid});
  }
  columns_.push_back({.name = "OfficeID"});
  for (const Column& column : columns_) {
    names_ += (names_.empty() ? "" : ", ") + std::string(column.name);
  }
}

RowPlace CopiedTable::PlaceOf(const Row& row) {
  return {Whole(row.front()), Whole(row.back())};
}

CopiedTable::Rows CopiedTable::Read(const PracticeDatabase& database, const std::optional<RowPlace>& behind) const {
  const std::string key(table_.key);
  std::string condition;
  if (behind) {
    const std::string number = std::to_string(behind->key);
    condition = " WHERE " + key + " >= " + number + " AND (" + key + " > " + number + " OR OfficeID > " +
                std::to_string(behind->office) + ")";
  }
  if (office_) {
    condition += (behind ? " AND OfficeID=" : " WHERE OfficeID=") + std::to_string(*office_);
  }
  return {*this, database.Run("SELECT " + names_ + " FROM " + std::string(table_.name) + condition + " ORDER BY " +
                              key + ", OfficeID")};
}

std::optional<CopiedTable::Row> CopiedTable::Rows::Next() {
  if (std::exchange(begun_, true)) {
    rows_->MoveNext();
  }
  if (rows_->Eof()) {
    return std::nullopt;
  }
  Row row;
  for (std::size_t i = 0; i < table_.Columns().size(); ++i) {
    row.push_back(CopiedValue(table_.Columns()[i].type, rows_->Get(i)));
  }
  return row;
}

std::optional<Comparison> Compare(const PracticeDatabase& one, const PracticeDatabase& other, const CopiedTable& table,
                                  const std::function<bool(std::int64_t rows)>& goes_on) {
  Comparison compared;
  auto here = table.Read(one);
  auto there = table.Read(other);
  while (true) {
    const auto mine = here.Next();
    const auto its = there.Next();
    if (!mine && !its) {
      return compared;
    }
    if (!mine || !its || CopiedTable::PlaceOf(*mine) != CopiedTable::PlaceOf(*its)) {
      // The smaller one is in one of them alone.
      const RowPlace place = !its   ? CopiedTable::PlaceOf(*mine)
                             : mine ? std::min(CopiedTable::PlaceOf(*mine), CopiedTable::PlaceOf(*its))
                                    : CopiedTable::PlaceOf(*its);
      compared.difference = place.Named();
      return compared;
    }
    if (const auto differ = std::ranges::mismatch(*mine, *its); differ.in1 != mine->end()) {
      const auto column = static_cast<std::size_t>(differ.in1 - mine->begin());
      compared.difference = std::string(table.Columns()[column].name) + " of " + CopiedTable::PlaceOf(*mine).Named();
      return compared;
    }
    if (++compared.rows % kRowsAtOnce == 0 && !goes_on(compared.rows)) {
      return std::nullopt;
    }
  }
}

}  // namespace host
