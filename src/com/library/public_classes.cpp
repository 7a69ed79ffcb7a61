// The public classes, as TWSESC22.dll serves them.
#include <array>

#include "automation/class_factory.h"
#include "automation/server.h"
#include "com/editing_screen_object.h"
#include "com/look_up_list_object.h"

namespace automation {

const Server& ThisServer() {
  static const std::array<ServedClass, 2> classes = {
      {{__uuidof(::EditingScreen), L"twSimpleEditScreens.EditingScreen", L"Editing screens",
        ClassFactory<com::EditingScreenObject>::Give},
       {__uuidof(::LookUpList), L"twSimpleEditScreens.LookUpList", L"Look-up lists",
        ClassFactory<com::LookUpListObject>::Give}}};
  static const Server server{classes, true};
  return server;
}

}  // namespace automation
