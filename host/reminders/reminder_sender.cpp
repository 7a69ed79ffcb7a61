#include "reminders/reminder_sender.h"

#include <algorithm>
#include <utility>

#include "forms/text.h"
#include "practice/machine.h"
#include "reminders/mail_message.h"
#include "reminders/new_id.h"
#include "reminders/reminder_settings.h"
#include "reminders/transfer.h"

namespace host {
namespace {

// Of an e-mail that goes to the outbox before a sender is set.
constexpr std::string_view kNoSender = "practice@practice.invalid";

std::string JsonText(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string json = "\"";
  for (const char c : forms::ToUtf8(forms::ToUtf32(text))) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\') {
      json += {'\\', c};
    } else if (byte < ' ') {
      json += "\\u00";
      json += {kDigits[byte >> 4U], kDigits[byte & 0x0FU]};
    } else {
      json += c;
    }
  }
  return json + '"';
}

bool IsCellPhone(std::string_view number) {
  constexpr std::size_t kDigits = 10;
  return number.size() == kDigits && std::ranges::all_of(number, forms::IsDigit);
}

}  // namespace

bool ReminderSender::Send(const session::ReminderMessage& message) {
  try {
    notice_.clear();
    problem_ = Take(message);
  } catch (const session::DatabaseError& error) {
    problem_ = error.what();
  }
  return problem_.empty();
}

std::string ReminderSender::Take(const session::ReminderMessage& message) {
  return message.method == Method::Email ? TakeEmail(message) : TakeText(message);
}

std::string ReminderSender::TakeEmail(const session::ReminderMessage& message) {
  if (!IsMailAddress(message.to)) {
    return "The receiver's e-mail address cannot be used.";
  }
  const ReminderSettings settings = ReadReminderSettings(session_);
  MailMessage mail{.from = settings.sender,
                   .from_name = settings.sender_name,
                   .to = message.to,
                   .subject = message.subject,
                   .text = message.text,
                   .sent = UtcNow(),
                   .id = NewId()};
  if (settings.server.empty()) {
    mail.from = IsMailAddress(mail.from) ? mail.from : std::string(kNoSender);
    return PutIntoOutbox(message.method, SourceOf(mail));
  }
  if (!IsHostName(settings.server) || !IsMailAddress(settings.sender)) {
    return "The mail server or the sender's address cannot be used.";
  }
  return SendMail(settings, mail.to, SourceOf(mail), [this] { return WhileSending(); });
}

std::string ReminderSender::TakeText(const session::ReminderMessage& message) {
  if (!IsCellPhone(message.to)) {
    return "The receiver's cell phone number cannot be used.";
  }
  const ReminderSettings settings = ReadReminderSettings(session_);
  if (settings.hook.empty()) {
    return PutIntoOutbox(message.method, "To: " + message.to + "\r\n\r\n" + message.text);
  }
  if (!IsWebAddress(settings.hook) || !IsToken(settings.token)) {
    return "The web hook's address or token cannot be used.";
  }
  return PostToHook(settings, "{\"to\":" + JsonText(message.to) + ",\"text\":" + JsonText(message.text) + "}",
                    [this] { return WhileSending(); });
}

std::string ReminderSender::PutIntoOutbox(Method method, std::string_view text) {
  const bool email = method == Method::Email;
  if (!OwnOutbox().Put(session_.Now(), email ? ".eml" : ".txt", text)) {
    return "The outbox cannot be written.";
  }
  if (told_.insert(method).second) {
    notice_ = email ? "The message waits in the outbox: no mail server is set up yet."
                    : "The message waits in the outbox: no web hook is set up yet.";
  }
  return {};
}

Outbox ReminderSender::OwnOutbox() const {
  return Outbox(session_.DataFolder(), session_.OfPractice().Database().access);
}

std::string ReminderSender::TakeNotice() {
  return std::exchange(notice_, {});
}

bool ReminderSender::WhileSending() {
  const session::WhileBusy& while_busy = session_.Connection().WhileBusy;
  return while_busy && while_busy(session::Busy::Running);
}

}  // namespace host
