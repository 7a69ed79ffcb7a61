#include "com/type_library.h"

#include <oleauto.h>

#include "automation/com_error.h"
#include "automation/module.h"

namespace com {

using automation::Check;
using automation::ComPtr;
using automation::ModulePath;

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

}  // namespace com
