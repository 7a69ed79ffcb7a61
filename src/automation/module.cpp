#include "automation/module.h"

#include <atomic>

namespace automation {
namespace {

// Objects and locks.
std::atomic<long> uses = 0;

}  // namespace

LivingObject::LivingObject() {
  ++uses;
}

LivingObject::~LivingObject() {
  --uses;
}

void LockModule(bool lock) {
  uses += lock ? 1 : -1;
}

bool ModuleInUse() {
  return uses != 0;
}

HINSTANCE Module() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&Module), &module);
  return module;
}

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD size = GetModuleFileNameW(Module(), path.data(), static_cast<DWORD>(path.size()));
    if (size < path.size()) {
      path.resize(size);
      return path;
    }
    path.resize(2 * path.size());
  }
}

std::wstring ModuleFolder() {
  const std::wstring path = ModulePath();
  return path.substr(0, path.rfind(L'\\'));
}

}  // namespace automation
