#include "console/stage.h"

#include <random>

#include "database/file_path.h"
#include "forms/text.h"
#include "people/name_entry.h"
#include "practice/machine.h"
#include "practice/settings.h"

namespace host {
namespace {

constexpr std::string_view kFirstUser = "USER";
constexpr std::string_view kAnotherUser = "ANOTHER";

std::filesystem::path NewFolder() {
  std::random_device chance;
  std::filesystem::path folder;
  do {
    folder = std::filesystem::temp_directory_path() /
             ("practice_console-" + std::to_string(ThisProcess().number) + "-" + std::to_string(chance()));
  } while (!std::filesystem::create_directory(folder));
  return folder;
}

std::string TruthText(bool value) {
  return value ? "True" : "False";
}

// What a host does around the public classes: its name prompt.
entry::Dispatch HostClass(const session::ScreenContext& context) {
  entry::Dispatch host{.class_name = "Host", .methods = {}, .properties = {}};
  host.methods.push_back(
      {"EnterPatient", {{"Patient", true}, {"SaveAndBook", true}}, [&context](entry::Arguments& arguments) {
         const people::NameEntry entered = people::EnterPatient(context);
         arguments["Patient"] = std::to_string(entered.patient);
         arguments["SaveAndBook"] = TruthText(entered.save_and_book);
         return entered.outcome == people::EntryOutcome::None     ? "None"
                : entered.outcome == people::EntryOutcome::Edited ? "Edited"
                                                                  : "Added";
       }});
  return host;
}

}  // namespace

forms::DateTime FirstClock() {
  using namespace std::chrono_literals;
  return forms::AtMidnight(std::chrono::November / 21 / 2026) + 9h;
}

TemporaryFolder::TemporaryFolder() : path_(NewFolder()) {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

Stage::Stage(Practice practice, std::optional<forms::DateTime> clock, forms::User& user, Recordings& recordings,
             const SessionPath& to_screens)
    : practice_(std::move(practice)),
      clock_(clock),
      session_(
          std::make_shared<RecordingSession>(practice_, practice_.Office(), LoginRights(std::string(kFirstUser)),
                                             Surroundings{.clock = [this] { return clock_ ? *clock_ : LocalNow(); },
                                                          .data_folder = folder_.Path().string(),
                                                          .program_folder = (folder_.Path() / "PROGRAMS").string(),
                                                          .start_program = [](const std::string&) { return true; }},
                                             recordings)),
      screens_session_(to_screens ? to_screens(session_) : session_),
      editing_screen_(user),
      look_up_list_(user),
      screens_(entry::MakeScreens(*screens_session_, user)),
      context_{*screens_session_, user, *screens_} {
  classes_.push_back(entry::DispatchOf(editing_screen_));
  classes_.push_back(entry::DispatchOf(look_up_list_));
  classes_.push_back(HostClass(context_));
  editing_screen_.SetPV(screens_session_);
  RaiseEventsInto(recordings);
}

Stage::~Stage() {
  editing_screen_.SetPV(nullptr);
}

void Stage::RaiseEventsInto(Recordings& recordings) {
  const auto raise = [&recordings](std::string name, std::vector<std::string> values) {
    recordings.events.push_back({std::move(name), std::move(values)});
  };
  look_up_list_.Events.SwapModuleCalled = [raise](const std::string& where_to, const std::string& designation) {
    raise("SwapModuleCalled", {where_to, designation});
  };
  look_up_list_.Events.ButtonClicked = [raise](const std::string& key, std::int32_t current) {
    raise("ButtonClicked", {key, std::to_string(current)});
  };
  look_up_list_.Events.BeforePrint = [raise](bool& cancel) { raise("BeforePrint", {TruthText(cancel)}); };
  look_up_list_.Events.AfterPrint = [raise] { raise("AfterPrint", {}); };
  look_up_list_.Events.CheckEvent = [raise](bool& handled) { raise("CheckEvent", {TruthText(handled)}); };
}

std::filesystem::path Stage::File(std::string_view path) const {
  return folder_.Path() / FilePath(path);
}

void Stage::SetUser(LoginRights user) {
  session_->User() = std::move(user);
  for (const auto& [section, key, value] : settings_) {
    WriteUserOption(session_->Office(), session_->UserName(), section, key, value);
  }
}

void Stage::SetSetting(std::string section, std::string key, std::string value) {
  WriteOfficeSetting(session_->Office(), section, key, value);
  WriteUserOption(session_->Office(), session_->UserName(), section, key, value);
  settings_.emplace_back(std::move(section), std::move(key), std::move(value));
}

void Stage::HoldForAnother(std::string_view table, std::int32_t id) {
  if (!another_) {
    another_ = std::make_unique<RecordLocks>(session_->Office(), std::string(kAnotherUser));
  }
  another_->Hold(table, id);
}

entry::Dispatch* Stage::Class(std::string_view name) {
  for (entry::Dispatch& known : classes_) {
    if (forms::EqualsIgnoringCase(known.class_name, name)) {
      return &known;
    }
  }
  return nullptr;
}

std::unique_ptr<session::Recordset> Stage::Run(const std::string& sql) {
  return session_->Connection().Execute(session_->Office().PrepareSQL(sql, 1));
}

}  // namespace host
