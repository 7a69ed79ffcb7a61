#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "practice/heartbeat.h"
#include "practice/logins.h"
#include "practice/practice.h"
#include "practice/record_locks.h"
#include "session/session.h"

namespace host {

// Where a session runs. The console gives it a standing clock and keeps what it would have started.
struct Surroundings {
  std::function<forms::DateTime()> clock;
  std::string data_folder;
  std::string program_folder;
  std::function<bool(OfficeDatabase& office, const std::string& command_line)> start_program;
  std::function<bool(const session::ReminderMessage&)> send_reminder = {};  // none: no message is taken
  std::function<bool()> show_reminder_options = {};                         // none: there is nothing to show
};
// The machine's clock, and the suite's programs as it has them.
Surroundings ThisMachine(const std::string& data_folder, const std::string& program_folder);

struct HandOff {
  std::string id_column;
  std::string table;
  std::int32_t id = 0;
};

// What the host hands to the screens: a practice, seen from one office by one user. The practice outlives it.
class HostSession : public session::Session {
 public:
  HostSession(Practice& practice, std::int32_t office, LoginRights user, Surroundings surroundings);
  HostSession(const HostSession&) = delete;
  HostSession& operator=(const HostSession&) = delete;
  ~HostSession() override;

  // Hears of every record that was handed off.
  std::function<void(const HandOff&)> OnHandOff;

  Practice& OfPractice() { return practice_; }
  // The host's own way into the office's tables; overrides in a derived class do not hear of it.
  OfficeDatabase& Office() { return database_; }
  LoginRights& User() { return user_; }
  // The session works in another office from now on.
  void SetOffice(std::int32_t office) { database_ = OfficeDatabase(practice_, office); }
  const std::string& CurrentPersonType() const { return person_type_; }

  std::int32_t DatabaseKind() const override { return database_.DatabaseKind(); }
  std::int32_t CurrentOfficeID() const override { return database_.CurrentOfficeID(); }
  std::string PrepareSQL(const std::string& sql, int flag) const override { return database_.PrepareSQL(sql, flag); }
  session::Connection& Connection() override;
  bool KeepsRowGuids(std::string_view table) const override { return database_.KeepsRowGuids(table); }

  std::string UserName() const override { return user_.Name(); }
  bool HasRight(std::string_view keyword) const override { return user_.Has(keyword); }

  std::string OfficeSetting(std::string_view section, std::string_view key) const override;
  void SetOfficeSetting(std::string_view section, std::string_view key, std::string_view value) override;
  std::string UserOption(std::string_view section, std::string_view key) const override;
  void SetUserOption(std::string_view section, std::string_view key, std::string_view value) override;

  void RecordHandOff(std::string_view id_column, std::string_view table, std::int32_t id) override;
  void SetCurrentPersonType(std::string_view key) override { person_type_ = key; }
  void Log(const session::LogEntry& entry) override;
  std::optional<session::RecordHolder> HoldRecord(std::string_view table, std::int32_t id) override {
    return Insisted<std::optional<session::RecordHolder>>([&] { return LocksOfUser().Hold(table, id); });
  }
  std::optional<session::RecordHolder> TakeRecordOver(std::string_view table, std::int32_t id) override {
    return Insisted<std::optional<session::RecordHolder>>([&] { return LocksOfUser().TakeOver(table, id); });
  }
  bool KeepsRecord(std::string_view table, std::int32_t id) override {
    return Insisted<bool>([&] { return locks_.Keeps(table, id); });
  }
  void ReleaseRecord(std::string_view table, std::int32_t id) override { locks_.Release(table, id); }
  std::optional<session::RecordHolder> HeldByAnother(std::string_view table, std::int32_t id) const override {
    return Insisted<std::optional<session::RecordHolder>>([&] { return locks_.HeldByAnother(table, id); });
  }
  session::AccountFigures AccountOf(std::int32_t person) const override;

  std::vector<session::Right> RightsCatalogue() const override { return host::RightsCatalogue(); }
  std::optional<std::string> StorablePassword(std::string_view password) const override {
    return HashPassword(password);
  }
  session::WorkSchedule DefaultSchedule() const override;

  forms::DateTime Now() const override { return surroundings_.clock(); }
  std::string DataFolder() const override { return surroundings_.data_folder; }
  std::string ProgramFolder() const override { return surroundings_.program_folder; }
  bool StartProgram(const std::string& command_line) override;

  bool SendReminder(const session::ReminderMessage& message) override {
    return surroundings_.send_reminder && surroundings_.send_reminder(message);
  }
  bool ShowReminderOptions() override {
    return surroundings_.show_reminder_options && surroundings_.show_reminder_options();
  }

 private:
  // What the locks say, where the person may try again when their connection is lost.
  template <class Answer>
  Answer Insisted(const std::function<Answer()>& ask) const {
    Answer answer{};
    session::Insist(database_.Connection(), [&] { answer = ask(); });
    return answer;
  }
  // Users may share a session: what is held now is held by this one.
  RecordLocks& LocksOfUser() {
    locks_.SetUser(user_.Name());
    return locks_;
  }

  Practice& practice_;
  mutable OfficeDatabase database_;
  LoginRights user_;
  Surroundings surroundings_;
  ChangeAuthor author_;
  RecordLocks locks_;
  std::string person_type_;
  std::optional<Heartbeat> heartbeat_;
};

}  // namespace host
