#pragma once

#include <windows.h>

#include <oleauto.h>

#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "com/com_ptr.h"
#include "com/variant.h"
#include "forms/text.h"

namespace test_support {

using com::ComPtr;
using com::Variant;

// An object of a host: members by name, without regard to case, that answer as a test tells them to. Every call is
// noted; a member fails by throwing std::string, which becomes the error's description.
class ScriptedObject final : public IDispatch {
 public:
  using Arguments = std::vector<VARIANT*>;
  using Member = std::function<Variant(const Arguments&)>;

  static ComPtr<ScriptedObject> Make() { return ComPtr<ScriptedObject>::Adopt(new ScriptedObject); }
  inline static int living = 0;

  std::map<std::string, Member> members;
  std::vector<std::string> calls;
  HRESULT error_code = static_cast<HRESULT>(0x80040E14);

  void Answer(const std::string& name, Variant value) {
    members[name] = [value](const Arguments&) { return value; };
  }
  ULONG References() const { return references_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (id != IID_IUnknown && id != IID_IDispatch) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = this;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      delete this;
    }
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    const std::string name = com::ToUtf8(names[0]);
    DISPID id = 1;
    for (const auto& [member, answer] : members) {
      if (forms::EqualsIgnoringCase(member, name)) {
        *ids = id;
        return S_OK;
      }
      ++id;
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* value,
                                   EXCEPINFO* exception, UINT*) override {
    const auto found = std::next(members.begin(), id - 1);
    Arguments arguments;
    std::string call = found->first;
    for (UINT i = parameters->cArgs; i > 0; --i) {
      arguments.push_back(&parameters->rgvarg[i - 1]);
      call += " [" + Shown(*arguments.back()) + "]";
    }
    calls.push_back(call);
    try {
      Variant answer = found->second(arguments);
      if (value != nullptr) {
        *value = std::exchange(static_cast<VARIANT&>(answer), VARIANT{});
      }
      return S_OK;
    } catch (const std::string& description) {
      if (exception != nullptr) {
        exception->bstrDescription = com::ToBstr(description);
        exception->scode = error_code;
      }
      return DISP_E_EXCEPTION;
    }
  }

 private:
  ScriptedObject() { ++living; }
  ~ScriptedObject() { --living; }

  static std::string Shown(const VARIANT& argument) {
    return V_VT(&argument) == VT_DISPATCH ? "object" : com::ToText(argument);
  }

  ULONG references_ = 1;
};

// A variant that holds the object.
inline Variant Holding(const ComPtr<ScriptedObject>& object) {
  return Variant::Of(static_cast<IDispatch*>(object.Get()));
}

}  // namespace test_support
