#include "database/postgres/postgres_values.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "forms/text.h"

namespace host {
namespace {

using session::FieldType;
using session::Value;

// The server's numbers of its types, which never change.
enum class Type : Oid {
  Bool = 16,
  Bytes = 17,
  Int8 = 20,
  Int2 = 21,
  Int4 = 23,
  Number = 26,
  Float4 = 700,
  Float8 = 701,
  Bpchar = 1042,
  Varchar = 1043,
  Date = 1082,
  Timestamp = 1114,
  Timestamptz = 1184,
  Numeric = 1700,
  Uuid = 2950,
};

// A modifier holds four more than what was declared.
constexpr int kModifierBase = 4;
constexpr int kScaleMask = 0x7FF;
constexpr int kMoneyScale = 4;

FieldType TypeOf(Type type, int modifier) {
  switch (type) {
    case Type::Bool:
    case Type::Int2:
    case Type::Int4:
    case Type::Int8:
    case Type::Number:
      return FieldType::Integer;
    case Type::Float4:
    case Type::Float8:
      return FieldType::Double;
    case Type::Numeric:
      return modifier >= kModifierBase && ((modifier - kModifierBase) & kScaleMask) == kMoneyScale ? FieldType::Currency
                                                                                                   : FieldType::Double;
    case Type::Date:
    case Type::Timestamp:
    case Type::Timestamptz:
      return FieldType::DateTime;
    case Type::Uuid:
      return FieldType::Guid;
    case Type::Bytes:
      return FieldType::Blob;
    default:
      return FieldType::Text;
  }
}

unsigned Digit(char c) {
  unsigned digit = 0;
  std::from_chars(&c, &c + 1, digit, 16);
  return digit;
}

// "\x0aff".
session::Blob ToBlob(std::string_view text) {
  session::Blob blob;
  for (std::size_t i = 2; i + 1 < text.size(); i += 2) {
    blob.push_back(static_cast<std::byte>((Digit(text[i]) << 4U) | Digit(text[i + 1])));
  }
  return blob;
}

Value ToCurrency(std::string_view text) {
  const auto amount = forms::Currency::Parse(text);
  return amount ? Value(*amount) : Value(std::string(text));
}

Value ToDouble(std::string_view text) {
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? Value(number) : Value(std::string(text));
}

Value ToMoment(std::string_view text) {
  // Without fractions of a second and a time zone.
  constexpr std::size_t kSeconds = 19;
  const auto moment = forms::ParseIso(text.substr(0, kSeconds));
  return moment ? Value(*moment) : Value(std::string(text));
}

Value ToInteger(std::string_view text) {
  if (text == "t" || text == "f") {
    return std::int64_t{text == "t" ? 1 : 0};
  }
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

Value ValueAt(const PGresult* result, int row, int column, FieldType type) {
  if (PQgetisnull(result, row, column) != 0) {
    return {};
  }
  const std::string_view text(PQgetvalue(result, row, column),
                              static_cast<std::size_t>(PQgetlength(result, row, column)));
  switch (type) {
    case FieldType::Integer:
      return ToInteger(text);
    case FieldType::Double:
      return ToDouble(text);
    case FieldType::Currency:
      return ToCurrency(text);
    case FieldType::DateTime:
      return ToMoment(text);
    case FieldType::Guid:
      return session::ParseGuid(text).value_or(session::Guid());
    case FieldType::Blob:
      return ToBlob(text);
    default:
      return std::string(text);
  }
}

std::vector<session::Field> PostgresColumns::FieldsOf(const PGresult* result) {
  std::vector<session::Field> fields;
  for (int i = 0; i < PQnfields(result); ++i) {
    session::Field& field = fields.emplace_back();
    // A name without capitals was written without quotes: a column of the schema, or an expression.
    const std::string_view name = PQfname(result, i);
    field.name = name == forms::ToLower(name) ? InCapitals(name) : std::string(name);
    const auto type = static_cast<Type>(PQftype(result, i));
    const int modifier = PQfmod(result, i);
    field.type = TypeOf(type, modifier);
    if (field.type != FieldType::Text) {
      continue;
    }
    if (type == Type::Varchar || type == Type::Bpchar) {
      field.defined_size = std::max(modifier - kModifierBase, 0);
    } else if (const Oid table = PQftable(result, i); table != InvalidOid) {
      const Column* column = Find(table, PQftablecol(result, i));
      field.defined_size = column != nullptr ? column->size : 0;
    }
  }
  return fields;
}

const Column* PostgresColumns::Find(Oid table, int number) {
  auto known = tables_.find(table);
  if (known == tables_.end()) {
    std::map<int, const Column*> columns;
    const auto rows = ask_(
        "SELECT c.relname::text, a.attnum, a.attname::text FROM pg_catalog.pg_class c JOIN "
        "pg_catalog.pg_attribute a ON a.attrelid=c.oid WHERE a.attnum>0 AND c.oid=" +
        std::to_string(table));
    for (; rows != nullptr && !rows->Eof(); rows->MoveNext()) {
      if (const Table* of = FindTable(session::ToText(rows->Get(0)))) {
        columns[session::ToId(rows->Get(1))] = FindColumn(*of, session::ToText(rows->Get(2)));
      }
    }
    known = tables_.emplace(table, std::move(columns)).first;
  }
  const auto found = known->second.find(number);
  return found == known->second.end() ? nullptr : found->second;
}

}  // namespace host
