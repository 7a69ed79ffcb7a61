#include "com/class_factory.h"

#include "automation/class_factory.h"
#include "com/editing_screen_object.h"
#include "com/look_up_list_object.h"

namespace com {

using automation::ClassFactory;

HRESULT GetClassFactory(REFCLSID class_id, REFIID interface_id, void** factory) {
  if (factory == nullptr) {
    return E_POINTER;
  }
  *factory = nullptr;
  if (class_id == __uuidof(::EditingScreen)) {
    return ClassFactory<EditingScreenObject>::Give(interface_id, factory);
  }
  if (class_id == __uuidof(::LookUpList)) {
    return ClassFactory<LookUpListObject>::Give(interface_id, factory);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace com
