#pragma once

#include <string>
#include <string_view>

#include "data/reminders.h"
#include "session/session.h"

namespace recall {

// How the receiver of a text message or an e-mail replies to it, with variables: the office's setting
// "TEXT_INSTRUCTIONS" or "EMAIL_INSTRUCTIONS" in `kReminderSection`, which is plain text; where it is not set, a
// confirmation carries its link and a reminder the office's phone. Empty for other methods.
std::string ReplyInstructions(const session::Settings& settings, data::ReminderKind kind, data::ContactMethod method);

// The message with the instructions on a line of their own behind it, once; HTML for an e-mail.
std::string WithInstructions(std::string message, std::string_view instructions, data::ContactMethod method);

}  // namespace recall
