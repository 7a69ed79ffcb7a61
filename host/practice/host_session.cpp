#include "practice/host_session.h"

#include "practice/accounts.h"
#include "practice/practice_log.h"
#include "practice/programs.h"
#include "practice/settings.h"

namespace host {

Surroundings ThisMachine(const std::string& data_folder, const std::string& program_folder) {
  return {LocalNow, data_folder, program_folder,
          [programs = Programs(data_folder, program_folder)](OfficeDatabase& office, const std::string& command_line) {
            return programs.Start(office, command_line);
          }};
}

HostSession::HostSession(Practice& practice, std::int32_t office, LoginRights user, Surroundings surroundings)
    : practice_(practice),
      database_(practice, office),
      user_(std::move(user)),
      surroundings_(std::move(surroundings)),
      author_{{}, surroundings_.clock},
      locks_(database_, user_.Name()) {
  if (practice.Database().shared) {
    heartbeat_.emplace([this] { locks_.Beat(); }, kBeatEvery);
  }
}

HostSession::~HostSession() {
  practice_.Database().write_as(nullptr);
}

// Several sessions may share a practice, and users a session: what is run now is this one's.
session::Connection& HostSession::Connection() {
  author_.name = user_.Name();
  practice_.Database().write_as(&author_);
  return database_.Connection();
}

bool HostSession::StartProgram(const std::string& command_line) {
  Connection();  // what the program writes is this user's
  return surroundings_.start_program(database_, command_line);
}

std::string HostSession::OfficeSetting(std::string_view section, std::string_view key) const {
  return ReadOfficeSetting(database_, section, key);
}

std::string HostSession::UserOption(std::string_view section, std::string_view key) const {
  return ReadUserOption(database_, user_.Name(), section, key);
}

void HostSession::SetOfficeSetting(std::string_view section, std::string_view key, std::string_view value) {
  if (!HasRight(session::kSupervisorRight)) {
    throw session::DatabaseError("User [" + UserName() + "] does not have the rights to modify office settings.", {},
                                 0);
  }
  WriteOfficeSetting(database_, section, key, value);
}

void HostSession::SetUserOption(std::string_view section, std::string_view key, std::string_view value) {
  WriteUserOption(database_, user_.Name(), section, key, value);
}

void HostSession::RecordHandOff(std::string_view id_column, std::string_view table, std::int32_t id) {
  if (OnHandOff) {
    OnHandOff({std::string(id_column), std::string(table), id});
  }
}

void HostSession::Log(const session::LogEntry& entry) {
  AppendToLog(database_, {entry, user_.Name(), Now()});
}

session::AccountFigures HostSession::AccountOf(std::int32_t person) const {
  return ReadAccount(database_, person);
}

// What is no day or time is as if it were not set.
session::WorkSchedule HostSession::DefaultSchedule() const {
  session::WorkSchedule schedule;
  const auto setting = [this](std::string_view key) { return OfficeSetting(kOfficeDefaults, key); };
  const auto time = [&setting](std::string_view key, std::chrono::minutes otherwise) {
    const auto read = forms::ParseIso("2000-01-01 " + setting(key) + ":00");
    return read ? std::chrono::floor<std::chrono::minutes>(*read - forms::AtMidnight(forms::DateOf(*read))) : otherwise;
  };
  if (const auto days = forms::ParseWeekdays(setting(kWorkDays)); days && days->any()) {
    schedule.days = *days;
  }
  schedule.start = time(kWorkStart, schedule.start);
  schedule.end = time(kWorkEnd, schedule.end);
  return schedule;
}

}  // namespace host
