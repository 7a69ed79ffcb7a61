#include "recall/letter_preview.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

#include "recall/rtf_text.h"

namespace recall {
namespace {

namespace fs = std::filesystem;

// As much of it as is looked at; nothing when it cannot be read.
std::optional<std::string> TextOf(const fs::path& file, std::uintmax_t size) {
  std::ifstream stream(file, std::ios::binary);
  std::string text(static_cast<std::size_t>(std::min<std::uintmax_t>(size, kMostLetterBytes)), '\0');
  if (!stream || !stream.read(text.data(), static_cast<std::streamsize>(text.size()))) {
    return std::nullopt;
  }
  return text;
}

}  // namespace

const std::string& LetterPreview::Html(const std::string& name) {
  const fs::path file = letters_.FileOf(name);
  std::error_code error;
  if (file.empty() || !fs::is_regular_file(file, error)) {
    return Told("File Not Found.", name);
  }
  const auto size = fs::file_size(file, error);
  const auto written = error ? fs::file_time_type() : fs::last_write_time(file, error);
  if (error) {
    return Told("The letter cannot be read.", name);
  }
  if (read_.name != name || read_.written != written || read_.size != size) {
    const auto text = TextOf(file, size);
    if (!text) {
      return Told("The letter cannot be read.", name);
    }
    read_ = {.name = name, .written = written, .size = size, .html = forms::WriteHtml(ReadRtf(*text))};
  }
  return read_.html;
}

const std::string& LetterPreview::Told(const std::string& reason, const std::string& name) {
  read_ = {};
  read_.html = forms::WriteHtml(forms::FromPlainText(reason + " (" + name + ")"));
  return read_.html;
}

}  // namespace recall
