#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "session/session.h"

namespace host {

// What guards the way to a mail server.
enum class MailSecurity { None, StartTls, Tls };

inline constexpr std::array kMailSecurities = {MailSecurity::StartTls, MailSecurity::Tls, MailSecurity::None};
// As the setting keeps it: "STARTTLS".
std::string_view NameOf(MailSecurity security);
// Where servers listen for it: 587, 465, 25.
int UsualPort(MailSecurity security);

// How an office's reminders go out.
struct ReminderSettings {
  std::string server = {};  // of mail; empty: e-mails go to the outbox
  int port = 0;             // 0 for the usual one
  MailSecurity security = MailSecurity::StartTls;
  std::string user = {};  // empty: the server asks for none
  std::string password = {};
  std::string sender = {};       // the address
  std::string sender_name = {};  // what receivers read in its place
  std::string hook = {};         // the address that takes text messages; empty: they go to the outbox
  std::string token = {};        // which it asks for

  // What the texts of messages take from the office.
  std::string confirmation_address = {};  // of the service that takes confirmations
  std::string text_instructions = {};     // how to reply, in place of the usual words
  std::string email_instructions = {};
  std::string office_name = {};  // in place of the first location's
  std::string office_website = {};

  int Port() const { return port != 0 ? port : UsualPort(security); }

  friend bool operator==(const ReminderSettings&, const ReminderSettings&) = default;
};

// Throws session::DatabaseError.
ReminderSettings ReadReminderSettings(const session::Settings& settings);
// Writes what differs, in one transaction. An error that it throws, session::DatabaseError, holds none of the secrets.
void WriteReminderSettings(session::Session& session, const ReminderSettings& settings);

// An e-mail address that can stand in a message's head: printable ASCII, without what parts addresses there.
bool IsMailAddress(std::string_view address);
// A computer's name or number, without a port.
bool IsHostName(std::string_view name);
// An address of the web, without a user's name.
bool IsWebAddress(std::string_view address);
// Printable ASCII without blanks, which every head can hold.
bool IsToken(std::string_view text);

// Whether what is typed into the settings crosses the network where others can read it: patients' messages, or the
// password.
bool IsReadableByOthers(const ReminderSettings& settings);

}  // namespace host
