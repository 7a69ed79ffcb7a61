#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace host {

class frmHome;

// A command of the desk, for its menus and the buttons of the patient's card.
struct DeskCommand {
  std::string_view menu;                 // "Patient"
  std::string_view caption;              // with its mnemonic
  std::string_view key = {};             // "Ctrl+N"
  std::string_view screen = {};          // the form that it opens, which must be part of this version; empty for none
  std::string_view right = {};           // that it takes; empty for none
  bool of_patient = false;               // it is about the chosen patient
  bool on_card = false;                  // it has a button there
  bool apart = false;                    // a line stands above it in the menu
  void (*run)(frmHome& home) = nullptr;  // null for what is no screen of the suite yet

  // "Find Patient"
  std::string Name() const;
  // Not still to come.
  bool IsBuilt() const;
};

// In the order of the menus and of what is in them.
std::span<const DeskCommand> DeskCommands();

}  // namespace host
