#include "desk/desk_options.h"

#include <charconv>

namespace host {

std::variant<DeskOptions, std::string> ParseDeskOptions(std::span<const std::string> words) {
  DeskOptions options;
  for (std::size_t i = 0; i < words.size(); i += 2) {
    const std::string& word = words[i];
    if (word != "--database" && word != "--files" && word != "--tour" && word != "--scale" && word != "--port") {
      return "Unknown option " + word + ".";
    }
    if (i + 1 == words.size() || words[i + 1].empty()) {
      return word + " needs a value.";
    }
    const std::string& value = words[i + 1];
    if (word == "--database") {
      options.database = value;
    } else if (word == "--files") {
      options.files = value;
    } else if (word == "--tour") {
      options.tour = value;
    } else if (word == "--port") {
      const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), options.port);
      if (error != std::errc() || end != value.data() + value.size() || options.port == 0) {
        return "--port is a number from 1 to 65535, not " + value + ".";
      }
    } else if (value == "1" || value == "2") {
      options.scale = value.front() - '0';
    } else {
      return "--scale is 1 or 2, not " + value + ".";
    }
  }
  return options;
}

}  // namespace host
