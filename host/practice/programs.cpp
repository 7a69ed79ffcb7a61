#include "practice/programs.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <optional>

#include "database/file_path.h"
#include "forms/text.h"
#include "practice/recall_refresh.h"
#include "practice/settings.h"

namespace host {
namespace {

namespace fs = std::filesystem;

std::string Utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// Takes the first word from the line, without its quotes.
std::string TakeWord(std::string_view& line) {
  line = forms::Trim(line);
  std::string word;
  bool quoted = false;
  while (!line.empty() && (quoted || line.front() != ' ')) {
    if (line.front() == '"') {
      quoted = !quoted;
    } else {
      word += line.front();
    }
    line.remove_prefix(1);
  }
  line = forms::Trim(line);
  return word;
}

// "FXRECALL.EXE" of a path of either system.
std::string_view NameOf(std::string_view program) {
  return program.substr(program.find_last_of("/\\") + 1);
}

// The number behind "/ID="; no recall has one that is not positive.
std::optional<std::int32_t> RecallOf(std::string_view arguments) {
  constexpr std::string_view kId = "/ID=";
  while (!arguments.empty()) {
    const std::string word = TakeWord(arguments);
    if (forms::EqualsIgnoringCase(std::string_view(word).substr(0, kId.size()), kId)) {
      std::int32_t number = 0;
      const char* const end = word.data() + word.size();
      const auto [stop, error] = std::from_chars(word.data() + kId.size(), end, number);
      return error == std::errc() && stop == end && number > 0 ? std::optional(number) : std::nullopt;
    }
  }
  return std::nullopt;
}

// The letter behind the options; its blanks need no quotes around them.
std::string LetterOf(std::string_view arguments) {
  constexpr std::string_view kOption = "/NOSPLASH=";
  if (forms::EqualsIgnoringCase(arguments.substr(0, kOption.size()), kOption)) {
    TakeWord(arguments);
  }
  if (arguments.size() > 1 && arguments.front() == '"' && arguments.back() == '"') {
    arguments = arguments.substr(1, arguments.size() - 2);
  }
  return std::string(arguments);
}

// The file itself, behind all links; nothing when it is none below the folder.
std::optional<fs::path> FileBelow(const std::string& folder, const std::string& name) {
  std::error_code error;
  const fs::path root = fs::canonical(FilePath(folder), error);
  if (folder.empty() || error) {
    return std::nullopt;
  }
  const fs::path file = fs::canonical(FilePath(name), error);
  if (name.empty() || error || !fs::is_regular_file(file, error) ||
      std::mismatch(root.begin(), root.end(), file.begin(), file.end()).first != root.end()) {
    return std::nullopt;
  }
  return file;
}

}  // namespace

std::vector<std::string> SplitCommandLine(std::string_view line) {
  std::vector<std::string> words;
  for (line = forms::Trim(line); !line.empty();) {
    words.push_back(TakeWord(line));
  }
  return words;
}

bool Programs::Start(OfficeDatabase& office, const std::string& command_line) const {
  std::string_view arguments = command_line;
  const std::string program = TakeWord(arguments);
  if (forms::EqualsIgnoringCase(NameOf(program), "FXRECALL.EXE")) {
    return Refresh(office, arguments);
  }
  if (forms::EqualsIgnoringCase(NameOf(program), "TAVOWP.EXE")) {
    return EditLetter(office, arguments);
  }
  return StartAnother(SplitCommandLine(command_line));
}

bool Programs::Refresh(OfficeDatabase& office, std::string_view arguments) {
  const auto recall = RecallOf(arguments);
  try {
    return recall && (RefreshRecall(office, *recall), true);
  } catch (const session::DatabaseError&) {
    return false;
  }
}

bool Programs::EditLetter(OfficeDatabase& office, std::string_view arguments) const {
  const auto letter = FileBelow(data_folder_, LetterOf(arguments));
  if (!letter) {
    return false;
  }
  std::vector<std::string> words = SplitCommandLine(ReadOfficeSetting(office, kDeskSection, kWordProcessor));
  if (words.empty()) {
    return starter_.open(Utf8(*letter));
  }
  words.push_back(Utf8(*letter));
  return starter_.run(words);
}

bool Programs::StartAnother(std::vector<std::string> words) const {
  if (words.empty()) {
    return false;
  }
  const bool is_bare = NameOf(words.front()) == words.front();
  const fs::path in_folder = FilePath(program_folder_) / FilePath(words.front());
  std::error_code error;
  if (is_bare && !program_folder_.empty() && fs::is_regular_file(in_folder, error)) {
    words.front() = Utf8(in_folder);
  }
  return starter_.run(words);
}

}  // namespace host
