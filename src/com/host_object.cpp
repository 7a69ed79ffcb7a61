#include "com/host_object.h"

#include "automation/dispatch_object.h"
#include "automation/module.h"

namespace com {

using automation::ComPtr;
using automation::DispatchObject;

entry::HostObject KeepObject(IDispatch* object) {
  if (object == nullptr) {
    return nullptr;
  }
  // The library stays loaded until it is released.
  return {ComPtr(object).Copy(), [living = std::make_shared<automation::LivingObject>()](void* kept) {
            static_cast<IDispatch*>(kept)->Release();
          }};
}

IDispatch* GiveObject(const entry::HostObject& object) {
  return ComPtr(static_cast<IDispatch*>(object.get())).Copy();
}

HWND WindowOf(const entry::HostObject& object) {
  const DispatchObject form(ComPtr(static_cast<IDispatch*>(object.get())), "The owner");
  if (!form.Offers("hwnd")) {
    return nullptr;
  }
  try {
    auto* window = reinterpret_cast<HWND>(static_cast<INT_PTR>(form.Int("hwnd")));
    return IsWindow(window) != FALSE ? window : nullptr;
  } catch (const session::DatabaseError&) {  // a form without a window owns nothing
    return nullptr;
  }
}

}  // namespace com
