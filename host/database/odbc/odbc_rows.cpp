#include "database/odbc/odbc_rows.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "database/schema.h"
#include "forms/text.h"

namespace host {
namespace {

using session::FieldType;
using session::Value;

constexpr std::size_t kNameSize = 512;
// Wide text beyond it is unlimited.
constexpr SQLULEN kLongestSize = 4000;
// Money as the practice has it: numeric(19,4).
constexpr SQLULEN kMoneyDigits = 19;
constexpr SQLSMALLINT kMoneyDecimals = 4;
// Units that a value is asked for at first; what is longer says how long it is.
constexpr std::size_t kFirstPiece = 256;
constexpr std::size_t kNextPiece = 65536;

FieldType TypeOf(SQLSMALLINT type, SQLULEN size, SQLSMALLINT decimals) {
  switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return FieldType::Integer;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return size == kMoneyDigits && decimals == kMoneyDecimals ? FieldType::Currency : FieldType::Double;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return FieldType::Double;
    case SQL_DATETIME:
    case SQL_TIMESTAMP:
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return FieldType::DateTime;
    case SQL_GUID:
      return FieldType::Guid;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return FieldType::Blob;
    default:
      return FieldType::Text;
  }
}

// A value piece by piece, as SQLGetData gives it. False when the driver fails; `null` is whether there is none.
// `ending` is how many units of a piece close it.
template <class Unit>
bool ReadPieces(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT kind, std::size_t ending, std::vector<Unit>& value,
                bool& null) {
  std::size_t room = kFirstPiece;
  for (std::size_t filled = 0;;) {
    value.resize(filled + room + ending);
    SQLLEN left = 0;
    const SQLRETURN returned = SQLGetData(statement, column, kind, value.data() + filled,
                                          static_cast<SQLLEN>((room + ending) * sizeof(Unit)), &left);
    if (returned == SQL_NO_DATA || (SQL_SUCCEEDED(returned) && left == SQL_NULL_DATA)) {
      null = returned != SQL_NO_DATA && filled == 0;
      value.resize(filled);
      return true;
    }
    if (!SQL_SUCCEEDED(returned)) {
      return false;
    }
    const std::size_t units = left == SQL_NO_TOTAL ? room + 1 : static_cast<std::size_t>(left) / sizeof(Unit);
    if (units <= room) {
      value.resize(filled + units);
      return true;
    }
    filled += room;
    room = left == SQL_NO_TOTAL ? kNextPiece : units - room;
  }
}

Value NumberOf(const std::string& text, FieldType type) {
  if (type == FieldType::Currency) {
    if (const auto amount = forms::Currency::Parse(text)) {
      return *amount;
    }
    return text;
  }
  const char* end = text.data() + text.size();
  if (type == FieldType::Integer) {
    std::int64_t number = 0;
    if (std::from_chars(text.data(), end, number).ptr == end) {
      return number;
    }
  }
  double number = 0;
  if (std::from_chars(text.data(), end, number).ptr == end) {
    return number;
  }
  return text;
}

// A driver gives today for a year that it cannot read, but not as text. What is no date of the practice's stays text.
Value MomentOf(std::string text) {
  constexpr std::size_t kSeconds = 19;  // and no fractions of one
  const auto moment = text.ends_with("BC") ? std::nullopt : forms::ParseIso(text.substr(0, kSeconds));
  return moment ? Value(*moment) : Value(std::move(text));
}

bool ReadBytes(SQLHSTMT statement, SQLUSMALLINT column, Value& value) {
  session::Blob bytes;
  bool null = false;
  if (!ReadPieces(statement, column, SQL_C_BINARY, 0, bytes, null)) {
    return false;
  }
  if (!null) {
    value = std::move(bytes);
  }
  return true;
}

bool ReadValue(SQLHSTMT statement, SQLUSMALLINT column, FieldType type, Value& value) {
  if (type == FieldType::Blob) {
    return ReadBytes(statement, column, value);
  }
  std::vector<SQLWCHAR> units;
  bool null = false;
  if (!ReadPieces(statement, column, SQL_C_WCHAR, 1, units, null)) {
    return false;
  }
  if (null) {
    return true;
  }
  std::string text = FromOdbcText(units.data(), units.size());
  if (type == FieldType::Text) {
    value = std::move(text);
  } else if (type == FieldType::DateTime) {
    value = MomentOf(std::move(text));
  } else if (type == FieldType::Guid) {
    const auto guid = session::ParseGuid(text);
    value = guid ? Value(*guid) : Value(std::move(text));
  } else {
    value = NumberOf(text, type);
  }
  return true;
}

std::string Attribute(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT attribute) {
  std::array<SQLWCHAR, kNameSize> text{};
  SQLSMALLINT bytes = 0;
  if (!SQL_SUCCEEDED(SQLColAttributeW(statement, column, attribute, text.data(), sizeof(text), &bytes, nullptr))) {
    return {};
  }
  return FromOdbcText(text.data(), std::min(static_cast<std::size_t>(bytes) / sizeof(SQLWCHAR), kNameSize - 1));
}

// The characters that a text column takes: the practice's own word is better than a driver's.
int SizeOf(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT type, SQLULEN told) {
  if (const Table* table = FindTable(Attribute(statement, column, SQL_DESC_BASE_TABLE_NAME))) {
    if (const Column* found = FindColumn(*table, Attribute(statement, column, SQL_DESC_BASE_COLUMN_NAME))) {
      return found->size;
    }
  }
  const bool sized = type != SQL_LONGVARCHAR && type != SQL_WLONGVARCHAR && told <= kLongestSize;
  return sized ? static_cast<int>(told) : 0;
}

bool ReadRow(SQLHSTMT statement, const std::vector<session::Field>& fields, std::vector<Value>& row) {
  row.resize(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!ReadValue(statement, static_cast<SQLUSMALLINT>(i + 1), fields[i].type, row[i])) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::vector<session::Field> OdbcFields(SQLHSTMT statement) {
  SQLSMALLINT count = 0;
  SQLNumResultCols(statement, &count);
  std::vector<session::Field> fields(static_cast<std::size_t>(std::max<SQLSMALLINT>(count, 0)));
  for (std::size_t i = 0; i < fields.size(); ++i) {
    std::array<SQLWCHAR, kNameSize> name{};
    SQLSMALLINT name_size = 0;
    SQLSMALLINT type = SQL_UNKNOWN_TYPE;
    SQLSMALLINT decimals = 0;
    SQLSMALLINT nullable = 0;
    SQLULEN size = 0;
    SQLDescribeColW(statement, static_cast<SQLUSMALLINT>(i + 1), name.data(), kNameSize, &name_size, &type, &size,
                    &decimals, &nullable);
    const std::size_t written = std::min(static_cast<std::size_t>(name_size), kNameSize - 1);
    const std::string label = FromOdbcText(name.data(), written);
    // A name without capitals was written without quotes: a column of the schema, or an expression.
    fields[i].name = label == forms::ToLower(label) ? InCapitals(label) : label;
    fields[i].type = TypeOf(type, size, decimals);
    if (fields[i].type == FieldType::Text) {
      fields[i].defined_size = SizeOf(statement, static_cast<SQLUSMALLINT>(i + 1), type, size);
    }
  }
  return fields;
}

OdbcRows FetchOdbcRows(OdbcHandle& handle, SQLHSTMT statement, const std::vector<session::Field>& fields,
                       std::size_t most, const std::string& batch) {
  OdbcRows rows;
  rows.ended = !handle.Work(statement, batch, [&] {
    while (rows.values.size() < most) {
      const int returned = SQLFetch(statement);
      if (!SQL_SUCCEEDED(returned)) {
        return returned;
      }
      if (!ReadRow(statement, fields, rows.values.emplace_back())) {
        return SQL_ERROR;
      }
    }
    return SQL_SUCCESS;
  });
  return rows;
}

}  // namespace host
