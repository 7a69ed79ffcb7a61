#include "automation/recordset_object.h"

#include <array>
#include <cstdint>
#include <limits>
#include <new>

#include "automation/ado_error.h"
#include "automation/named_object.h"

namespace host {
namespace {

using automation::CallArguments;
using automation::ComPtr;
using automation::ToVariant;
using automation::Variant;
using session::FieldType;

constexpr std::int32_t kClosed = 0;
constexpr std::int32_t kOpen = 1;
constexpr std::int32_t kRest = -1;
constexpr std::int32_t kUnlimitedText = 1073741823;
constexpr std::int32_t kUnlimitedBytes = 2147483647;

// ADO's DataTypeEnum, and the size that goes with it.
struct AdoType {
  std::int32_t type = 0;
  std::int32_t size = 0;
};

AdoType TypeOf(const session::Field& field) {
  switch (field.type) {
    case FieldType::Integer:
      return {3, 4};  // adInteger
    case FieldType::Double:
      return {5, 8};  // adDouble
    case FieldType::Currency:
      return {6, 8};  // adCurrency
    case FieldType::DateTime:
      return {135, 16};  // adDBTimeStamp
    case FieldType::Guid:
      return {72, 16};  // adGUID
    case FieldType::Blob:
      return {205, kUnlimitedBytes};  // adLongVarBinary
    case FieldType::Text:
      break;
  }
  return field.defined_size > 0 ? AdoType{202, field.defined_size}  // adVarWChar
                                : AdoType{203, kUnlimitedText};     // adLongVarWChar
}

// What the objects of one recordset share.
struct Rows {
  // Throws for a closed recordset.
  session::Recordset& Open() const {
    if (recordset == nullptr) {
      throw Refusal(AdoError::ObjectClosed, "The recordset is closed.");
    }
    return *recordset;
  }
  session::Recordset& AtRow() const {
    session::Recordset& open = Open();
    if (open.Eof()) {
      throw Refusal(AdoError::NoCurrentRow, "There is no current row.");
    }
    return open;
  }

  std::shared_ptr<session::Connection> connection;
  std::unique_ptr<session::Recordset> recordset;  // none when it is closed
};

class FieldObject final : public automation::NamedObject {
 public:
  FieldObject(const std::shared_ptr<Rows>& rows, std::size_t place) {
    const session::Field field = rows->Open().Fields()[place];
    Add("Name", [field](const CallArguments&) { return Variant::Of(field.name); });
    Add("Type", [field](const CallArguments&) { return Variant::Of(TypeOf(field).type); });
    Add("DefinedSize", [field](const CallArguments&) { return Variant::Of(TypeOf(field).size); });
    AddDefault("Value", [rows, place](const CallArguments&) { return ToVariant(rows->AtRow().Get(place)); });
  }
};

Variant FieldAt(const std::shared_ptr<Rows>& rows, const VARIANT& wanted) {
  const session::Recordset& open = rows->Open();
  const session::Value key = automation::ToValue(wanted);
  const auto* name = std::get_if<std::string>(&key);
  const std::int32_t place = name != nullptr ? open.FieldIndex(*name) : session::ToId(key);
  if (place < 0 || static_cast<std::size_t>(place) >= open.Fields().size()) {
    throw Refusal(AdoError::ItemNotFound, "There is no column " + session::ToText(key) + ".");
  }
  return Variant::Of(ComPtr<IDispatch>::Adopt(new FieldObject(rows, static_cast<std::size_t>(place))).Get());
}

class FieldsObject final : public automation::NamedObject {
 public:
  explicit FieldsObject(const std::shared_ptr<Rows>& rows) {
    Add("Count", [rows](const CallArguments&) {
      return Variant::Of(rows->recordset == nullptr ? 0 : static_cast<std::int32_t>(rows->recordset->Fields().size()));
    });
    AddDefault("Item", [rows](const CallArguments& arguments) { return FieldAt(rows, arguments.At(0)); });
  }
};

// By field and row.
Variant ToArray(const std::vector<std::vector<session::Value>>& rows, std::size_t fields) {
  std::array<SAFEARRAYBOUND, 2> bounds = {SAFEARRAYBOUND{static_cast<ULONG>(fields), 0},
                                          SAFEARRAYBOUND{static_cast<ULONG>(rows.size()), 0}};
  Variant block;
  V_ARRAY(&block) = SafeArrayCreate(VT_VARIANT, 2, bounds.data());
  if (V_ARRAY(&block) == nullptr) {
    throw std::bad_alloc();
  }
  V_VT(&block) = VT_ARRAY | VT_VARIANT;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    for (std::size_t field = 0; field < fields; ++field) {
      std::array<LONG, 2> at = {static_cast<LONG>(field), static_cast<LONG>(row)};
      void* cell = nullptr;
      automation::Check(SafeArrayPtrOfIndex(V_ARRAY(&block), at.data(), &cell));
      automation::Assign(static_cast<VARIANT*>(cell), ToVariant(rows[row][field]));
    }
  }
  return block;
}

bool IsGiven(const CallArguments& arguments, std::size_t place) {
  return place < arguments.Size() && !automation::IsMissing(&arguments.At(place));
}

class RecordsetObject final : public automation::NamedObject {
 public:
  explicit RecordsetObject(std::shared_ptr<Rows> rows)
      : rows_(std::move(rows)), was_empty_(rows_->recordset != nullptr && rows_->recordset->Eof()) {
    Add("State", [this](const CallArguments&) { return Variant::Of(rows_->recordset != nullptr ? kOpen : kClosed); });
    Add("BOF", [this](const CallArguments&) { return Variant::Of(rows_->Open().Eof() && was_empty_); });
    Add("EOF", [this](const CallArguments&) { return Variant::Of(rows_->Open().Eof()); });
    Add("MoveNext", [this](const CallArguments&) {
      rows_->AtRow().MoveNext();
      return Variant();
    });
    Add("GetRows", [this](const CallArguments& arguments) { return GetRows(arguments); });
    AddDefault("Fields", [this](const CallArguments& arguments) {
      return arguments.Size() > 0 ? FieldAt(rows_, arguments.At(0))
                                  : Variant::Of(ComPtr<IDispatch>::Adopt(new FieldsObject(rows_)).Get());
    });
    Add("NextRecordset", [](const CallArguments&) { return Variant::Of(static_cast<IDispatch*>(nullptr)); });
    Add("Close", [this](const CallArguments&) {
      rows_->Open();
      rows_->recordset.reset();
      return Variant();
    });
  }

 private:
  // All remaining rows when no number is given.
  Variant GetRows(const CallArguments& arguments) const {
    if (IsGiven(arguments, 1) || IsGiven(arguments, 2)) {
      throw Refusal(AdoError::FeatureNotAvailable, "GetRows reads from the current row, and every column.");
    }
    const std::int32_t count = IsGiven(arguments, 0) ? arguments.Int(0) : kRest;
    session::Recordset& rows = rows_->AtRow();
    return ToArray(rows.GetRows(count < 0 ? std::numeric_limits<std::size_t>::max() : static_cast<std::size_t>(count)),
                   rows.Fields().size());
  }

  std::shared_ptr<Rows> rows_;
  bool was_empty_;
};

}  // namespace

ComPtr<IDispatch> MakeRecordsetObject(std::shared_ptr<session::Connection> connection,
                                      std::unique_ptr<session::Recordset> rows) {
  if (rows->Fields().empty()) {
    rows.reset();
  }
  auto shared = std::make_shared<Rows>(Rows{std::move(connection), std::move(rows)});
  return ComPtr<IDispatch>::Adopt(new RecordsetObject(std::move(shared)));
}

}  // namespace host
