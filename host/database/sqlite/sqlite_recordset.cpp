#include "database/sqlite/sqlite_recordset.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>

#include "forms/text.h"

namespace host {
namespace {

using session::FieldType;
using session::Value;

[[noreturn]] void FailWithoutRow() {
  throw session::DatabaseError("There is no current row.", {}, SQLITE_MISUSE);
}

// By a declared type as the schema writes it: "nvarchar(40)".
void SetDeclaredType(session::Field& field, std::string_view declared) {
  std::string type(declared);
  std::transform(type.begin(), type.end(), type.begin(), [](unsigned char c) { return std::tolower(c); });
  if (type.find("char") != std::string::npos || type.find("text") != std::string::npos) {
    field.type = FieldType::Text;
    if (const std::size_t open = type.find('('); open != std::string::npos) {
      std::from_chars(type.data() + open + 1, type.data() + type.size(), field.defined_size);
    }
  } else if (type == "money") {
    field.type = FieldType::Currency;
  } else if (type == "datetime") {
    field.type = FieldType::DateTime;
  } else if (type == "uniqueidentifier") {
    field.type = FieldType::Guid;
  } else if (type == "float" || type == "real") {
    field.type = FieldType::Double;
  } else if (type.find("blob") != std::string::npos) {
    field.type = FieldType::Blob;
  } else {
    field.type = FieldType::Integer;
  }
}

FieldType StoredType(int storage) {
  switch (storage) {
    case SQLITE_INTEGER:
      return FieldType::Integer;
    case SQLITE_FLOAT:
      return FieldType::Double;
    case SQLITE_BLOB:
      return FieldType::Blob;
    default:
      return FieldType::Text;
  }
}

Value Number(sqlite3_stmt* statement, int column, FieldType type) {
  const double real = sqlite3_column_double(statement, column);
  if (type == FieldType::Currency) {
    return forms::Currency::FromTenThousandths(std::llround(real * 10000));
  }
  if (sqlite3_column_type(statement, column) == SQLITE_INTEGER && type != FieldType::Double) {
    return static_cast<std::int64_t>(sqlite3_column_int64(statement, column));
  }
  return real;
}

// Other programs have written text in the bytes of Latin-1: it is shown by its characters, and not lost in a save.
std::string Characters(std::string_view bytes) {
  const bool ascii = std::ranges::none_of(bytes, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  if (ascii || forms::ToUtf8(forms::ToUtf32(bytes)) == bytes) {
    return std::string(bytes);
  }
  std::u32string characters;
  std::ranges::transform(bytes, std::back_inserter(characters),
                         [](char c) { return static_cast<char32_t>(static_cast<unsigned char>(c)); });
  return forms::ToUtf8(characters);
}

Value Text(std::string_view text, FieldType type) {
  if (type == FieldType::DateTime) {
    if (const auto moment = forms::ParseIso(text)) {
      return *moment;
    }
  } else if (type == FieldType::Guid) {
    if (const auto guid = session::ParseGuid(text)) {
      return *guid;
    }
  }
  return Characters(text);
}

}  // namespace

SqliteRecordset::SqliteRecordset(SqliteHandle& handle, SqliteReaders::Lease lease, SqliteStatement statement,
                                 std::string batch)
    : handle_(handle), lease_(std::move(lease)), statement_(std::move(statement)), batch_(std::move(batch)) {
  const int count = sqlite3_column_count(statement_.get());
  fields_.resize(static_cast<std::size_t>(count));
  std::vector<int> expressions;
  for (int i = 0; i < count; ++i) {
    session::Field& field = fields_[static_cast<std::size_t>(i)];
    field.name = sqlite3_column_name(statement_.get(), i);
    if (const char* declared = sqlite3_column_decltype(statement_.get(), i)) {
      SetDeclaredType(field, declared);
    } else {
      expressions.push_back(i);
    }
  }
  MoveNext();
  // An expression has the type that it yields in the first row.
  for (const int i : expressions) {
    fields_[static_cast<std::size_t>(i)].type =
        Eof() ? FieldType::Text : StoredType(sqlite3_column_type(statement_.get(), i));
  }
}

void SqliteRecordset::MoveNext() {
  if (Eof()) {
    FailWithoutRow();
  }
  bool row = false;
  try {
    row = handle_.Step(statement_.get(), batch_);
  } catch (const session::DatabaseError&) {
    statement_.reset();
    lease_.reset();
    throw;
  }
  if (!row) {
    statement_.reset();
    lease_.reset();
  }
}

Value SqliteRecordset::Get(std::size_t field) const {
  if (Eof() || field >= fields_.size()) {
    FailWithoutRow();
  }
  const int column = static_cast<int>(field);
  sqlite3_stmt* statement = statement_.get();
  const int storage = sqlite3_column_type(statement, column);
  switch (storage == SQLITE_BLOB && fields_[field].type == FieldType::Text ? SQLITE_TEXT : storage) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
      return Number(statement, column, fields_[field].type);
    case SQLITE_BLOB: {
      const void* bytes = sqlite3_column_blob(statement, column);
      session::Blob blob(static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
      if (!blob.empty()) {
        std::memcpy(blob.data(), bytes, blob.size());
      }
      return blob;
    }
    default: {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
      return Text({text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))}, fields_[field].type);
    }
  }
}

void EmptyRecordset::MoveNext() {
  FailWithoutRow();
}

session::Value EmptyRecordset::Get(std::size_t /*field*/) const {
  FailWithoutRow();
}

}  // namespace host
