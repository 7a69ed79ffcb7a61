#include "com/registration.h"

#include <olectl.h>
#include <twSimpleEditScreens.h>

#include <array>
#include <new>
#include <string>

#include "com/module.h"
#include "com/variant.h"

namespace com {
namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes";

struct PublicClassEntry {
  const CLSID& id;
  const wchar_t* prog_id;
  const wchar_t* title;
};

const std::array<PublicClassEntry, 2>& Classes() {
  static const std::array<PublicClassEntry, 2> classes = {
      {{__uuidof(::EditingScreen), L"twSimpleEditScreens.EditingScreen", L"Editing screens"},
       {__uuidof(::LookUpList), L"twSimpleEditScreens.LookUpList", L"Look-up lists"}}};
  return classes;
}

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
  CheckKey(RegSetValueExW(key.Get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
}

std::wstring ToText(const GUID& id) {
  std::array<wchar_t, 40> text{};
  StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
  return text.data();
}

void WriteClass(HKEY classes, const PublicClassEntry& entry) {
  const std::wstring id = ToText(entry.id);
  const std::wstring class_key = L"CLSID\\" + id;
  SetText(classes, class_key, nullptr, entry.title);
  SetText(classes, class_key + L"\\InprocServer32", nullptr, ModulePath());
  SetText(classes, class_key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  SetText(classes, class_key + L"\\ProgID", nullptr, entry.prog_id);
  SetText(classes, class_key + L"\\TypeLib", nullptr, ToText(LIBID_twSimpleEditScreens));
  SetText(classes, class_key + L"\\Version", nullptr, L"1.0");
  SetText(classes, class_key + L"\\Programmable", nullptr, L"");
  SetText(classes, entry.prog_id, nullptr, entry.title);
  SetText(classes, std::wstring(entry.prog_id) + L"\\CLSID", nullptr, id);
}

void DeleteClass(HKEY classes, const PublicClassEntry& entry) {
  RegDeleteTreeW(classes, (L"CLSID\\" + ToText(entry.id)).c_str());
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

void RegisterIn(HKEY classes) {
  const ComPtr<ITypeLib> library = TypeLibrary();
  std::wstring path = ModulePath();
  {
    const ClassesRoot root(classes);
    Check(RegisterTypeLib(library.Get(), path.data(), nullptr));
  }
  for (const PublicClassEntry& entry : Classes()) {
    WriteClass(classes, entry);
  }
}

// Automation fails for a type library that is not there.
bool HoldsTypeLibrary(HKEY classes) {
  HKEY key = nullptr;
  const std::wstring path = L"TypeLib\\" + ToText(LIBID_twSimpleEditScreens);
  if (RegOpenKeyExW(classes, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return false;
  }
  RegCloseKey(key);
  return true;
}

void UnregisterIn(HKEY classes) {
  if (HoldsTypeLibrary(classes)) {
    const ClassesRoot root(classes);
    Check(UnRegisterTypeLib(LIBID_twSimpleEditScreens, 1, 0, LOCALE_NEUTRAL, SYS_WIN32));
  }
  for (const PublicClassEntry& entry : Classes()) {
    DeleteClass(classes, entry);
  }
}

template <typename Operation>
HRESULT Try(Operation operation) noexcept {
  try {
    operation();
    return S_OK;
  } catch (const ComError& error) {
    return error.Result();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace

HRESULT Register() noexcept {
  return Try([] {
    Key classes;
    if (classes.Open(HKEY_LOCAL_MACHINE, kClasses) != ERROR_SUCCESS) {
      CheckKey(classes.Open(HKEY_CURRENT_USER, kClasses));
    }
    RegisterIn(classes.Get());
  });
}

HRESULT Unregister() noexcept {
  return Try([] {
    for (HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
      if (Key classes; classes.Open(hive, kClasses) == ERROR_SUCCESS) {
        UnregisterIn(classes.Get());
      }
    }
  });
}

}  // namespace com
