#include "automation/practice_object.h"

#include <algorithm>

#include "automation/session_object.h"
#include "database/database.h"
#include "practice/data_folder.h"
#include "practice/demo.h"
#include "practice/demo_files.h"
#include "practice/host_session.h"
#include "reminders/reminder_sender.h"

namespace host {
namespace {

using automation::CallArguments;
using automation::Variant;

constexpr std::string_view kSqlite = "sqlite:";

bool IsGiven(const CallArguments& arguments, std::size_t place) {
  return place < arguments.Size() && !automation::IsMissing(&arguments.At(place));
}

[[noreturn]] void Refuse(const std::string& text) {
  throw session::DatabaseError(text, {}, 0);
}

// Where the files of practices lie that are on a server.
std::string OwnFolder() {
  const wchar_t* folder = _wgetenv(L"LOCALAPPDATA");
  return automation::ToUtf8(folder == nullptr ? std::wstring(L".") : std::wstring(folder)) + "/practice_desk";
}

// A session that sends its reminders, and the practice that it works in.
struct OwnSession {
  OwnSession(std::shared_ptr<Practice> opened, std::int32_t office, LoginRights user, Surroundings surroundings)
      : practice(std::move(opened)), session(*practice, office, std::move(user), Sending(std::move(surroundings))) {}

  Surroundings Sending(Surroundings surroundings) {
    surroundings.send_reminder = [this](const session::ReminderMessage& message) { return sender.Send(message); };
    return surroundings;
  }

  std::shared_ptr<Practice> practice;
  HostSession session;
  ReminderSender sender{session};
};

}  // namespace

PracticeObject::PracticeObject() {
  Add("OpenDemo", [this](const CallArguments& arguments) {
    OpenDemo(arguments);
    return Variant();
  });
  Add("Open", [this](const CallArguments& arguments) {
    const std::string url = arguments.Text(0);
    practice_ = std::make_shared<Practice>(url);
    data_folder_ = DataFolderOf(url, OwnFolder());
    return Variant();
  });
  Add("LogIn", [this](const CallArguments& arguments) { return LogIn(arguments); });
}

void PracticeObject::OpenDemo(const CallArguments& arguments) {
  const std::string url = std::string(kSqlite) + arguments.Text(0);
  DemoOptions options;
  if (IsGiven(arguments, 1)) {
    options.patients = arguments.Int(1);
  }
  const bool is_new = IsVacant(url);
  practice_ = std::make_shared<Practice>(is_new ? MakeDemo(url, options) : Practice(url));
  data_folder_ = DataFolderOf(url, OwnFolder());
  if (is_new) {
    WriteDemoFiles(data_folder_);
  }
}

Variant PracticeObject::LogIn(const CallArguments& arguments) const {
  if (!practice_) {
    Refuse("No practice is open: call Open or OpenDemo first.");
  }
  const std::int32_t office = IsGiven(arguments, 2) ? arguments.Int(2) : practice_->Office();
  const auto offices = practice_->Offices();
  if (std::ranges::find(offices, office) == offices.end()) {
    Refuse("The practice has no office " + std::to_string(office) + ".");
  }
  OfficeDatabase database(*practice_, office);
  auto answer = host::LogIn(database, arguments.Text(0), arguments.Text(1), LocalNow());
  if (!answer) {
    Refuse("User name and password do not belong together.");
  }
  const auto own =
      std::make_shared<OwnSession>(practice_, office, std::move(answer.login->rights),
                                   ThisMachine(data_folder_, automation::ToUtf8(automation::ModuleFolder())));
  const auto session = MakeSessionObject(std::shared_ptr<session::Session>(own, &own->session));
  return Variant::Of(session.Get());
}

}  // namespace host
