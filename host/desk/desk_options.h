#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <variant>

namespace host {

struct DeskOptions {
  std::string database;    // URL; empty for the demo practice
  std::string files;       // folder of the practice's letters; empty for where they belong
  std::string tour;        // folder for the pictures; empty for no tour
  std::uint16_t port = 0;  // where a browser finds the windows; 0 for any that is free
  int scale = 0;           // of the windows, 1 or 2; 0 for the display's own
};

// The options, or what is wrong with the words.
std::variant<DeskOptions, std::string> ParseDeskOptions(std::span<const std::string> words);

}  // namespace host
