#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "console/recording_session.h"
#include "console/recordings.h"
#include "console/step_words.h"
#include "entry/editing_screen.h"
#include "entry/form_catalog.h"
#include "entry/look_up_list.h"
#include "entry/members.h"
#include "forms/user.h"
#include "practice/demo.h"
#include "practice/host_session.h"
#include "practice/practice.h"
#include "practice/record_locks.h"

namespace host {

// The clock of a block until a step sets it: 2026-11-21 09:00:00.
forms::DateTime FirstClock();

// A folder of its own for as long as it lives.
class TemporaryFolder {
 public:
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// What the screens get for a session: itself, where there is no function.
using SessionPath = std::function<std::shared_ptr<session::Session>(std::shared_ptr<session::Session>)>;

// A practice, a session on it and the two public classes: what a scenario plays on.
class Stage {
 public:
  // Without a clock it is the machine's, until `SetClock`.
  Stage(Practice practice, std::optional<forms::DateTime> clock, forms::User& user, Recordings& recordings,
        const SessionPath& to_screens = {});
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;
  // Takes the session out of the component's slots.
  ~Stage();

  RecordingSession& Session() { return *session_; }
  const std::filesystem::path& DataFolder() const { return folder_.Path(); }
  // The file of a path whose folders are parted by "/", under the data folder.
  std::filesystem::path File(std::string_view path) const;

  void SetUser(LoginRights user);
  void SetClock(forms::DateTime now) { clock_ = now; }
  // For whoever reads it: an office setting as well as an option of the user.
  void SetSetting(std::string section, std::string key, std::string value);
  // Another user holds the record from now on.
  void HoldForAnother(std::string_view table, std::int32_t id);

  // "EditingScreen", "LookUpList", or "Host" with its "EnterPatient"; nullptr for another name.
  entry::Dispatch* Class(std::string_view name);
  const session::ScreenContext& Context() const { return context_; }

  // Prepared and run on the practice, past the recordings.
  std::unique_ptr<session::Recordset> Run(const std::string& sql);

 private:
  void RaiseEventsInto(Recordings& recordings);

  TemporaryFolder folder_;
  Practice practice_;
  std::optional<forms::DateTime> clock_;
  std::shared_ptr<RecordingSession> session_;
  std::shared_ptr<session::Session> screens_session_;
  std::unique_ptr<RecordLocks> another_;
  std::vector<std::tuple<std::string, std::string, std::string>> settings_;
  entry::EditingScreen editing_screen_;
  entry::LookUpList look_up_list_;
  std::vector<entry::Dispatch> classes_;
  std::unique_ptr<session::Screens> screens_;
  session::ScreenContext context_;
};

}  // namespace host
