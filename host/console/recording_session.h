#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console/recordings.h"
#include "forms/card_number.h"
#include "practice/host_session.h"

namespace host {

// A session that writes down what the screens ask of it. Programs are written down and not started.
class RecordingSession : public HostSession {
 public:
  RecordingSession(Practice& practice, std::int32_t office, LoginRights user, Surroundings surroundings,
                   Recordings& recordings)
      : HostSession(practice, office, std::move(user), std::move(surroundings)), recordings_(recordings) {}

  std::string PrepareSQL(const std::string& sql, int flag) const override {
    std::string shown = forms::WithoutCardNumbers(sql);
    for (const std::string& secret : secrets_) {
      if (const std::size_t at = shown.find(secret); at != std::string::npos) {
        shown.replace(at, secret.size(), "***");
      }
    }
    recordings_.statements.push_back(std::move(shown));
    return HostSession::PrepareSQL(sql, flag);
  }
  void RecordHandOff(std::string_view id_column, std::string_view table, std::int32_t id) override {
    recordings_.handed.push_back({std::string(id_column), std::string(table), id});
    HostSession::RecordHandOff(id_column, table, id);
  }
  void Log(const session::LogEntry& entry) override {
    recordings_.logged.push_back(entry);
    HostSession::Log(entry);
  }
  // What is stored of a password stands in no recording.
  std::optional<std::string> StorablePassword(std::string_view password) const override {
    return secrets_.emplace_back(*HostSession::StorablePassword(password));
  }
  bool StartProgram(const std::string& command_line) override {
    if (starts_programs) {
      recordings_.started.push_back(command_line);
    }
    return starts_programs;
  }
  bool SendReminder(const session::ReminderMessage& message) override {
    if (takes_messages) {
      const bool is_email = message.method == session::ReminderMessage::Method::Email;
      recordings_.sent.push_back({is_email ? "e-mail" : "text",
                                  message.to + "\r\n" + (is_email ? message.subject + "\r\n" : "") + message.text});
    }
    return takes_messages;
  }

  bool takes_messages = true;
  bool starts_programs = true;

 private:
  Recordings& recordings_;
  mutable std::vector<std::string> secrets_;
};

}  // namespace host
