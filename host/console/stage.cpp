#include "console/stage.h"

#include <algorithm>
#include <array>

#include "console/expectation.h"
#include "console/step_failure.h"
#include "database/file_path.h"
#include "forms/text.h"
#include "people/name_entry.h"
#include "practice/machine.h"
#include "practice/settings.h"

namespace host {
namespace {

constexpr std::string_view kFirstUser = "USER";
constexpr std::string_view kAnotherUser = "ANOTHER";
constexpr std::string_view kAnotherMachine = "FRONT-DESK";

// One that lives, to be known by another machine's name.
ProcessIdentity AnotherProcess() {
  ProcessIdentity process = ThisProcess();
  process.machine = kAnotherMachine;
  return process;
}

std::string TruthText(bool value) {
  return value ? "True" : "False";
}

bool TruthOf(const entry::Arguments& arguments, std::string_view name, bool otherwise) {
  const auto argument = arguments.find(name);
  if (argument == arguments.end()) {
    return otherwise;
  }
  const auto truth = ParseTruth(argument->second);
  if (!truth) {
    Fail(std::string(name) + "=" + argument->second + " is neither on nor off");
  }
  return *truth;
}

// What a host does around the public classes: its name prompt.
entry::Dispatch HostClass(const session::ScreenContext& context) {
  entry::Dispatch host{.class_name = "Host", .methods = {}, .properties = {}};
  host.methods.push_back({"EnterPatient",
                          {{"Patient", true}, {"SaveAndBook", true}, {"ids"}, {"heads"}},
                          [&context](entry::Arguments& arguments) {
                            const people::NameEntry entered =
                                people::EnterPatient(context, {.ids = TruthOf(arguments, "ids", true),
                                                               .family_heads = TruthOf(arguments, "heads", false)});
                            arguments["Patient"] = std::to_string(entered.patient);
                            arguments["SaveAndBook"] = TruthText(entered.save_and_book);
                            return entered.outcome == people::EntryOutcome::None     ? "None"
                                   : entered.outcome == people::EntryOutcome::Edited ? "Edited"
                                                                                     : "Added";
                          }});
  return host;
}

// Not to be looked up, so that its signs of life count.
ProcessIdentity ProcessElsewhere() {
  ProcessIdentity process = AnotherProcess();
  process.system.clear();
  return process;
}

constexpr std::array kEvents = {"SwapModuleCalled", "ButtonClicked", "BeforePrint", "AfterPrint", "CheckEvent"};
// Events with an argument by reference.
constexpr std::array<std::pair<std::string_view, std::string_view>, 2> kQuestions = {
    {{"BeforePrint", "bCancel"}, {"CheckEvent", "bHandled"}}};

}  // namespace

forms::DateTime FirstClock() {
  using namespace std::chrono_literals;
  return forms::AtMidnight(std::chrono::November / 21 / 2026) + 9h;
}

Stage::Stage(StagedPractice practice, std::optional<forms::DateTime> clock, forms::User& user, Recordings& recordings,
             const SessionPath& to_screens)
    : practice_(std::move(practice)),
      clock_(clock),
      session_(std::make_shared<RecordingSession>(
          practice_.practice, practice_.practice.Office(), LoginRights(std::string(kFirstUser)),
          Surroundings{.clock = [this] { return clock_ ? *clock_ : LocalNow(); },
                       .data_folder = folder_.Path().string(),
                       .program_folder = (folder_.Path() / "PROGRAMS").string(),
                       .start_program = [](OfficeDatabase&, const std::string&) { return true; }},
          recordings)),
      screens_session_(to_screens ? to_screens(session_) : session_),
      another_(session_->Office(), std::string(kAnotherUser), AnotherProcess()),
      silent_(session_->Office(), std::string(kAnotherUser), ProcessElsewhere(),
              [] { return std::chrono::sys_seconds(); }),
      screens_(entry::MakeScreens(*screens_session_, user)),
      context_{*screens_session_, user, *screens_},
      recordings_(recordings) {
  slots_.SetPV(screens_session_);
  New("EditingScreen", "EditingScreen");
  New("LookUpList", "LookUpList");
  instances_.emplace("Host", HostClass(context_));
}

Stage::~Stage() {
  slots_.SetPV(nullptr);
  slots_.SetDAC(nullptr);
  slots_.SetGIC(nullptr);
  slots_.SetGC(nullptr);
  entry::EditingScreen::SetPrinter({});
  entry::LookUpList::SetPrinter({});
}

bool Stage::New(std::string_view class_name, const std::string& name) {
  const auto add = [&](auto object) {
    entry::Dispatch members = entry::DispatchOf(*object);
    entry::AddSlots(members, *object, screens_session_);
    instances_.insert_or_assign(name, std::move(members));
    objects_.push_back(std::move(object));
  };
  if (forms::EqualsIgnoringCase(class_name, "EditingScreen")) {
    add(std::make_unique<entry::EditingScreen>(context_.user));
  } else if (forms::EqualsIgnoringCase(class_name, "LookUpList")) {
    auto list = std::make_unique<entry::LookUpList>(context_.user);
    Hear(*list);
    add(std::move(list));
  } else {
    return false;
  }
  return true;
}

entry::Dispatch* Stage::Find(std::string_view name) {
  const auto found = instances_.find(name);
  return found == instances_.end() ? nullptr : &found->second;
}

bool Stage::Raises(std::string_view event) {
  return std::ranges::any_of(kEvents, [&](const char* known) { return forms::EqualsIgnoringCase(known, event); });
}

bool Stage::Answer(std::string_view event, std::string_view argument, bool value) {
  const auto known = std::ranges::find_if(kQuestions, [&](const auto& question) {
    return forms::EqualsIgnoringCase(question.first, event) && forms::EqualsIgnoringCase(question.second, argument);
  });
  if (known == kQuestions.end()) {
    return false;
  }
  answers_.insert_or_assign(std::string(event), value);
  return true;
}

void Stage::Tell(std::string event, std::vector<std::string> values) {
  recordings_.events.push_back({std::move(event), std::move(values)});
}

void Stage::Consult(const std::string& event, bool& argument) {
  Tell(event, {TruthText(argument)});
  if (const auto answer = answers_.find(event); answer != answers_.end()) {
    argument = answer->second;
  }
}

void Stage::Hear(entry::LookUpList& list) {
  list.Events.SwapModuleCalled = [this](const std::string& where_to, const std::string& designation) {
    Tell("SwapModuleCalled", {where_to, designation});
  };
  list.Events.ButtonClicked = [this](const std::string& key, std::int32_t current) {
    Tell("ButtonClicked", {key, std::to_string(current)});
  };
  list.Events.BeforePrint = [this](bool& cancel) { Consult("BeforePrint", cancel); };
  list.Events.AfterPrint = [this] { Tell("AfterPrint", {}); };
  list.Events.CheckEvent = [this](bool& handled) { Consult("CheckEvent", handled); };
}

std::filesystem::path Stage::File(std::string_view path) const {
  return folder_.Path() / FilePath(path);
}

std::filesystem::path Stage::OwnFile(std::string_view path) const {
  const std::filesystem::path parts = FilePath(path);
  if (parts.empty() || parts.has_root_path() || path.find('\\') != std::string_view::npos ||
      std::ranges::find(parts, "..") != parts.end()) {
    Fail(Quoted(path) + " is no path below the data folder");
  }
  std::filesystem::path at = folder_.Path();
  for (const std::filesystem::path& part : parts) {
    at /= part;
    if (std::filesystem::is_symlink(at)) {
      Fail(Quoted(path) + " leads over a link");
    }
  }
  return at;
}

void Stage::SetUser(LoginRights user) {
  session_->User() = std::move(user);
  WriteOptions();
}

void Stage::SetOffice(std::int32_t office) {
  session_->SetOffice(office);
  WriteOptions();
}

void Stage::WriteOptions() {
  for (const auto& [section, key, value] : settings_) {
    WriteUserOption(session_->Office(), session_->UserName(), section, key, value);
  }
}

void Stage::SetSetting(std::string section, std::string key, std::string value) {
  WriteOfficeSetting(session_->Office(), section, key, value);
  WriteUserOption(session_->Office(), session_->UserName(), section, key, value);
  settings_.emplace_back(std::move(section), std::move(key), std::move(value));
}

void Stage::Refuse(Refusal refusal) {
  const PracticeDatabase& database = practice_.ForSettingUp();
  for (const std::string& statement : host::Refuse(*database.schema, refusal, refusals_.size())) {
    database.connection->Execute(statement);
  }
  refusals_.push_back(std::move(refusal));
}

void Stage::AllowAll() {
  const PracticeDatabase& database = practice_.ForSettingUp();
  for (; !refusals_.empty(); refusals_.pop_back()) {
    for (const std::string& statement : Allow(*database.schema, refusals_.back(), refusals_.size() - 1)) {
      database.connection->Execute(statement);
    }
  }
}

void Stage::HoldForAnother(std::string_view table, std::int32_t id, bool silent) {
  (silent ? silent_ : another_).Hold(table, id);
}

std::unique_ptr<session::Recordset> Stage::Run(const std::string& sql) {
  if (practice_.owners) {
    return practice_.owners->Run(sql);
  }
  return session_->Connection().Execute(session_->Office().PrepareSQL(sql, 1));
}

}  // namespace host
