#include "data/reminders.h"

#include <algorithm>

namespace data {
namespace {

struct Kind {
  ReminderKind kind;
  std::string_view name;
  std::string_view code;
  std::string_view folder;
};
constexpr std::array<Kind, 5> kKinds = {{
    {ReminderKind::Recall, "Recall Reminder", "RCR", "RecallReminder"},
    {ReminderKind::Confirmation, "Appointment Confirmation", "APC", "AppointmentConfirmation"},
    {ReminderKind::Appointment, "Appointment Reminder", "APR", "AppointmentReminder"},
    {ReminderKind::Birthday, "Birthday Reminder", "BDR", "BirthdayReminder"},
    {ReminderKind::NewsLetter, "News Letter", "", "Newsletter"},
}};

std::string_view Told(ReminderKind kind, std::string_view Kind::*what) {
  const auto* known = std::ranges::find(kKinds, kind, &Kind::kind);
  return known == kKinds.end() ? std::string_view() : known->*what;
}

}  // namespace

std::string_view NameOf(ReminderKind kind) {
  return Told(kind, &Kind::name);
}

std::string_view TemplateCodeOf(ReminderKind kind) {
  return Told(kind, &Kind::code);
}

std::string_view TemplateFolderOf(ReminderKind kind) {
  return Told(kind, &Kind::folder);
}

std::string_view NameOf(ContactMethod method) {
  switch (method) {
    case ContactMethod::TextMessage:
      return "Text Message";
    case ContactMethod::Email:
      return "e-Mail";
    case ContactMethod::Letter:
      return "Letter";
    case ContactMethod::PostCard:
      return "Post Card";
    case ContactMethod::Phone:
      return "Phone";
    case ContactMethod::Voice:
      return "Voice Reminder";
  }
  return "Unknown";
}

}  // namespace data
