#pragma once

#include <string>

#include "session/session.h"

namespace host {

// Takes a session's reminders to their receivers, by the office's settings: e-mails to the mail server, text messages
// to the web hook, and what has none of them to the outbox in the data folder.
class ReminderSender {
 public:
  // The session outlives it.
  explicit ReminderSender(session::Session& session) : session_(session) {}

  // False when nobody took the message; takes no longer than `kTransferTime`, and ends when the person gives it up.
  bool Send(const session::ReminderMessage& message);
  // Why the last one was not taken; empty when it was.
  const std::string& Problem() const { return problem_; }

 private:
  std::string Take(const session::ReminderMessage& message);
  std::string TakeEmail(const session::ReminderMessage& message);
  std::string TakeText(const session::ReminderMessage& message);
  std::string PutIntoOutbox(std::string_view ending, std::string_view text);
  // The window goes on painting.
  bool WhileSending();

  session::Session& session_;
  std::string problem_;
};

}  // namespace host
