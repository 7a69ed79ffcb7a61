#include "reminders/outbox.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <system_error>

#include "database/file_path.h"
#include "forms/text.h"
#include "practice/machine.h"
#include "reminders/new_id.h"

namespace host {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEmail = ".eml";
constexpr std::string_view kText = ".txt";
constexpr std::string_view kPart = ".part";
constexpr std::string_view kReceiver = "To: ";

std::string Utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// "20261121-140500"
std::string StampOf(forms::DateTime when) {
  std::string stamp = forms::FormatIso(when);
  std::erase_if(stamp, [](char c) { return c == '-' || c == ':'; });
  std::ranges::replace(stamp, ' ', '-');
  return stamp;
}

// What `StampOf` wrote, as a person reads it; another name as it is.
std::string ToldStamp(const std::string& name) {
  constexpr std::size_t kLength = 15;
  if (name.size() < kLength) {
    return name;
  }
  return name.substr(4, 2) + '-' + name.substr(6, 2) + '-' + name.substr(0, 4) + ' ' + name.substr(9, 2) + ':' +
         name.substr(11, 2);
}

// "a@b.example" of "To: <a@b.example>"
std::string ReceiverOf(std::string_view line) {
  if (!line.starts_with(kReceiver)) {
    return {};
  }
  std::string receiver(forms::Trim(line.substr(kReceiver.size())));
  std::erase_if(receiver, [](char c) { return c == '<' || c == '>'; });
  return receiver;
}

std::string Counter(int number) {
  constexpr std::size_t kDigits = 3;
  std::string digits = std::to_string(number);
  return std::string(kDigits - std::min(kDigits, digits.size()), '0') + digits;
}

// Gives a file its name unless another has it: false then. Throws fs::filesystem_error.
bool TakeName(const fs::path& file, const fs::path& name) {
  std::error_code error;
  fs::create_hard_link(file, name, error);
  if (!error) {
    fs::remove(file);
    return true;
  }
  if (fs::exists(name)) {
    return false;
  }
  fs::rename(file, name);  // where there are no links
  return true;
}

}  // namespace

Outbox::Outbox(std::string_view data_folder, Access access)
    : folder_((FilePath(data_folder) / "Outbox").make_preferred()), access_(access) {}

std::string Outbox::Told() const {
  return Utf8(folder_);
}

bool Outbox::Put(forms::DateTime when, std::string_view ending, std::string_view text) const {
  constexpr int kMost = 9999;  // within one second
  const fs::path part = folder_ / (NewId() + std::string(kPart));
  std::error_code ignored;
  try {
    MakePrivateFolder(folder_, access_);
    SweepParts();
    MakePrivate(Utf8(part), access_);
    std::ofstream file(part, std::ios::binary);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    const bool whole = file && SyncFile(Utf8(part));
    for (int number = 1; whole && number <= kMost; ++number) {
      if (TakeName(part, folder_ / (StampOf(when) + '-' + Counter(number) + std::string(ending)))) {
        return true;
      }
    }
  } catch (const fs::filesystem_error&) {  // answered below
  }
  fs::remove(part, ignored);
  return false;
}

// What programs left that were stopped while they wrote.
void Outbox::SweepParts() const {
  constexpr std::chrono::hours kAge{24};  // nobody writes for so long
  std::error_code error;
  for (fs::directory_iterator at(folder_, error), end; !error && at != end; at.increment(error)) {
    std::error_code not_ours;
    if (at->path().extension() == kPart &&
        fs::last_write_time(at->path(), not_ours) < fs::file_time_type::clock::now() - kAge) {
      fs::remove(at->path(), not_ours);
    }
  }
}

bool Outbox::IsReadable() const {
  std::error_code error;
  const fs::directory_iterator first(folder_, error);
  return !error || error == std::errc::no_such_file_or_directory;
}

std::vector<Outbox::Entry> Outbox::List(std::size_t most) const {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator at(folder_, error), end; !error && at != end; at.increment(error)) {
    if (const fs::path ending = at->path().extension(); ending == kEmail || ending == kText) {
      names.push_back(Utf8(at->path().filename()));
    }
  }
  std::ranges::sort(names, std::greater<>());
  names.resize(std::min(names.size(), most));
  std::vector<Entry> entries;
  entries.reserve(names.size());
  for (const std::string& name : names) {
    std::ifstream file(folder_ / FilePath(name), std::ios::binary);
    std::string first;
    std::getline(file, first);
    entries.push_back({name, ToldStamp(name), ReceiverOf(first), name.ends_with(kEmail)});
  }
  return entries;
}

std::string Outbox::Read(const std::string& file, std::size_t most) const {
  std::ifstream in(folder_ / FilePath(file), std::ios::binary);
  std::string text(most, '\0');
  in.read(text.data(), static_cast<std::streamsize>(most));
  text.resize(static_cast<std::size_t>(in.gcount()));
  return text;
}

bool Outbox::Remove(const std::string& file) const {
  std::error_code error;
  return fs::remove(folder_ / FilePath(file), error);
}

}  // namespace host
