#pragma once

#include <windows.h>

#include <functional>
#include <span>

// The registry entries of an in-process server.
namespace automation {

struct ClassEntry {
  const CLSID& id;
  const wchar_t* prog_id;
  const wchar_t* title;
  const GUID* type_library = nullptr;
};

// Writes the classes, apartment-threaded, in this module's file: for the machine, or for the person who is logged in
// where the machine's hive cannot be written. `also` is given the hive's key of classes.
HRESULT Register(std::span<const ClassEntry> classes, const std::function<void(HKEY)>& also) noexcept;
// Takes the classes away wherever they are registered; `also` is given each hive's key of classes.
HRESULT Unregister(std::span<const ClassEntry> classes, const std::function<void(HKEY)>& also) noexcept;

}  // namespace automation
