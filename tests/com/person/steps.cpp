#include "person/steps.h"

#include <array>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "automation/wide_text.h"

namespace test_support {
namespace {

WORD KeyOf(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, WORD>, 8> kKeys = {{{"Enter", VK_RETURN},
                                                                       {"Esc", VK_ESCAPE},
                                                                       {"Tab", VK_TAB},
                                                                       {"Up", VK_UP},
                                                                       {"Down", VK_DOWN},
                                                                       {"F9", VK_F9},
                                                                       {"Delete", VK_DELETE},
                                                                       {"Insert", VK_INSERT}}};
  for (const auto& [known, key] : kKeys) {
    if (known == name) {
      return key;
    }
  }
  throw std::runtime_error("no key is called " + std::string(name));
}

void DoStep(Person& person, const std::string& line) {
  const std::size_t space = line.find(' ');
  const std::string verb = line.substr(0, space);
  const std::string rest = space == std::string::npos ? std::string() : line.substr(space + 1);
  const std::wstring wide = automation::ToWide(rest);
  if (verb == "await") {
    person.Await(wide);
  } else if (verb == "type") {
    person.Type(wide);
  } else if (verb == "press") {
    std::istringstream keys(rest);
    for (std::string key; keys >> key;) {
      person.Press(KeyOf(key));
    }
  } else if (verb == "click") {
    person.Click(wide);
  } else if (verb == "alt") {
    person.PressAlt(wide.at(0));
  } else if (verb == "shows") {
    person.AwaitThat(rest.c_str(), [&] { return person.FocusedText() == wide; });
  } else if (verb == "gone") {
    person.AwaitThat(("the end of " + rest).c_str(), [&] { return person.Find(wide) == nullptr; });
  } else {
    throw std::runtime_error("no step is called " + verb);
  }
}

}  // namespace

void Do(Person& person, std::string_view steps) {
  std::istringstream lines{std::string(steps)};
  for (std::string line; std::getline(lines, line);) {
    line.erase(0, line.find_first_not_of(" \t"));
    line.erase(line.find_last_not_of('\r') + 1);
    if (line.empty()) {
      continue;
    }
    try {
      DoStep(person, line);
    } catch (const std::exception& error) {
      throw std::runtime_error("\"" + line + "\": " + error.what());
    }
  }
}

}  // namespace test_support
