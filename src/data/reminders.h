#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// What the practice's reminders are about, and how they reach a person.
namespace data {

// As `emmAppDefTyp` keeps them.
enum class ReminderKind : std::int32_t { Recall = 1, Confirmation, Appointment, Birthday, NewsLetter };

inline constexpr std::array kReminderKinds = {ReminderKind::Recall, ReminderKind::Confirmation,
                                              ReminderKind::Appointment, ReminderKind::Birthday,
                                              ReminderKind::NewsLetter};

// "Recall Reminder"; empty for no kind.
std::string_view NameOf(ReminderKind kind);
// "RCR"; empty for a kind without templates of its own.
std::string_view TemplateCodeOf(ReminderKind kind);
// The folder of its templates, "RecallReminder", below `kTemplatesFolder`.
std::string_view TemplateFolderOf(ReminderKind kind);
// Below the data folder; `/` separates.
inline constexpr std::string_view kTemplatesFolder = "STP/Templates";

// As `ebcConMet` keeps them. A set of methods is their sum.
enum class ContactMethod : std::int32_t {
  TextMessage = 1,
  Email = 2,
  Letter = 4,
  PostCard = 8,
  Phone = 16,
  Voice = 32
};

inline constexpr std::array kContactMethods = {ContactMethod::TextMessage, ContactMethod::Email, ContactMethod::Letter,
                                               ContactMethod::PostCard,    ContactMethod::Phone, ContactMethod::Voice};

// "Text Message"; "Unknown" for a value that is no method.
std::string_view NameOf(ContactMethod method);

// What a link of a stage or of a contact order points at: `emsLinTyp`, `ebcLinTyp`.
enum class ReminderLink : std::int32_t { Kind = 1, Recall = 3 };

// `emsSeq` of the stage before the due date and of the last one; 1 to 6 are past due.
inline constexpr std::int32_t kDueStage = 0;
inline constexpr std::int32_t kStopTrackingStage = 2147483647;
inline constexpr std::int32_t kMostPastDueStages = 6;

// `OffLocID` of what belongs to every location.
inline constexpr std::int32_t kAllLocations = -1;

}  // namespace data
