#include "automation/registration.h"

#include <string>

#include "automation/com_error.h"
#include "automation/module.h"
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
  CheckKey(RegSetValueExW(key.Get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))));
}

void WriteClass(HKEY classes, const ClassEntry& entry) {
  const std::wstring id = ToWideText(entry.id);
  const std::wstring class_key = L"CLSID\\" + id;
  SetText(classes, class_key, nullptr, entry.title);
  SetText(classes, class_key + L"\\InprocServer32", nullptr, ModulePath());
  SetText(classes, class_key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  SetText(classes, class_key + L"\\ProgID", nullptr, entry.prog_id);
  if (entry.type_library != nullptr) {
    SetText(classes, class_key + L"\\TypeLib", nullptr, ToWideText(*entry.type_library));
  }
  SetText(classes, class_key + L"\\Version", nullptr, L"1.0");
  SetText(classes, class_key + L"\\Programmable", nullptr, L"");
  SetText(classes, entry.prog_id, nullptr, entry.title);
  SetText(classes, std::wstring(entry.prog_id) + L"\\CLSID", nullptr, id);
}

void DeleteClass(HKEY classes, const ClassEntry& entry) {
  RegDeleteTreeW(classes, (L"CLSID\\" + ToWideText(entry.id)).c_str());
  RegDeleteTreeW(classes, entry.prog_id);
}

}  // namespace

HRESULT Register(std::span<const ClassEntry> classes, const std::function<void(HKEY)>& also) noexcept {
  try {
    Key hive;
    if (hive.Open(HKEY_LOCAL_MACHINE, kClasses) != ERROR_SUCCESS) {
      CheckKey(hive.Open(HKEY_CURRENT_USER, kClasses));
    }
    also(hive.Get());
    for (const ClassEntry& entry : classes) {
      WriteClass(hive.Get(), entry);
    }
    return S_OK;
  } catch (...) {
    return ResultOfException();
  }
}

HRESULT Unregister(std::span<const ClassEntry> classes, const std::function<void(HKEY)>& also) noexcept {
  try {
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
      if (Key hive; hive.Open(root, kClasses) == ERROR_SUCCESS) {
        also(hive.Get());
        for (const ClassEntry& entry : classes) {
          DeleteClass(hive.Get(), entry);
        }
      }
    }
    return S_OK;
  } catch (...) {
    return ResultOfException();
  }
}

}  // namespace automation
