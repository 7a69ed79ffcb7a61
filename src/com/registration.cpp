#include "com/registration.h"

#include <olectl.h>
#include <twSimpleEditScreens.h>

#include <array>
#include <string>

#include "automation/com_error.h"
#include "automation/module.h"
#include "automation/registration.h"
#include "automation/wide_text.h"
#include "com/type_library.h"

namespace com {
namespace {

using automation::Check;

const std::array<automation::ClassEntry, 2>& Classes() {
  static const std::array<automation::ClassEntry, 2> classes = {
      {{__uuidof(::EditingScreen), L"twSimpleEditScreens.EditingScreen", L"Editing screens",
        &LIBID_twSimpleEditScreens},
       {__uuidof(::LookUpList), L"twSimpleEditScreens.LookUpList", L"Look-up lists", &LIBID_twSimpleEditScreens}}};
  return classes;
}

// While it lives, what is written to HKEY_CLASSES_ROOT goes to `classes`: automation registers type libraries there.
class ClassesRoot {
 public:
  explicit ClassesRoot(HKEY classes) {
    Check(HRESULT_FROM_WIN32(static_cast<DWORD>(RegOverridePredefKey(HKEY_CLASSES_ROOT, classes))));
  }
  ClassesRoot(const ClassesRoot&) = delete;
  ClassesRoot& operator=(const ClassesRoot&) = delete;
  ~ClassesRoot() { RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr); }
};

void RegisterTypeLibrary(HKEY classes) {
  const automation::ComPtr<ITypeLib> library = TypeLibrary();
  std::wstring path = automation::ModulePath();
  const ClassesRoot root(classes);
  Check(RegisterTypeLib(library.Get(), path.data(), nullptr));
}

// Automation fails for a type library that is not there.
bool HoldsTypeLibrary(HKEY classes) {
  HKEY key = nullptr;
  const std::wstring path = L"TypeLib\\" + automation::ToWideText(LIBID_twSimpleEditScreens);
  if (RegOpenKeyExW(classes, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(key);
  return true;
}

void UnregisterTypeLibrary(HKEY classes) {
  if (HoldsTypeLibrary(classes)) {
    const ClassesRoot root(classes);
    Check(UnRegisterTypeLib(LIBID_twSimpleEditScreens, 1, 0, LOCALE_NEUTRAL, SYS_WIN32));
  }
}

}  // namespace

HRESULT Register() noexcept {
  return automation::Register(Classes(), RegisterTypeLibrary);
}

HRESULT Unregister() noexcept {
  return automation::Unregister(Classes(), UnregisterTypeLibrary);
}

}  // namespace com
