#include "editing/file_to_write.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "editing/data_files.h"
#include "editing/rules.h"

namespace editing {
namespace {

std::error_code LastError() {
  return {errno, std::generic_category()};
}

std::filesystem::path FreeNameBeside(const std::filesystem::path& path) {
  for (int number = 1;; ++number) {
    std::filesystem::path beside = path;
    beside += ".part" + std::to_string(number);
    std::error_code ignored;
    if (!std::filesystem::exists(beside, ignored)) {
      return beside;
    }
  }
}

// What no system takes in a name is a blank.
std::string AsName(std::string text) {
  std::ranges::replace_if(
      text,
      [](char c) {
        return static_cast<unsigned char>(c) < ' ' || std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
      },
      ' ');
  return text;
}

}  // namespace

std::optional<std::string> PickFileToWrite(forms::User& user, forms::FileChoice choice, std::string_view ending) {
  choice.for_writing = true;
  choice.name = AsName(choice.name) + std::string(ending);
  while (const auto picked = user.PickFile(choice)) {
    std::filesystem::path path = PathOf(*picked);
    if (!path.has_extension()) {
      path += ending;
    }
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored) ||
        user.Ask({.text = "The file [ " + TextOf(path) + " ] is already there. Do you want to replace it?",
                  .title = choice.title,
                  .buttons = forms::kYesNo,
                  .icon = forms::Icon::Question,
                  .default_answer = forms::Answer::No}) == forms::Answer::Yes) {
      return TextOf(path);
    }
  }
  return std::nullopt;
}

FileToWrite::FileToWrite(std::string_view path) : path_(PathOf(path)), beside_(FreeNameBeside(path_)) {
  errno = 0;
  file_.open(beside_, std::ios::binary);
  if (!file_) {
    Fail(LastError());
  }
}

FileToWrite::~FileToWrite() {
  if (file_.is_open()) {
    file_.close();
    std::error_code ignored;
    std::filesystem::remove(beside_, ignored);
  }
}

void FileToWrite::Write(std::string_view bytes) {
  errno = 0;
  if (!file_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
    Fail(LastError());
  }
}

void FileToWrite::Finish() {
  errno = 0;
  if (!file_.flush()) {
    Fail(LastError());
  }
  file_.close();
  std::error_code reason;
  std::filesystem::rename(beside_, path_, reason);
  if (reason) {
    std::error_code ignored;
    std::filesystem::remove(beside_, ignored);
    Fail(reason);
  }
}

void FileToWrite::Fail(const std::error_code& reason) const {
  throw Refusal("The file [ " + TextOf(path_) + " ] could not be written: " + reason.message() +
                ". It is as it was before.");
}

}  // namespace editing
