#include "automation/variant.h"

#include <chrono>
#include <cmath>
#include <cstring>
#include <new>

#include "forms/text.h"

namespace automation {
namespace {

using session::Value;
using std::chrono::days;
using std::chrono::local_days;
using std::chrono::seconds;

constexpr double kSecondsOfDay = 86400;
// Day 0 of an automation date.
constexpr local_days kFirstDay = local_days(std::chrono::year(1899) / 12 / 30);

// The fraction of a day counts forward from its midnight, before day 0 too.
forms::DateTime FromDate(DATE date) {
  const double day = std::trunc(date);
  return kFirstDay + days(static_cast<int>(day)) + seconds(std::llround(std::abs(date - day) * kSecondsOfDay));
}

DATE ToDate(forms::DateTime time) {
  const auto day = std::chrono::floor<days>(time);
  const double whole = static_cast<double>((day - kFirstDay).count());
  const double part = static_cast<double>((time - day).count()) / kSecondsOfDay;
  return whole < 0 ? whole - part : whole + part;
}

// What a reference points to.
Variant Plain(const VARIANT& variant) {
  Variant plain;
  Check(VariantCopyInd(&plain, const_cast<VARIANT*>(&variant)));
  return plain;
}

// The same, and for an object its default property.
Variant WithoutObject(const VARIANT& variant) {
  Variant plain = Plain(variant);
  if (V_VT(&plain) != VT_DISPATCH) {
    return plain;
  }
  const Variant object = std::move(plain);
  plain = Variant();
  if (V_DISPATCH(&object) != nullptr) {
    Variant value;
    DISPPARAMS none{};
    Check(V_DISPATCH(&object)->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                      DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none, &value, nullptr, nullptr));
    plain = Plain(value);
  }
  // An object in an object's place could go on for ever.
  if (V_VT(&plain) == VT_DISPATCH || V_VT(&plain) == VT_UNKNOWN) {
    throw ComError(DISP_E_TYPEMISMATCH);
  }
  return plain;
}

Value FromDecimal(const DECIMAL& decimal) {
  const bool negative = (decimal.sign & DECIMAL_NEG) != 0;
  constexpr int kPlaces = 4;
  constexpr std::uint64_t kMost = INT64_MAX;
  if (decimal.Hi32 == 0 && decimal.scale <= kPlaces && decimal.Lo64 <= kMost) {
    auto units = static_cast<std::int64_t>(decimal.Lo64);
    if (decimal.scale == 0) {
      return negative ? -units : units;
    }
    bool fits = true;
    for (int place = decimal.scale; place < kPlaces && fits; ++place) {
      fits = units <= INT64_MAX / 10;
      units = fits ? units * 10 : units;
    }
    if (fits) {
      return forms::Currency::FromTenThousandths(negative ? -units : units);
    }
  }
  double real = 0;
  Check(VarR8FromDec(const_cast<DECIMAL*>(&decimal), &real));
  return real;
}

Value FromBytes(SAFEARRAY* array) {
  if (array == nullptr) {
    return {};
  }
  if (SafeArrayGetDim(array) != 1) {
    throw ComError(DISP_E_TYPEMISMATCH);
  }
  LONG first = 0;
  LONG last = -1;
  Check(SafeArrayGetLBound(array, 1, &first));
  Check(SafeArrayGetUBound(array, 1, &last));
  session::Blob blob(static_cast<std::size_t>(last - first + 1));
  void* data = nullptr;
  Check(SafeArrayAccessData(array, &data));
  if (!blob.empty()) {
    std::memcpy(blob.data(), data, blob.size());
  }
  SafeArrayUnaccessData(array);
  return blob;
}

SAFEARRAY* ToBytes(const session::Blob& blob) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(blob.size()));
  if (array == nullptr) {
    throw std::bad_alloc();
  }
  void* data = nullptr;
  if (!blob.empty() && SUCCEEDED(SafeArrayAccessData(array, &data))) {
    std::memcpy(data, blob.data(), blob.size());
    SafeArrayUnaccessData(array);
  }
  return array;
}

Value FromUnsigned(std::uint64_t number) {
  if (number > static_cast<std::uint64_t>(INT64_MAX)) {
    return static_cast<double>(number);
  }
  return static_cast<std::int64_t>(number);
}

struct ToVariantOf {
  VARIANT& variant;

  void operator()(std::monostate) const { V_VT(&variant) = VT_NULL; }
  void operator()(std::int64_t number) const {
    if (number >= INT32_MIN && number <= INT32_MAX) {
      V_VT(&variant) = VT_I4;
      V_I4(&variant) = static_cast<LONG>(number);
    } else {
      V_VT(&variant) = VT_I8;
      V_I8(&variant) = number;
    }
  }
  void operator()(double number) const {
    V_VT(&variant) = VT_R8;
    V_R8(&variant) = number;
  }
  void operator()(forms::Currency amount) const {
    V_VT(&variant) = VT_CY;
    V_CY(&variant).int64 = amount.TenThousandths();
  }
  void operator()(const std::string& text) const {
    V_BSTR(&variant) = ToBstr(text);
    V_VT(&variant) = VT_BSTR;
  }
  void operator()(forms::DateTime time) const {
    V_VT(&variant) = VT_DATE;
    V_DATE(&variant) = ToDate(time);
  }
  void operator()(const session::Guid& guid) const { (*this)(session::ToText(guid)); }
  void operator()(const session::Blob& blob) const {
    V_ARRAY(&variant) = ToBytes(blob);
    V_VT(&variant) = VT_ARRAY | VT_UI1;
  }
};

// Puts a value of the type that a plain reference is of where it points to.
void AssignPlain(VARIANT& reference, const Variant& value) {
  const auto type = static_cast<VARTYPE>(V_VT(&reference) & VT_TYPEMASK);
  Variant fitting = ChangeType(value, type);
  switch (type) {
    case VT_BSTR:
      SysFreeString(*V_BSTRREF(&reference));
      *V_BSTRREF(&reference) = std::exchange(V_BSTR(&fitting), nullptr);
      break;
    case VT_I1:
    case VT_UI1:
      *V_UI1REF(&reference) = V_UI1(&fitting);
      break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      *V_I2REF(&reference) = V_I2(&fitting);
      break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
      *V_I4REF(&reference) = V_I4(&fitting);
      break;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      *V_I8REF(&reference) = V_I8(&fitting);
      break;
    case VT_DECIMAL:
      *V_DECIMALREF(&reference) = V_DECIMAL(&fitting);
      break;
    default:
      throw ComError(DISP_E_TYPEMISMATCH);
  }
}

}  // namespace

std::string FromBstr(BSTR text) {
  return ToUtf8({text, SysStringLen(text)});
}

std::string BytesOf(BSTR bytes) {
  return {reinterpret_cast<const char*>(bytes), SysStringByteLen(bytes)};
}

BSTR ToBstr(std::string_view text) {
  const std::wstring wide = ToWide(text);
  BSTR copy = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (copy == nullptr) {
    throw std::bad_alloc();
  }
  return copy;
}

Variant::Variant(const Variant& other) : Variant() {
  Check(VariantCopy(this, const_cast<Variant*>(&other)));
}

Variant::Variant(Variant&& other) noexcept : VARIANT(other) {
  VariantInit(&other);
}

Variant& Variant::operator=(Variant&& other) noexcept {
  Variant taken(std::move(other));
  std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(taken));
  return *this;
}

Variant Variant::Of(std::string_view text) {
  return ToVariant(std::string(text));
}

Variant Variant::Of(std::int32_t number) {
  return ToVariant(static_cast<std::int64_t>(number));
}

Variant Variant::OfTruth(bool value) {
  Variant variant;
  V_VT(&variant) = VT_BOOL;
  V_BOOL(&variant) = value ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

Variant Variant::OfBytes(std::string_view bytes) {
  Variant variant;
  V_BSTR(&variant) = SysAllocStringByteLen(bytes.data(), static_cast<UINT>(bytes.size()));
  if (V_BSTR(&variant) == nullptr) {
    throw std::bad_alloc();
  }
  V_VT(&variant) = VT_BSTR;
  return variant;
}

Variant Variant::Of(IDispatch* object) {
  Variant variant;
  V_VT(&variant) = VT_DISPATCH;
  V_DISPATCH(&variant) = ComPtr(object).Copy();
  return variant;
}

Value ToValue(const VARIANT& variant) {
  if ((V_VT(&variant) & VT_BYREF) != 0 || V_VT(&variant) == VT_DISPATCH) {
    return ToValue(WithoutObject(variant));
  }
  switch (V_VT(&variant)) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_ERROR:
      return {};
    case VT_I1:
      return static_cast<std::int64_t>(V_I1(&variant));
    case VT_I2:
      return static_cast<std::int64_t>(V_I2(&variant));
    case VT_I4:
    case VT_INT:
      return static_cast<std::int64_t>(V_I4(&variant));
    case VT_I8:
      return static_cast<std::int64_t>(V_I8(&variant));
    case VT_UI1:
      return static_cast<std::int64_t>(V_UI1(&variant));
    case VT_UI2:
      return static_cast<std::int64_t>(V_UI2(&variant));
    case VT_UI4:
    case VT_UINT:
      return static_cast<std::int64_t>(V_UI4(&variant));
    case VT_UI8:
      return FromUnsigned(V_UI8(&variant));
    case VT_BOOL:
      return static_cast<std::int64_t>(V_BOOL(&variant) == VARIANT_FALSE ? 0 : 1);
    case VT_R4:
      return static_cast<double>(V_R4(&variant));
    case VT_R8:
      return V_R8(&variant);
    case VT_CY:
      return forms::Currency::FromTenThousandths(V_CY(&variant).int64);
    case VT_DATE:
      return FromDate(V_DATE(&variant));
    case VT_DECIMAL:
      return FromDecimal(V_DECIMAL(&variant));
    case VT_BSTR:
      return FromBstr(V_BSTR(&variant));
    case VT_ARRAY | VT_UI1:
    case VT_ARRAY | VT_I1:
      return FromBytes(V_ARRAY(&variant));
    default:
      throw ComError(DISP_E_TYPEMISMATCH);
  }
}

Variant ToVariant(const Value& value) {
  Variant variant;
  std::visit(ToVariantOf{variant}, value);
  return variant;
}

Variant ChangeType(const VARIANT& variant, VARTYPE type) {
  Variant plain = WithoutObject(variant);
  Variant changed;
  Check(VariantChangeTypeEx(&changed, &plain, LOCALE_INVARIANT, 0, type));
  return changed;
}

std::string ToText(const VARIANT& variant) {
  return session::ToText(ToValue(variant));
}

std::int32_t ToInt(const VARIANT& variant) {
  return session::ToId(ToValue(variant));
}

bool ToBool(const VARIANT& variant) {
  const Value value = ToValue(variant);
  if (const auto* text = std::get_if<std::string>(&value)) {
    return forms::IsOn(*text);
  }
  return ToInt(variant) != 0;
}

ComPtr<IDispatch> ToObject(const VARIANT& variant) {
  const Variant plain = Plain(variant);
  if (V_VT(&plain) != VT_DISPATCH && V_VT(&plain) != VT_UNKNOWN) {
    return {};
  }
  return ComPtr(V_UNKNOWN(&plain)).As<IDispatch>();
}

bool IsMissing(const VARIANT* argument) {
  return argument == nullptr || (V_VT(argument) == VT_ERROR && V_ERROR(argument) == DISP_E_PARAMNOTFOUND);
}

void Assign(VARIANT* argument, Variant value) {
  if (IsMissing(argument)) {
    return;
  }
  if (V_VT(argument) == (VT_BYREF | VT_VARIANT)) {
    Assign(V_VARIANTREF(argument), std::move(value));
    return;
  }
  if ((V_VT(argument) & VT_BYREF) != 0) {
    AssignPlain(*argument, value);
    return;
  }
  VariantClear(argument);
  *argument = std::exchange(static_cast<VARIANT&>(value), VARIANT{});
}

}  // namespace automation
