#pragma once

#include <string_view>

#include "forms/form.h"

namespace entry {

// An editing screen that is open, in the one record of the component, for as long as this lives.
class OpenScreen {
 public:
  explicit OpenScreen(const forms::Form& screen);
  OpenScreen(const OpenScreen&) = delete;
  OpenScreen& operator=(const OpenScreen&) = delete;
  ~OpenScreen();

  // The open screen of that class name; nullptr when there is none.
  static const forms::Form* Find(std::string_view name);

 private:
  const forms::Form& screen_;
};

}  // namespace entry
