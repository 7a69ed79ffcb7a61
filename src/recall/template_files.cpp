#include "recall/template_files.h"

#include <algorithm>
#include <exception>
#include <tuple>
#include <utility>

#include "editing/data_files.h"
#include "editing/file_to_write.h"
#include "editing/rules.h"
#include "forms/text.h"
#include "recall/template_variables.h"

namespace recall {
namespace {

namespace fs = std::filesystem;

// What is larger is no template.
constexpr std::uintmax_t kMostBytes = 4'000'000;
constexpr std::string_view kEnding = ".TPL";

// The word of a method in the name of a template.
std::string_view WordOf(data::ContactMethod method) {
  switch (method) {
    case data::ContactMethod::TextMessage:
      return "SMS";
    case data::ContactMethod::Email:
      return "EMAIL";
    case data::ContactMethod::Letter:
      return "LETTER";
    case data::ContactMethod::PostCard:
      return "POSTCARD";
    case data::ContactMethod::Voice:
      return "VOICE";
    case data::ContactMethod::Phone:
      break;
  }
  return {};
}

// What cannot be read is not there.
template <typename Work>
auto Quietly(const Work& work) -> decltype(work()) {
  try {
    return work();
  } catch (const std::exception&) {
    return {};
  }
}

// The text of the folder's file, unless it lies elsewhere.
std::optional<std::string> TextIn(const fs::path& folder, std::string_view name) {
  if (folder.empty() || !editing::IsPlainName(name)) {
    return std::nullopt;
  }
  return Quietly([&]() -> std::optional<std::string> {
    const fs::path file = fs::weakly_canonical(editing::EntryOf(folder, name));
    if (file.parent_path() != fs::weakly_canonical(folder)) {
      return std::nullopt;
    }
    const auto bytes = editing::ContentsOf(file, kMostBytes);
    return bytes ? std::optional(DecodedTemplate(*bytes)) : std::nullopt;
  });
}

bool IsTemplateFolder(const fs::directory_entry& entry) {
  const std::string name = editing::TextOf(entry.path().filename());
  return name.starts_with('{') && name.ends_with('}') && entry.is_directory() && !entry.is_symlink();
}

}  // namespace

std::string TemplateName(data::ReminderKind kind, data::ContactMethod method, Language language) {
  const std::string_view code = TemplateCodeOf(kind);
  const std::string_view word = WordOf(method);
  if (code.empty() || word.empty()) {
    return {};
  }
  return std::string(code) + "_" + std::string(word) + (language == Language::Spanish ? "_SPANISH" : "");
}

struct TemplateFiles::Found {
  PredefinedTemplate what;
  fs::path folder;
};

TemplateFiles::TemplateFiles(const session::Machine& machine, data::ReminderKind kind) {
  const std::string data_folder = machine.DataFolder();
  const std::string_view own = TemplateFolderOf(kind);
  if (data_folder.empty() || own.empty()) {
    return;
  }
  folder_ = editing::PathOf(data_folder);
  for (const fs::path& part : fs::path(data::kTemplatesFolder) / own) {
    fs::path entry = folder_ / part;
    Quietly([&] {
      entry = editing::EntryOf(folder_, editing::TextOf(part));
      return true;
    });
    folder_ = std::move(entry);
  }
}

std::optional<std::string> TemplateFiles::Read(std::string_view name) const {
  return TextIn(folder_, std::string(name) + std::string(kEnding));
}

bool TemplateFiles::Has(std::string_view name) const {
  const std::string file = std::string(name) + std::string(kEnding);
  if (folder_.empty() || !editing::IsPlainName(file)) {
    return false;
  }
  try {
    return fs::exists(fs::symlink_status(editing::EntryOf(folder_, file)));
  } catch (const fs::filesystem_error& error) {
    return error.code() == std::errc::permission_denied;
  }
}

void TemplateFiles::Write(std::string_view name, std::string_view text) const {
  const std::string file = std::string(name) + std::string(kEnding);
  if (folder_.empty() || name.empty() || !editing::IsPlainName(file)) {
    throw editing::Refusal("The template " + editing::Rules::ToldBack(name) + " cannot be kept.");
  }
  const fs::path path = Quietly([&] {
    fs::create_directories(folder_);
    return editing::EntryOf(folder_, file);
  });
  editing::FileToWrite written(editing::TextOf(path.empty() ? folder_ / editing::PathOf(file) : path));
  written.Write(text);
  written.Finish();
}

std::vector<TemplateFiles::Found> TemplateFiles::FindPredefined() const {
  if (folder_.empty()) {
    return {};
  }
  std::vector<Found> all;
  Quietly([&] {
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_)) {
      const auto list = IsTemplateFolder(entry) ? TextIn(entry.path(), "Parameters.ini") : std::nullopt;
      for (PredefinedTemplate& listed : ReadTemplateList(list.value_or(""))) {
        if (editing::IsPlainName(listed.file)) {
          all.push_back({.what = std::move(listed), .folder = entry.path()});
        }
      }
    }
    return true;
  });
  std::ranges::sort(all, [](const Found& left, const Found& right) {
    const std::string one = forms::ToUpper(left.what.name);
    const std::string other = forms::ToUpper(right.what.name);
    return std::tie(one, left.folder, left.what.file) < std::tie(other, right.folder, right.what.file);
  });
  return all;
}

std::vector<PredefinedTemplate> TemplateFiles::Predefined() const {
  std::vector<PredefinedTemplate> all;
  for (Found& found : FindPredefined()) {
    if (all.empty() || !forms::EqualsIgnoringCase(all.back().name, found.what.name)) {
      all.push_back(std::move(found.what));
    }
  }
  return all;
}

std::optional<std::string> TemplateFiles::ReadPredefined(std::string_view name) const {
  for (const Found& found : FindPredefined()) {
    if (forms::EqualsIgnoringCase(found.what.name, name)) {
      return TextIn(found.folder, found.what.file);
    }
  }
  return std::nullopt;
}

std::string TemplateFiles::TextOf(std::string stored, data::ContactMethod method) const {
  if (const auto named = ReferencedTemplate(stored)) {
    stored = Read(*named).value_or(stored);
  }
  if (const auto marked = MarkedTemplate(stored); marked && method == data::ContactMethod::Email) {
    stored = ReadPredefined(*marked).value_or(stored);
  }
  return WithCurrentVariables(std::move(stored));
}

}  // namespace recall
