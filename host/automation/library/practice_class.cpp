// What practice_host.dll serves.
#include <array>

#include "automation/class_factory.h"
#include "automation/practice_object.h"
#include "automation/server.h"

namespace automation {

const Server& ThisServer() {
  static const std::array<ServedClass, 1> classes = {
      {{{0x3C02FF2E, 0xFE5F, 0x4265, {0xB5, 0x60, 0x82, 0xD6, 0xBF, 0xC7, 0x74, 0xB8}},
        L"PracticeDesk.Practice",
        L"Practice host for scripts",
        ClassFactory<host::PracticeObject>::Give}}};
  static const Server server{classes};
  return server;
}

}  // namespace automation
