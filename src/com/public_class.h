#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <twSimpleEditScreens.h>

#include <memory>
#include <utility>
#include <vector>

#include "automation/counted.h"
#include "automation/type_library.h"
#include "com/boundary.h"
#include "com/enumeration.h"
#include "com/event_source.h"
#include "com/host_object.h"
#include "com/pv_session.h"
#include "com/screen_thread.h"
#include "com/screen_user.h"

// A property of the default interface, kept in a member of the class behind it.
// NOLINTBEGIN(bugprone-macro-parentheses): a type cannot stand in parentheses
#define COM_PROPERTY(name, type, member)                       \
  HRESULT STDMETHODCALLTYPE get_##name(type* value) override { \
    return Get(value, this->Screens().member);                 \
  }                                                            \
  HRESULT STDMETHODCALLTYPE put_##name(type value) override {  \
    return Put(this->Screens().member, value);                 \
  }
// NOLINTEND(bugprone-macro-parentheses)

namespace com {

using automation::Assign;
using automation::ComPtr;
using automation::FromBstr;
using automation::ToBstr;
using automation::Variant;

// What both public classes are to COM: a dual interface through the type library, IGlobal, events, error information.
// `Dual` is the default interface, `Entry` the class behind it.
template <typename Dual, typename Entry>
class PublicClass
    : public automation::Counted<Dual, ::IGlobal, IConnectionPointContainer, ISupportErrorInfo, IProvideClassInfo2> {
 public:
  PublicClass(const CLSID& class_id, const IID& events)
      : class_id_(class_id), events_id_(events), events_(*this, events) {}

  // --- IDispatch
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) {
      return E_POINTER;
    }
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) override {
    if (info == nullptr) {
      return E_POINTER;
    }
    *info = nullptr;
    if (index != 0) {
      return DISP_E_BADINDEX;
    }
    return Run([&] { *info = Type().Copy(); });
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count, LCID /*locale*/,
                                          DISPID* ids) override {
    HRESULT result = S_OK;
    const HRESULT passed = Run([&] { result = Type()->GetIDsOfNames(names, count, ids); });
    return FAILED(passed) ? passed : result;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* value, EXCEPINFO* exception,
                                   UINT* wrong_argument) override {
    HRESULT result = S_OK;
    const HRESULT passed = Run([&] {
      // Automation would hand them on to the object that the property holds, or fall where it holds none.
      if (parameters != nullptr && parameters->cArgs > 0 && (flags & DISPATCH_PROPERTYGET) != 0 && IsRead(member)) {
        throw automation::ComError(DISP_E_BADPARAMCOUNT);
      }
      SetErrorInfo(0, nullptr);
      result = Type()->Invoke(static_cast<Dual*>(this), member, flags, parameters, value, exception, wrong_argument);
    });
    return FAILED(passed) ? passed : result;
  }

  // --- IGlobal, and the members of the same names on the default interface
  HRESULT STDMETHODCALLTYPE get_DAC(IDispatch** value) override { return GetObject(value, entry_.DAC()); }
  HRESULT STDMETHODCALLTYPE putref_DAC(IDispatch* value) override {
    return Run([&] { entry_.SetDAC(KeepObject(value)); });
  }
  HRESULT STDMETHODCALLTYPE get_GIC(IDispatch** value) override { return GetObject(value, entry_.GIC()); }
  HRESULT STDMETHODCALLTYPE putref_GIC(IDispatch* value) override {
    return Run([&] { entry_.SetGIC(KeepObject(value)); });
  }
  HRESULT STDMETHODCALLTYPE get_GC(IDispatch** value) override { return GetObject(value, entry_.GC()); }
  HRESULT STDMETHODCALLTYPE putref_GC(IDispatch* value) override {
    return Run([&] { entry_.SetGC(KeepObject(value)); });
  }
  HRESULT STDMETHODCALLTYPE get_PV(IDispatch** value) override {
    if (value == nullptr) {
      return E_POINTER;
    }
    const auto session = std::static_pointer_cast<PvSession>(entry_.PV());
    *value = session == nullptr ? nullptr : ComPtr(session->Object()).Copy();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE putref_PV(IDispatch* value) override {
    return Run([&] { entry_.SetPV(value == nullptr ? nullptr : std::make_shared<PvSession>(ComPtr(value))); });
  }

  // --- What both default interfaces have
  HRESULT STDMETHODCALLTYPE get_frmOwner(IDispatch** value) override { return GetObject(value, entry_.frmOwner); }
  HRESULT STDMETHODCALLTYPE put_frmOwner(IDispatch* value) override { return putref_frmOwner(value); }
  HRESULT STDMETHODCALLTYPE putref_frmOwner(IDispatch* value) override {
    return Run([&] { entry_.frmOwner = KeepObject(value); });
  }
  HRESULT STDMETHODCALLTYPE get_StartForm(IDispatch** value) override { return GetObject(value, entry_.StartForm); }
  HRESULT STDMETHODCALLTYPE put_StartForm(IDispatch* value) override { return putref_StartForm(value); }
  HRESULT STDMETHODCALLTYPE putref_StartForm(IDispatch* value) override {
    return Run([&] { entry_.StartForm = KeepObject(value); });
  }
  HRESULT STDMETHODCALLTYPE SetPrinter(BSTR PN, BSTR DM, BSTR DN) override {
    return Run([&] { entry_.SetPrinter({FromBstr(PN), automation::BytesOf(DM), FromBstr(DN)}); });
  }
  HRESULT STDMETHODCALLTYPE GetPrinter(VARIANT* PN, VARIANT* DM, VARIANT* DN) override {
    return Run([&] {
      const entry::Printer& printer = entry_.GetPrinter();
      Assign(PN, Variant::Of(printer.name));
      Assign(DM, Variant::OfBytes(printer.device_mode));
      Assign(DN, Variant::Of(printer.device_names));
    });
  }

  // --- IConnectionPointContainer
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override {
    if (points == nullptr) {
      return E_POINTER;
    }
    return Run(
        [&] { *points = new Enumeration<IEnumConnectionPoints, PointItem>({{ComPtr<IConnectionPoint>(&events_)}}); });
  }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override {
    if (point == nullptr) {
      return E_POINTER;
    }
    *point = nullptr;
    if (id != events_id_) {
      return CONNECT_E_NOCONNECTION;
    }
    *point = ComPtr<IConnectionPoint>(&events_).Copy();
    return S_OK;
  }

  // --- ISupportErrorInfo
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(Dual) || id == __uuidof(::IGlobal) ? S_OK : S_FALSE;
  }

  // --- IProvideClassInfo2
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override {
    if (info == nullptr) {
      return E_POINTER;
    }
    return Run([&] { *info = automation::TypeInfoOf(class_id_).Copy(); });
  }
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override {
    if (id == nullptr) {
      return E_POINTER;
    }
    *id = events_id_;
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
  }

 protected:
  // Runs a method that may open screens, before the window of frmOwner, StartForm or the main form.
  template <typename Operation>
  HRESULT Open(Operation operation) {
    return Run([&] {
      const ScreenThread thread;
      const Call call(*user_, OwnerWindow(), entry_.PV());
      TellingRefusals(*user_, operation);
    });
  }
  template <typename Operation>
  HRESULT Run(Operation operation) {
    return Guarded(*static_cast<Dual*>(this), __uuidof(Dual), operation);
  }
  template <typename T, typename From>
  static HRESULT Get(T* value, const From& from) {
    if (value == nullptr) {
      return E_POINTER;
    }
    *value = static_cast<T>(from);
    return S_OK;
  }
  static HRESULT Get(VARIANT_BOOL* value, bool from) {
    if (value == nullptr) {
      return E_POINTER;
    }
    *value = from ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  }
  HRESULT Get(BSTR* value, const std::string& from) {
    if (value == nullptr) {
      return E_POINTER;
    }
    return Run([&] { *value = ToBstr(from); });
  }
  template <typename T>
  static HRESULT Put(std::int32_t& to, T value) {
    to = static_cast<std::int32_t>(value);
    return S_OK;
  }
  static HRESULT Put(bool& to, VARIANT_BOOL value) {
    to = value != VARIANT_FALSE;
    return S_OK;
  }
  HRESULT Put(std::string& to, BSTR value) {
    return Run([&] { to = FromBstr(value); });
  }
  static HRESULT GetObject(IDispatch** value, const entry::HostObject& from) {
    if (value == nullptr) {
      return E_POINTER;
    }
    *value = GiveObject(from);
    return S_OK;
  }

  EventSource& Events() { return events_; }
  Entry& Screens() { return entry_; }

 private:
  class Call {
   public:
    Call(ScreenUser& user, HWND owner, std::shared_ptr<session::Settings> places) : user_(user) {
      user_.BeginCall(owner, std::move(places));
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() { user_.EndCall(); }

   private:
    ScreenUser& user_;
  };

  const ComPtr<ITypeInfo>& Type() {
    if (!type_) {
      type_ = automation::TypeInfoOf(__uuidof(Dual));
    }
    return type_;
  }
  // Whether the member is a property.
  bool IsRead(DISPID member) {
    const ComPtr<ITypeInfo2> type = Type().template As<ITypeInfo2>();
    UINT index = 0;
    return type && SUCCEEDED(type->GetFuncIndexOfMemId(member, INVOKE_PROPERTYGET, &index));
  }
  HWND OwnerWindow() const {
    for (const entry::HostObject* form : {&entry_.frmOwner, &entry_.StartForm, &entry_.MainForm()}) {
      if (HWND owner = WindowOf(*form); owner != nullptr) {
        return owner;
      }
    }
    return nullptr;
  }

  const CLSID& class_id_;
  const IID& events_id_;
  EventSource events_;
  ComPtr<ITypeInfo> type_;
  std::unique_ptr<ScreenUser> user_ = MakeScreenUser();
  Entry entry_{*user_};
};

}  // namespace com
