#include "reminders/reminder_settings.h"

#include <algorithm>
#include <charconv>

#include "forms/text.h"

namespace host {
namespace {

constexpr std::string_view kSection = "REMINDERS";

constexpr int kLastPort = 65535;

// The settings as they are kept.
using Kept = std::array<std::pair<std::string_view, std::string>, 14>;

Kept KeptForm(const ReminderSettings& settings) {
  return {{{"SMTP_SERVER", settings.server},
           {"SMTP_PORT", settings.port == 0 ? std::string() : std::to_string(settings.port)},
           {"SMTP_SECURITY", std::string(NameOf(settings.security))},
           {"SMTP_USER", settings.user},
           {"SMTP_PASSWORD", settings.password},
           {"SENDER", settings.sender},
           {"SENDER_NAME", settings.sender_name},
           {"TEXT_HOOK", settings.hook},
           {"TEXT_TOKEN", settings.token},
           {"CONFIRMATION_ADDRESS", settings.confirmation_address},
           {"TEXT_INSTRUCTIONS", settings.text_instructions},
           {"EMAIL_INSTRUCTIONS", settings.email_instructions},
           {"OFFICE_NAME", settings.office_name},
           {"OFFICE_WEBSITE", settings.office_website}}};
}

bool IsPrintable(char c) {
  return c > ' ' && c <= '~';
}

bool IsLetterOrDigit(char c) {
  return forms::IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// What stands between the slashes of an address of the web.
std::string_view AuthorityOf(std::string_view address) {
  address.remove_prefix(std::min(address.find("//") + 2, address.size()));
  return address.substr(0, address.find_first_of("/?#"));
}

// The computer of an address of the web.
std::string_view HostOf(std::string_view address) {
  const std::string_view authority = AuthorityOf(address);
  return authority.starts_with('[') ? authority.substr(0, authority.find(']') + 1)
                                    : authority.substr(0, authority.find(':'));
}

// A computer's number of the longer kind: "2001:db8::1".
bool IsLongNumber(std::string_view name) {
  constexpr std::size_t kLongest = 45;
  return name.size() <= kLongest && std::ranges::count(name, ':') > 1 &&
         name.find_first_not_of("0123456789abcdefABCDEF:.") == std::string_view::npos;
}

bool IsThisMachine(std::string_view host) {
  return host == "localhost" || host == "::1" || host == "[::1]" || host == "127.0.0.1";
}

}  // namespace

std::string_view NameOf(MailSecurity security) {
  switch (security) {
    case MailSecurity::None:
      return "NONE";
    case MailSecurity::StartTls:
      return "STARTTLS";
    case MailSecurity::Tls:
      return "TLS";
  }
  return {};
}

int UsualPort(MailSecurity security) {
  constexpr int kPlain = 25;
  constexpr int kSubmission = 587;
  constexpr int kOverTls = 465;
  switch (security) {
    case MailSecurity::None:
      return kPlain;
    case MailSecurity::StartTls:
      return kSubmission;
    case MailSecurity::Tls:
      return kOverTls;
  }
  return 0;
}

ReminderSettings ReadReminderSettings(const session::Settings& settings) {
  const auto read = [&settings](std::string_view key) { return settings.OfficeSetting(kSection, key); };
  ReminderSettings found;
  found.server = read("SMTP_SERVER");
  const std::string port = read("SMTP_PORT");
  std::from_chars(port.data(), port.data() + port.size(), found.port);
  if (found.port < 0 || found.port > kLastPort) {
    found.port = 0;
  }
  const std::string security = read("SMTP_SECURITY");
  for (const MailSecurity known : kMailSecurities) {
    if (forms::EqualsIgnoringCase(security, NameOf(known))) {
      found.security = known;
    }
  }
  found.user = read("SMTP_USER");
  found.password = read("SMTP_PASSWORD");
  found.sender = read("SENDER");
  found.sender_name = read("SENDER_NAME");
  found.hook = read("TEXT_HOOK");
  found.token = read("TEXT_TOKEN");
  found.confirmation_address = read("CONFIRMATION_ADDRESS");
  found.text_instructions = read("TEXT_INSTRUCTIONS");
  found.email_instructions = read("EMAIL_INSTRUCTIONS");
  found.office_name = read("OFFICE_NAME");
  found.office_website = read("OFFICE_WEBSITE");
  return found;
}

void WriteReminderSettings(session::Session& session, const ReminderSettings& settings) {
  const Kept before = KeptForm(ReadReminderSettings(session));
  const Kept after = KeptForm(settings);
  session::Transaction transaction(session.Connection());
  for (std::size_t i = 0; i < after.size(); ++i) {
    if (after.at(i) == before.at(i)) {
      continue;
    }
    try {
      session.SetOfficeSetting(kSection, after.at(i).first, after.at(i).second);
    } catch (const session::DatabaseError& error) {
      throw session::DatabaseError(error.what(), {}, error.Code());
    }
  }
  transaction.Commit();
}

bool IsMailAddress(std::string_view address) {
  constexpr std::size_t kLongest = 254;
  const std::size_t at = address.find('@');
  return address.size() <= kLongest && at != 0 && at != std::string_view::npos && at + 1 < address.size() &&
         address.find('@', at + 1) == std::string_view::npos && std::ranges::all_of(address, [](char c) {
           return IsPrintable(c) && std::string_view("<>()[]\\,;:\"").find(c) == std::string_view::npos;
         });
}

bool IsHostName(std::string_view name) {
  constexpr std::size_t kLongest = 253;
  if (name.find(':') != std::string_view::npos) {
    return IsLongNumber(name);
  }
  return !name.empty() && name.size() <= kLongest &&
         std::ranges::all_of(name, [](char c) { return IsLetterOrDigit(c) || c == '.' || c == '-'; });
}

bool IsWebAddress(std::string_view address) {
  const std::string start = forms::ToLower(address.substr(0, address.find("//")));
  // What reads it may take another computer out of a name with these signs.
  const bool plain = AuthorityOf(address).find_first_of("@\\") == std::string_view::npos;
  return (start == "https:" || start == "http:") && plain && !HostOf(address).empty() &&
         std::ranges::all_of(address, IsPrintable);
}

bool IsToken(std::string_view text) {
  return std::ranges::all_of(text, IsPrintable);
}

bool IsReadableByOthers(const ReminderSettings& settings) {
  const bool mail =
      !settings.server.empty() && settings.security == MailSecurity::None && !IsThisMachine(settings.server);
  const bool hook = forms::ToLower(settings.hook).starts_with("http:") && !IsThisMachine(HostOf(settings.hook));
  return mail || hook;
}

}  // namespace host
