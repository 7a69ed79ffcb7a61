#pragma once

#include <windows.h>

#include <oleauto.h>

#include <concepts>
#include <string>
#include <string_view>

#include "automation/com_error.h"
#include "automation/com_ptr.h"
#include "automation/wide_text.h"
#include "session/value.h"

namespace automation {

// A null pointer is the empty text.
std::string FromBstr(BSTR text);
// Belongs to the caller; throws std::bad_alloc.
BSTR ToBstr(std::string_view text);
// A BSTR that carries bytes in place of text.
std::string BytesOf(BSTR bytes);

// A VARIANT that frees what it holds.
class Variant : public VARIANT {
 public:
  Variant() : VARIANT() { VariantInit(this); }
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept;
  Variant& operator=(const Variant& other) { return *this = Variant(other); }
  Variant& operator=(Variant&& other) noexcept;
  ~Variant() { VariantClear(this); }

  static Variant Of(std::string_view text);
  static Variant Of(std::int32_t number);
  // Of nothing that only converts to a truth value, as a pointer does.
  static Variant Of(std::same_as<bool> auto value) { return OfTruth(value); }
  static Variant Of(IDispatch* object);
  // A BSTR that carries bytes.
  static Variant OfBytes(std::string_view bytes);

 private:
  static Variant OfTruth(bool value);
};

// A host's value: empty, null and an argument that was left out are null, truth values 0 and 1, decimals with at most
// four places currency, an object its default property. Throws ComError for what is no single value.
session::Value ToValue(const VARIANT& variant);
// Null is VT_NULL, a GUID its text in braces, whole numbers VT_I4 where they fit.
Variant ToVariant(const session::Value& value);

// A value converted as automation does, whatever the person's locale. Throws ComError when it does not fit.
Variant ChangeType(const VARIANT& variant, VARTYPE type);

std::string ToText(const VARIANT& variant);
std::int32_t ToInt(const VARIANT& variant);
bool ToBool(const VARIANT& variant);
// Nothing when it is no object.
ComPtr<IDispatch> ToObject(const VARIANT& variant);

// Whether a caller left the argument out.
bool IsMissing(const VARIANT* argument);
// Sets a by-reference argument: what it points to keeps its type where it has one, otherwise it takes the value's.
// One that was left out is let be. Throws ComError when the value does not fit.
void Assign(VARIANT* argument, Variant value);

}  // namespace automation
