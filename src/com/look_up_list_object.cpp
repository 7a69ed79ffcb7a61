#include "com/look_up_list_object.h"

#include "com/arguments.h"

namespace com {
namespace {

using automation::ComPtr;
using automation::FromBstr;
using automation::IsMissing;
using automation::ToObject;
using automation::Variant;

// The events' numbers in the type library.
enum Event : DISPID { kSwapModuleCalled = 1, kButtonClicked, kBeforePrint, kAfterPrint, kCheckEvent };

// A by-reference Boolean of an event: the host may set it.
class EventFlag {
 public:
  explicit EventFlag(bool value) : value_(value ? VARIANT_TRUE : VARIANT_FALSE) {}

  Variant Reference() {
    Variant reference;
    V_VT(&reference) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&reference) = &value_;
    return reference;
  }
  bool IsSet() const { return value_ != VARIANT_FALSE; }

 private:
  VARIANT_BOOL value_;
};

}  // namespace

LookUpListObject::LookUpListObject() : PublicClass(__uuidof(::LookUpList), __uuidof(DLookUpListEvents)) {
  ForwardEvents();
}

void LookUpListObject::ForwardEvents() {
  Screens().Events.SwapModuleCalled = [this](const std::string& where_to, const std::string& designation) {
    Events().Raise(kSwapModuleCalled, {Variant::Of(where_to), Variant::Of(designation)});
  };
  Screens().Events.ButtonClicked = [this](const std::string& button_key, std::int32_t current_id) {
    Events().Raise(kButtonClicked, {Variant::Of(button_key), Variant::Of(current_id)});
  };
  Screens().Events.BeforePrint = [this](bool& cancel) {
    EventFlag flag(cancel);
    Events().Raise(kBeforePrint, {flag.Reference()});
    cancel = flag.IsSet();
  };
  Screens().Events.AfterPrint = [this] { Events().Raise(kAfterPrint, {}); };
  Screens().Events.CheckEvent = [this](bool& handled) {
    EventFlag flag(handled);
    Events().Raise(kCheckEvent, {flag.Reference()});
    handled = flag.IsSet();
  };
}

HRESULT LookUpListObject::ShowList(VARIANT_BOOL InsLLCanMultiSel, VARIANT fOwner) {
  // The owner of this call stays the list's owner.
  if (!IsMissing(&fOwner)) {
    const HRESULT result = Run([&] {
      if (const ComPtr<IDispatch> owner = ToObject(fOwner)) {
        Screens().frmOwner = KeepObject(owner.Get());
      }
    });
    if (FAILED(result)) {
      return result;
    }
  }
  return Open([&] { Screens().ShowList(InsLLCanMultiSel != VARIANT_FALSE); });
}

}  // namespace com
