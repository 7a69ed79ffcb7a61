#pragma once

#include <functional>
#include <string>
#include <utility>

#include "data/statements.h"
#include "practice/host_session.h"
#include "support/fake_host.h"

// A real practice behind the screens, a fake person in front of them.
namespace test_support {

inline host::Surroundings StandingStill() {
  using std::chrono::year;
  return {.clock = [] { return forms::AtMidnight(year(2026) / 11 / 21); },
          .data_folder = {},
          .program_folder = {},
          .start_program = [](host::OfficeDatabase&, const std::string&) { return false; }};
}

// Lets a test hear of every statement before it is prepared, of every call for a lock, and of every entry for a log,
// and refuse it.
class HeardSession : public host::HostSession {
 public:
  using HostSession::HostSession;

  std::function<void(const std::string&)> hear;
  std::function<void(const std::string&)> hear_lock;
  std::function<void(const std::string&)> hear_log;

  bool without_rights = false;

  bool HasRight(std::string_view keyword) const override { return !without_rights && HostSession::HasRight(keyword); }
  std::string PrepareSQL(const std::string& sql, int flag) const override {
    if (hear) {
      hear(sql);
    }
    return HostSession::PrepareSQL(sql, flag);
  }
  void Log(const session::LogEntry& entry) override {
    if (hear_log) {
      hear_log("log " + entry.text);
    }
    HostSession::Log(entry);
  }
  std::optional<session::RecordHolder> HoldRecord(std::string_view table, std::int32_t id) override {
    if (hear_lock) {
      hear_lock("hold " + std::string(table));
    }
    return HostSession::HoldRecord(table, id);
  }
  bool KeepsRecord(std::string_view table, std::int32_t id) override {
    if (hear_lock) {
      hear_lock("keep " + std::string(table));
    }
    return HostSession::KeepsRecord(table, id);
  }
};

struct PracticeHost {
  explicit PracticeHost(host::Practice made, host::LoginRights login = host::LoginRights("Ann", true))
      : practice(std::move(made)), session(practice, practice.Office(), std::move(login), StandingStill()) {}

  host::Practice practice;
  HeardSession session;
  test_support::FakeUser user;
  test_support::FakeScreens screens;

  session::ScreenContext Context() { return {session, user, screens}; }
  std::string Value(const std::string& sql) {
    return session::ToText(data::Statements(session.Office()).SelectValue(data::Sql::OfHost(sql)));
  }
};

}  // namespace test_support
