#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/reminders.h"

namespace recall {

// As `LanguageType` has it.
enum class Language : std::int32_t { English, Spanish };

// What a message says for which the practice has written no text of its own: HTML for an e-mail and a postcard, the
// file below the data folder's "WP" for a letter, plain text otherwise; empty for a kind or a method without one.
std::string GenericMessage(data::ReminderKind kind, data::ContactMethod method, Language language);

// Whether an e-mail is a document like the birthday's generic message, with a page and a font of its own.
bool IsDocument(std::string_view html);
// Such a document of the paragraphs, which are as `forms::WriteHtml` writes them.
std::string AsDocument(const std::string& paragraphs);

}  // namespace recall
