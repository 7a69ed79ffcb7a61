#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "console/recording_session.h"
#include "console/recordings.h"
#include "console/refusal.h"
#include "console/staged_practice.h"
#include "console/step_words.h"
#include "console/temporary_folder.h"
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

// What the screens get for a session: itself, where there is no function.
using SessionPath = std::function<std::shared_ptr<session::Session>(std::shared_ptr<session::Session>)>;

// A practice, a session on it and the two public classes: what a scenario plays on.
class Stage {
 public:
  // Without a clock it is the machine's, until `SetClock`.
  Stage(StagedPractice practice, std::optional<forms::DateTime> clock, forms::User& user, Recordings& recordings,
        const SessionPath& to_screens = {});
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;
  // Empties the component's slots, and takes its printer away.
  ~Stage();

  RecordingSession& Session() { return *session_; }
  const std::filesystem::path& DataFolder() const { return folder_.Path(); }
  // The file of a path whose folders are parted by "/", under the data folder.
  std::filesystem::path File(std::string_view path) const;
  // The same for a file of the scenario's own: fails for a path that may lead out of the data folder.
  std::filesystem::path OwnFile(std::string_view path) const;

  void SetUser(LoginRights user);
  // The options that were set go with the user.
  void SetOffice(std::int32_t office);
  void SetClock(forms::DateTime now) { clock_ = now; }
  // For whoever reads it: an office setting as well as an option of the user.
  void SetSetting(std::string section, std::string key, std::string value);
  // The database refuses what is named, until all is allowed again.
  void Refuse(Refusal refusal);
  void AllowAll();
  // Another user holds the record from now on, at work or silent.
  void HoldForAnother(std::string_view table, std::int32_t id, bool silent);

  // An instance of a public class by its name: "EditingScreen" and "LookUpList" themselves, what `New` has made, or
  // "Host" with its "EnterPatient"; nullptr for another name. It stays where it is.
  entry::Dispatch* Find(std::string_view name);
  // Makes an instance of a public class. False when there is no such class.
  bool New(std::string_view class_name, const std::string& name);

  // Whether lists raise such an event.
  static bool Raises(std::string_view event);
  // What the host answers whenever a list raises the event. False when the event has no such argument.
  bool Answer(std::string_view event, std::string_view argument, bool value);

  const session::ScreenContext& Context() const { return context_; }

  // Prepared and run on the practice, past the recordings.
  std::unique_ptr<session::Recordset> Run(const std::string& sql);

 private:
  // The settings so far become options of the user in the office that he works in now.
  void WriteOptions();
  void Hear(entry::LookUpList& list);
  void Tell(std::string event, std::vector<std::string> values);
  // Writes the event down and answers its argument.
  void Consult(const std::string& event, bool& argument);

  TemporaryFolder folder_;
  StagedPractice practice_;
  std::optional<forms::DateTime> clock_;
  std::shared_ptr<RecordingSession> session_;
  std::shared_ptr<session::Session> screens_session_;
  RecordLocks another_;
  RecordLocks silent_;
  std::vector<std::tuple<std::string, std::string, std::string>> settings_;
  std::vector<Refusal> refusals_;
  std::unique_ptr<session::Screens> screens_;
  session::ScreenContext context_;
  Recordings& recordings_;
  std::map<std::string, bool, entry::IgnoringCase> answers_;
  entry::IGlobal slots_;
  std::vector<std::unique_ptr<entry::IGlobal>> objects_;
  std::map<std::string, entry::Dispatch, entry::IgnoringCase> instances_;
};

}  // namespace host
