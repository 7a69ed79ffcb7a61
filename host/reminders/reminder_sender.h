#pragma once

#include <set>
#include <string>

#include "practice/host_session.h"
#include "reminders/outbox.h"

namespace host {

// Takes a session's reminders to their receivers, by the office's settings: e-mails to the mail server, text messages
// to the web hook, and what has none of them to the outbox in the data folder.
class ReminderSender {
 public:
  // The session outlives it.
  explicit ReminderSender(HostSession& session) : session_(session) {}

  // False when nobody took the message; takes no longer than `kTransferTime`, and ends when the person gives it up.
  bool Send(const session::ReminderMessage& message);
  // Why the last one was not taken; empty when it was.
  const std::string& Problem() const { return problem_; }
  // The practice's, which all who work in it may look into.
  Outbox OwnOutbox() const;
  // That the last message waits in the outbox, to be told once for each kind of message; empty otherwise.
  std::string TakeNotice();

 private:
  using Method = session::ReminderMessage::Method;

  std::string Take(const session::ReminderMessage& message);
  std::string TakeEmail(const session::ReminderMessage& message);
  std::string TakeText(const session::ReminderMessage& message);
  std::string PutIntoOutbox(Method method, std::string_view text);
  // The window goes on painting.
  bool WhileSending();

  HostSession& session_;
  std::string problem_;
  std::string notice_;
  std::set<Method> told_;
};

}  // namespace host
