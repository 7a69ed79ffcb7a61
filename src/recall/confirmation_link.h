#pragma once

#include <string>
#include <string_view>

#include "data/reminders.h"
#include "session/session.h"

namespace recall {

inline constexpr std::string_view kConfirmationLink = "{Appointment Confirmation Link}";

// The office setting with the address of the service that takes confirmations, "https://HOST".
inline constexpr std::string_view kReminderSection = "REMINDERS";
inline constexpr std::string_view kConfirmationAddress = "CONFIRMATION_ADDRESS";

// Without a slash at the end; empty when it is not set or no address of the web.
std::string ConfirmationAddress(const session::Settings& settings);

// What stands for `kConfirmationLink`, with variables of its own: HTML in an e-mail and a postcard. Where nobody can
// follow a link, or the service has no address, it asks for a call.
std::string ConfirmationLink(data::ContactMethod method, std::string_view address);

}  // namespace recall
