#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/reminders.h"
#include "session/session.h"

namespace recall {

// The office's settings with its own instructions, plain text, in `kReminderSection`.
inline constexpr std::string_view kTextInstructions = "TEXT_INSTRUCTIONS";
inline constexpr std::string_view kEmailInstructions = "EMAIL_INSTRUCTIONS";

// How the receiver of a text message or an e-mail replies to it, plain text with variables. Where the office has not
// set it, a confirmation carries its link, and a recall and a reminder the office's phone. Empty for other methods.
std::string ReplyInstructions(const session::Settings& settings, data::ReminderKind kind, data::ContactMethod method);

// The message with the instructions on a line of their own behind it, once; HTML for an e-mail.
std::string WithInstructions(std::string message, std::string_view instructions, data::ContactMethod method);
// What `WithInstructions` made such a message of; nothing for one that does not end in them.
std::optional<std::string> WithoutInstructions(const std::string& message, std::string_view instructions,
                                               data::ContactMethod method);

}  // namespace recall
