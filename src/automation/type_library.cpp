#include "automation/type_library.h"

#include <oleauto.h>

#include "automation/com_error.h"
#include "automation/module.h"

namespace automation {

ComPtr<ITypeLib> TypeLibrary() {
  ComPtr<ITypeLib> library;
  Check(LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Out()));
  return library;
}

ComPtr<ITypeInfo> TypeInfoOf(const GUID& id) {
  ComPtr<ITypeInfo> info;
  Check(TypeLibrary()->GetTypeInfoOfGuid(id, info.Out()));
  return info;
}

}  // namespace automation
