#include "automation/server.h"

#include <oleauto.h>

#include <algorithm>
#include <string>
#include <vector>

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

  // Where it is missing it is made.
  LSTATUS Make(HKEY parent, const std::wstring& path) {
    return RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE, nullptr,
                           &key_, nullptr);
  }
  LSTATUS Open(HKEY parent, const std::wstring& path, REGSAM access) {
    return RegOpenKeyExW(parent, path.c_str(), 0, access, &key_);
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
  CheckKey(key.Make(classes, path));
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

bool Holds(HKEY classes, const std::wstring& path) {
  Key key;
  return key.Open(classes, path, KEY_READ) == ERROR_SUCCESS;
}

// What `Register` writes below the classes of a hive: each class by its number and by its name.
std::vector<std::wstring> ClassKeys(const Server& server) {
  std::vector<std::wstring> keys;
  for (const ServedClass& served : server.classes) {
    keys.push_back(L"CLSID\\" + ToWideText(served.id));
    keys.emplace_back(served.prog_id);
  }
  return keys;
}

// Takes away all that can be; throws ComError where something stays.
void UnregisterIn(HKEY classes, const Server& server) {
  LSTATUS status = ERROR_SUCCESS;
  for (const std::wstring& key : ClassKeys(server)) {
    if (const LSTATUS deleted = RegDeleteTreeW(classes, key.c_str());
        deleted != ERROR_SUCCESS && deleted != ERROR_FILE_NOT_FOUND) {
      status = deleted;
    }
  }
  if (server.has_type_library) {
    const TLIBATTR library = AttributesOf(*TypeLibrary().Get());
    // Automation fails for one that is not there.
    if (Holds(classes, L"TypeLib\\" + ToWideText(library.guid))) {
      const ClassesRoot root(classes);
      Check(UnRegisterTypeLib(library.guid, library.wMajorVerNum, library.wMinorVerNum, library.lcid, library.syskind));
    }
  }
  CheckKey(status);
}

void UnregisterFrom(HKEY hive, const Server& server) {
  Key classes;
  const LSTATUS opened = classes.Open(hive, kClasses, KEY_READ | KEY_WRITE);
  if (opened == ERROR_SUCCESS) {
    UnregisterIn(classes.Get(), server);
    return;
  }
  Key closed;
  if (closed.Open(hive, kClasses, KEY_READ) == ERROR_SUCCESS &&
      std::ranges::any_of(ClassKeys(server), [&](const std::wstring& key) { return Holds(closed.Get(), key); })) {
    CheckKey(opened);
  }
}

}  // namespace

HRESULT Register(const Server& server) noexcept {
  try {
    Key classes;
    if (classes.Make(HKEY_LOCAL_MACHINE, kClasses) != ERROR_SUCCESS) {
      CheckKey(classes.Make(HKEY_CURRENT_USER, kClasses));
    }
    RegisterIn(classes.Get(), server);
    return S_OK;
  } catch (...) {
    return ResultOfException();
  }
}

HRESULT Unregister(const Server& server) noexcept {
  HRESULT result = S_OK;
  for (HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
    try {
      UnregisterFrom(hive, server);
    } catch (...) {
      result = ResultOfException();
    }
  }
  return result;
}

}  // namespace automation
