#include "recall/letter_file.h"

#include <algorithm>
#include <vector>

#include "editing/data_files.h"
#include "forms/text.h"

namespace recall {
namespace {

namespace fs = std::filesystem;

constexpr char kSeparator = '\\';

std::vector<std::string> PartsOf(std::string_view name) {
  std::vector<std::string> parts(1);
  for (const char c : name) {
    if (c == kSeparator || c == '/') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

bool LiesBelow(const fs::path& file, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first == folder.end();
}

}  // namespace

LetterFolder::LetterFolder(std::string_view data_folder) {
  if (!data_folder.empty()) {
    folder_ = (editing::PathOf(data_folder) / "WP").make_preferred();
  }
}

std::string LetterFolder::Path() const {
  return editing::TextOf(folder_);
}

LetterFolder::Link LetterFolder::Judge(std::string_view file) const {
  const fs::path folder = folder_.lexically_normal();
  const fs::path picked = editing::PathOf(file).lexically_normal();
  const auto same = [](const fs::path& one, const fs::path& other) {
    return forms::EqualsIgnoringCase(editing::TextOf(one), editing::TextOf(other));
  };
  const auto [behind_folder, below] = std::mismatch(folder.begin(), folder.end(), picked.begin(), picked.end(), same);
  if (folder.empty() || behind_folder != folder.end() || below == picked.end() || below->empty()) {
    return {.verdict = Verdict::Outside};
  }
  std::string name;
  bool plain = true;
  for (auto part = below; part != picked.end(); ++part) {
    const std::string text = editing::TextOf(*part);
    plain = plain && editing::IsPlainName(text);
    name += (name.empty() ? "" : std::string(1, kSeparator)) + text;
  }
  if (forms::CharacterCount(name) > kLongestName) {
    return {.verdict = Verdict::TooLong, .name = name};
  }
  std::error_code error;
  const bool may = plain && forms::ToLower(name).ends_with(".rtf") && fs::is_regular_file(FileOf(name), error);
  return {.verdict = may ? Verdict::May : Verdict::Not, .name = name};
}

fs::path LetterFolder::FileOf(std::string_view name) const {
  const std::vector<std::string> parts = PartsOf(name);
  if (folder_.empty() || !std::ranges::all_of(parts, editing::IsPlainName)) {
    return {};
  }
  try {
    fs::path file = editing::EntryOf(folder_.parent_path(), editing::TextOf(folder_.filename()));
    const fs::path folder = fs::weakly_canonical(file);
    for (const std::string& part : parts) {
      file = editing::EntryOf(file, part);
    }
    return LiesBelow(fs::weakly_canonical(file), folder) ? file : fs::path();
  } catch (const fs::filesystem_error&) {
    return {};
  }
}

}  // namespace recall
