#pragma once

#include <string>
#include <string_view>

#include "person/person.h"

namespace test_support {

// Does what a text tells, a step a line:
//
//   await TITLE     waits for the window of that title
//   type TEXT       into the field with the focus
//   press KEY...    Enter, Esc, Tab, Up, Down, F9, Delete, Insert, one after the other
//   alt LETTER      with Alt held
//   click TEXT      the button of that text
//   shows TEXT      the field with the focus holds it
//   gone TITLE      waits for the end of that window
//
// Throws for what does not come about, and for a step that is none of these.
void Do(Person& person, std::string_view steps);

}  // namespace test_support
