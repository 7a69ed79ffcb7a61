#pragma once

#include <cstdint>
#include <string>

#include "data/reminders.h"

namespace recall {

// As `LanguageType` has it.
enum class Language : std::int32_t { English, Spanish };

// What a message says for which the practice has written no text of its own: HTML for an e-mail and a postcard, the
// file below the data folder's "WP" for a letter, plain text otherwise; empty for a kind or a method without one.
std::string GenericMessage(data::ReminderKind kind, data::ContactMethod method, Language language);

}  // namespace recall
