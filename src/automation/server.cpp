#include "automation/server.h"

#include <oleauto.h>

#include <string>

#include "automation/com_error.h"
#include "automation/module.h"
#include "automation/type_library.h"
#include "automation/wide_text.h"

namespace automation {
namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes";

// An open key of the registry.
class Key {
 public:
  Key() = default;
  Key(const Key&) = delete;
  Key& operator=(const Key&) = delete;
  ~Key() {
    if (key_ != nullptr) {
      RegCloseKey(key_);
    }
  }

  LSTATUS Open(HKEY parent, const std::wstring& path) {
    return RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE, nullptr,
                           &key_, nullptr);
  }
  HKEY Get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

void CheckKey(LSTATUS status) {
  Check(status == ERROR_SUCCESS ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
}

void SetText(HKEY classes, const std::wstring& path, const wchar_t* name, const std::wstring& text) {
  Key key;
  CheckKey(key.Open(classes, path));
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  CheckKey(RegSetValueExW(key.Get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>(bytes)));
}

void WriteClass(HKEY classes, const ServedClass& entry, const GUID* type_library) {
  const std::wstring id = ToWideText(entry.id);
  const std::wstring class_key = L"CLSID\\" + id;
  SetText(classes, class_key, nullptr, entry.title);
  SetText(classes, class_key + L"\\InprocServer32", nullptr, ModulePath());
  SetText(classes, class_key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  SetText(classes, class_key + L"\\ProgID", nullptr, entry.prog_id);
  if (type_library != nullptr) {
    SetText(classes, class_key + L"\\TypeLib", nullptr, ToWideText(*type_library));
  }
  SetText(classes, class_key + L"\\Version", nullptr, L"1.0");
  SetText(classes, class_key + L"\\Programmable", nullptr, L"");
  SetText(classes, entry.prog_id, nullptr, entry.title);
  SetText(classes, std::wstring(entry.prog_id) + L"\\CLSID", nullptr, id);
}

void DeleteClass(HKEY classes, const ServedClass& entry) {
  RegDeleteTreeW(classes, (L"CLSID\\" + ToWideText(entry.id)).c_str());
  RegDeleteTreeW(classes, entry.prog_id);
}

// While it lives, what is written to HKEY_CLASSES_ROOT goes to `classes`: automation registers type libraries there.
class ClassesRoot {
 public:
  explicit ClassesRoot(HKEY classes) { CheckKey(RegOverridePredefKey(HKEY_CLASSES_ROOT, classes)); }
  ClassesRoot(const ClassesRoot&) = delete;
  ClassesRoot& operator=(const ClassesRoot&) = delete;
  ~ClassesRoot() { RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr); }
};

// What names a type library in the registry.
TLIBATTR AttributesOf(ITypeLib& library) {
  TLIBATTR* attributes = nullptr;
  Check(library.GetLibAttr(&attributes));
  const TLIBATTR copy = *attributes;
  library.ReleaseTLibAttr(attributes);
  return copy;
}

void RegisterIn(HKEY classes, const Server& server) {
  GUID type_library{};
  if (server.has_type_library) {
    const ComPtr<ITypeLib> library = TypeLibrary();
    type_library = AttributesOf(*library.Get()).guid;
    std::wstring path = ModulePath();
    const ClassesRoot root(classes);
    Check(RegisterTypeLib(library.Get(), path.data(), nullptr));
  }
  for (const ServedClass& served : server.classes) {
    WriteClass(classes, served, server.has_type_library ? &type_library : nullptr);
  }
}

// Automation fails for a type library that is not there.
bool Holds(HKEY classes, const GUID& type_library) {
  HKEY key = nullptr;
  const std::wstring path = L"TypeLib\\" + ToWideText(type_library);
  if (RegOpenKeyExW(classes, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(key);
  return true;
}

void UnregisterIn(HKEY classes, const Server& server) {
  if (server.has_type_library) {
    const TLIBATTR library = AttributesOf(*TypeLibrary().Get());
    if (Holds(classes, library.guid)) {
      const ClassesRoot root(classes);
      Check(UnRegisterTypeLib(library.guid, library.wMajorVerNum, library.wMinorVerNum, library.lcid, library.syskind));
    }
  }
  for (const ServedClass& served : server.classes) {
    DeleteClass(classes, served);
  }
}

}  // namespace

HRESULT Register(const Server& server) noexcept {
  try {
    Key classes;
    if (classes.Open(HKEY_LOCAL_MACHINE, kClasses) != ERROR_SUCCESS) {
      CheckKey(classes.Open(HKEY_CURRENT_USER, kClasses));
    }
    RegisterIn(classes.Get(), server);
    return S_OK;
  } catch (...) {
    return ResultOfException();
  }
}

HRESULT Unregister(const Server& server) noexcept {
  try {
    for (HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
      if (Key classes; classes.Open(hive, kClasses) == ERROR_SUCCESS) {
        UnregisterIn(classes.Get(), server);
      }
    }
    return S_OK;
  } catch (...) {
    return ResultOfException();
  }
}

}  // namespace automation
