#pragma once

#include <windows.h>

#include <span>

namespace automation {

struct ServedClass {
  CLSID id;
  const wchar_t* prog_id;
  const wchar_t* title;
  HRESULT (*give_factory)(REFIID interface_id, void** factory);
};

// An in-process server. Its type library, where it has one, is in its file.
struct Server {
  std::span<const ServedClass> classes;
  bool has_type_library = false;
};

// Defined by each library that exports a server.
const Server& ThisServer();

// Writes the classes, apartment-threaded, and the type library to the registry: for the machine, or for the person who
// is logged in where the machine's hive cannot be written.
HRESULT Register(const Server& server) noexcept;
// Takes them away, for the machine and for the person; fails where something of them stays.
HRESULT Unregister(const Server& server) noexcept;

}  // namespace automation
