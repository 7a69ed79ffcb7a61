#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>

namespace host {

struct DeskOptions {
  std::string database;  // URL; empty for the demo practice
  std::string tour;      // folder for the pictures; empty for no tour
  int scale = 0;         // of the windows, 1 or 2; 0 for the display's own
};

inline constexpr std::string_view kDeskUsage =
    "practice_desk [--database URL] [--tour DIR] [--scale 1|2]\n"
    "  --database URL  the practice, as sqlite:PATH; without it a demo practice in your data folder\n"
    "  --tour DIR      opens every screen on demo data without showing it and writes a picture of each to DIR\n"
    "  --scale 1|2     size of the windows; a tour without it makes pictures of both\n"
    "Without a display the windows are served to a browser on this machine.\n";

// The options, or what is wrong with the words.
std::variant<DeskOptions, std::string> ParseDeskOptions(std::span<const std::string> words);

}  // namespace host
