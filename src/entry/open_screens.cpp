#include "entry/open_screens.h"

#include <algorithm>
#include <vector>

namespace entry {
namespace {

// One for the component, whichever session and instance a screen was opened through.
std::vector<const forms::Form*>& All() {
  static std::vector<const forms::Form*> screens;
  return screens;
}

}  // namespace

OpenScreen::OpenScreen(const forms::Form& screen) : screen_(screen) {
  All().push_back(&screen_);
}

OpenScreen::~OpenScreen() {
  std::erase(All(), &screen_);
}

const forms::Form* OpenScreen::Find(std::string_view name) {
  const auto found = std::ranges::find_if(All(), [&](const forms::Form* screen) { return screen->Name() == name; });
  return found == All().end() ? nullptr : *found;
}

}  // namespace entry
