#include "com/ado_recordset.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace com {
namespace {

using automation::Check;
using automation::ComError;
using automation::ComPtr;
using automation::ToObject;
using automation::ToValue;

using session::FieldType;

constexpr std::int32_t kBlockRows = 64;
constexpr std::int32_t kAllRows = -1;
constexpr std::int32_t kClosed = 0;
constexpr int kFeatureNotAvailable = static_cast<int>(0x800A0CB3);

// More than any practice has: whoever gives more does not end.
constexpr int kMostResults = 1000;
constexpr std::int32_t kMostFields = 10000;
constexpr std::int64_t kMostRows = 2'000'000;

// ADO's DataTypeEnum.
FieldType TypeOf(std::int32_t ado_type) {
  switch (ado_type) {
    case 2:   // adSmallInt
    case 3:   // adInteger
    case 11:  // adBoolean
    case 16:  // adTinyInt
    case 17:  // adUnsignedTinyInt
    case 18:  // adUnsignedSmallInt
    case 19:  // adUnsignedInt
    case 20:  // adBigInt
    case 21:  // adUnsignedBigInt
      return FieldType::Integer;
    case 4:    // adSingle
    case 5:    // adDouble
    case 14:   // adDecimal
    case 131:  // adNumeric
    case 139:  // adVarNumeric
      return FieldType::Double;
    case 6:  // adCurrency
      return FieldType::Currency;
    case 7:    // adDate
    case 133:  // adDBDate
    case 134:  // adDBTime
    case 135:  // adDBTimeStamp
      return FieldType::DateTime;
    case 72:  // adGUID
      return FieldType::Guid;
    case 128:  // adBinary
    case 204:  // adVarBinary
    case 205:  // adLongVarBinary
      return FieldType::Blob;
    default:
      return FieldType::Text;
  }
}

// Of other types ADO tells the bytes, which are no characters.
bool IsSizedText(std::int32_t ado_type) {
  constexpr std::array kLong = {201, 203};  // adLongVarChar, adLongVarWChar
  return TypeOf(ado_type) == FieldType::Text && std::ranges::find(kLong, ado_type) == kLong.end();
}

// Nothing after the last result, and from a provider that gives one result a statement.
ComPtr<IDispatch> ResultAfter(const DispatchObject& recordset) {
  if (!recordset.Offers("NextRecordset")) {
    return {};
  }
  try {
    return ToObject(recordset.Call("NextRecordset"));
  } catch (const session::DatabaseError& error) {
    if (error.Code() != kFeatureNotAvailable) {
      throw;
    }
    return {};
  }
}

// "{01234567-89AB-CDEF-0123-456789ABCDEF}", as ADO gives a uniqueidentifier; other text stays text.
session::Value ParseGuid(const std::string& text) {
  std::string digits;
  for (const char c : text) {
    if (c != '{' && c != '}' && c != '-') {
      digits += c;
    }
  }
  session::Guid guid;
  if (digits.size() != 2 * guid.bytes.size()) {
    return text;
  }
  for (std::size_t i = 0; i < guid.bytes.size(); ++i) {
    const char* const from = digits.data() + 2 * i;
    if (const auto [stop, error] = std::from_chars(from, from + 2, guid.bytes[i], 16);
        error != std::errc() || stop != from + 2) {
      return text;
    }
  }
  return guid;
}

}  // namespace

AdoRecordset::AdoRecordset(DispatchObject recordset, std::string statement, bool batch, Explain explain)
    : recordset_(std::move(recordset)), statement_(std::move(statement)), explain_(std::move(explain)) {
  SkipResultsWithoutRows();
  while (recordset_.Get() != nullptr) {
    ReadFields();
    Fetch(batch ? kAllRows : kBlockRows);
    if (!batch) {
      return;
    }
    // The rows of a result are gone when the next one is asked for.
    NextResult();
    SkipResultsWithoutRows();
  }
}

void AdoRecordset::SkipResultsWithoutRows() {
  while (recordset_.Get() != nullptr && recordset_.Offers("State") && recordset_.Int("State") == kClosed) {
    NextResult();
  }
}

void AdoRecordset::NextResult() {
  if (++results_ > kMostResults) {
    Refuse("gives results without an end.");
  }
  recordset_ = DispatchObject(ResultAfter(recordset_), recordset_.Name());
}

void AdoRecordset::ReadFields() {
  fields_.clear();
  const DispatchObject fields = recordset_.Object("Fields", "Fields");
  const std::int32_t count = fields.Int("Count");
  if (count < 0 || count > kMostFields) {
    Refuse("tells of " + std::to_string(count) + " fields.");
  }
  for (std::int32_t i = 0; i < count; ++i) {
    const DispatchObject field = fields.Object("Item", "A field", {Variant::Of(i)});
    const std::int32_t type = field.Int("Type");
    fields_.push_back({.name = field.Text("Name"),
                       .type = TypeOf(type),
                       .defined_size = IsSizedText(type) ? std::max(0, field.Int("DefinedSize")) : 0});
  }
}

void AdoRecordset::Fetch(std::int32_t count) {
  block_ = Variant();
  row_ = 0;
  rows_ = 0;
  if (recordset_.Get() == nullptr || fields_.empty() || recordset_.Bool("EOF")) {
    return;
  }
  block_ = recordset_.Call("GetRows", {Variant::Of(count)});
  ReadBounds();
  fetched_ += rows_ - row_;
  if (rows_ <= row_) {
    Refuse("gives no rows before its end.");
  }
  if (fetched_ > kMostRows) {
    Refuse("gives rows without an end.");
  }
}

void AdoRecordset::ReadBounds() {
  LONG first_row = 0;
  LONG last_row = -1;
  LONG last_field = -1;
  if (V_VT(&block_) != (VT_ARRAY | VT_VARIANT) || SafeArrayGetDim(V_ARRAY(&block_)) != 2 ||
      FAILED(SafeArrayGetLBound(V_ARRAY(&block_), 1, &first_field_)) ||
      FAILED(SafeArrayGetUBound(V_ARRAY(&block_), 1, &last_field)) ||
      FAILED(SafeArrayGetLBound(V_ARRAY(&block_), 2, &first_row)) ||
      FAILED(SafeArrayGetUBound(V_ARRAY(&block_), 2, &last_row))) {
    Refuse("gives no rows for \"GetRows\".");
  }
  if (std::int64_t{last_field} - first_field_ + 1 != static_cast<std::int64_t>(fields_.size())) {
    Refuse("gives rows of other fields than it tells.");
  }
  row_ = first_row;
  rows_ = std::int64_t{last_row} + 1;
}

void AdoRecordset::MoveNext() {
  if (++row_ < rows_) {
    return;
  }
  try {
    Fetch(kBlockRows);
  } catch (const session::DatabaseError& failure) {
    throw explain_(failure);
  }
}

session::Value AdoRecordset::Get(std::size_t field) const {
  std::array<LONG, 2> at = {first_field_ + static_cast<LONG>(field), static_cast<LONG>(row_)};
  void* cell = nullptr;
  try {
    Check(SafeArrayPtrOfIndex(V_ARRAY(&block_), at.data(), &cell));
    session::Value value = ToValue(*static_cast<const VARIANT*>(cell));
    if (fields_[field].type == FieldType::Guid && std::holds_alternative<std::string>(value)) {
      return ParseGuid(std::get<std::string>(value));
    }
    return value;
  } catch (const ComError& error) {
    Refuse("gives no value that can be read for the column " + fields_[field].name + ".", error.Result());
  }
}

void AdoRecordset::Refuse(const std::string& what, HRESULT result) const {
  throw session::DatabaseError(recordset_.Name() + " of the host " + what, statement_, static_cast<int>(result));
}

}  // namespace com
