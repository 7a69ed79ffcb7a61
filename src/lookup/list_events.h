#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace lookup {

// What a list tells the host that opened it; a slot left empty is not called.
struct ListEvents {
  // The list has closed for a navigation command, a toolbar key such as "Patient"; with the record's ID as text.
  std::function<void(const std::string& where_to, const std::string& designation)> SwapModuleCalled;
  // A toolbar button was clicked, on the current record; 0 for none.
  std::function<void(const std::string& button_key, std::int32_t current_id)> ButtonClicked;
  std::function<void(bool& cancel)> BeforePrint;
  std::function<void()> AfterPrint;
  // After `ButtonClicked`: whether the host has carried the command out, so that the list leaves it alone.
  std::function<void(bool& handled)> CheckEvent;
};

}  // namespace lookup
