#include "automation/dispatch_object.h"

#include <dispex.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

#include "automation/exception_info.h"
#include "automation/lost_connection.h"

namespace automation {
namespace {

// A script engine's object may answer by this interface alone; `result` is what the plain one gave.
ComPtr<IDispatchEx> ScriptObject(const ComPtr<IDispatch>& object, HRESULT result) {
  return result == E_NOTIMPL ? object.As<IDispatchEx>() : ComPtr<IDispatchEx>();
}

HRESULT FindMember(const ComPtr<IDispatch>& object, const char* member, DISPID& id) {
  const std::wstring wide = ToWide(member);
  auto* name = const_cast<LPOLESTR>(wide.c_str());
  const HRESULT result = object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (const auto script_object = ScriptObject(object, result)) {
    const Variant text = Variant::Of(member);
    return script_object->GetDispID(V_BSTR(&text), fdexNameCaseInsensitive, &id);
  }
  return result;
}

HRESULT InvokeMember(const ComPtr<IDispatch>& object, DISPID id, WORD flags, DISPPARAMS& parameters, VARIANT* value,
                     EXCEPINFO& info) {
  UINT wrong = 0;
  HRESULT result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, value, &info, &wrong);
  if (const auto script_object = ScriptObject(object, result)) {
    result = script_object->InvokeEx(id, LOCALE_USER_DEFAULT, flags, &parameters, value, &info, nullptr);
  }
  // An object may want to be told which of the two it is.
  if (result == DISP_E_MEMBERNOTFOUND && flags == (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) {
    return InvokeMember(object, id, DISPATCH_PROPERTYGET, parameters, value, info);
  }
  return result;
}

std::string Hex(HRESULT result) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "0x";
  for (int shift = 28; shift >= 0; shift -= 4) {
    text += kDigits[(static_cast<ULONG>(result) >> static_cast<unsigned>(shift)) & 0xFU];
  }
  return text;
}

}  // namespace

bool DispatchObject::Offers(const char* member) const {
  DISPID id = DISPID_UNKNOWN;
  return object_ && SUCCEEDED(FindMember(object_, member, id));
}

DISPID DispatchObject::Find(const char* member) const {
  if (!object_) {
    throw session::DatabaseError("The host has not handed over " + name_ + ".", {}, 0);
  }
  DISPID id = DISPID_UNKNOWN;
  const HRESULT result = FindMember(object_, member, id);
  if (FAILED(result)) {
    Fail(name_ + " of the host does not offer \"" + member + "\".", result);
  }
  return id;
}

Variant DispatchObject::Invoke(const char* member, DISPID id, WORD flags, DISPPARAMS& parameters) const {
  Variant value;
  ExceptionInfo info;
  const HRESULT result =
      InvokeMember(object_, id, flags, parameters, (flags & DISPATCH_PROPERTYPUT) != 0 ? nullptr : &value, info);
  if (result == DISP_E_EXCEPTION) {
    const HRESULT code = info.Code();
    std::string description = info.Description();
    if (description.empty()) {
      description = name_ + " of the host failed in \"" + member + "\" (" + Hex(code) + ").";
    }
    Fail(description, code);
  }
  if (result == DISP_E_MEMBERNOTFOUND) {
    Fail(name_ + " of the host does not offer \"" + member + "\".", result);
  }
  if (FAILED(result)) {
    Fail(name_ + " of the host refused the call of \"" + member + "\" (" + Hex(result) + ").", result);
  }
  return value;
}

Variant DispatchObject::Call(const char* member, std::initializer_list<Variant> arguments) const {
  if (connection_ == nullptr) {
    return CallOnce(member, arguments);
  }
  Variant answer;
  session::Insist(*connection_, [&] { answer = CallOnce(member, arguments); });
  return answer;
}

Variant DispatchObject::CallOnce(const char* member, std::initializer_list<Variant> arguments) const {
  const DISPID id = Find(member);
  // The last argument comes first.
  std::vector<Variant> reversed(std::rbegin(arguments), std::rend(arguments));
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  return Invoke(member, id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters);
}

Variant DispatchObject::CallAs(VARTYPE type, const char* kind, const char* member,
                               std::initializer_list<Variant> arguments) const {
  const Variant value = Call(member, arguments);
  try {
    return ChangeType(value, type);
  } catch (const ComError& error) {
    Fail(name_ + " of the host gives no " + kind + " for \"" + member + "\".", error.Result());
  }
}

std::string DispatchObject::Text(const char* member, std::initializer_list<Variant> arguments) const {
  const Variant value = Call(member, arguments);
  try {
    return ToText(value);
  } catch (const ComError& error) {
    Fail(name_ + " of the host gives no text for \"" + member + "\".", error.Result());
  }
}

std::int32_t DispatchObject::Int(const char* member, std::initializer_list<Variant> arguments) const {
  return V_I4(&static_cast<const VARIANT&>(CallAs(VT_I4, "whole number", member, arguments)));
}

bool DispatchObject::Bool(const char* member, std::initializer_list<Variant> arguments) const {
  return V_BOOL(&static_cast<const VARIANT&>(CallAs(VT_BOOL, "truth value", member, arguments))) != VARIANT_FALSE;
}

DispatchObject DispatchObject::Object(const char* member, std::string name,
                                      std::initializer_list<Variant> arguments) const {
  ComPtr<IDispatch> object = ToObject(Call(member, arguments));
  if (!object) {
    Fail(name_ + " of the host gives no object for \"" + member + "\".", DISP_E_TYPEMISMATCH);
  }
  return {std::move(object), std::move(name)};
}

void DispatchObject::Put(const char* member, Variant value) const {
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&value, &named, 1, 1};
  Invoke(member, Find(member), DISPATCH_PROPERTYPUT, parameters);
}

void DispatchObject::Fail(const std::string& message, HRESULT result) const {
  throw FailureOf(result, message);
}

}  // namespace automation
