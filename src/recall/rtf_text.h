#pragma once

#include <cstddef>
#include <string_view>

#include "forms/rich_text.h"

namespace recall {

// As much of a letter as is read to be looked at: bytes of its file, characters of its text.
inline constexpr std::size_t kMostLetterBytes = 16'000'000;
inline constexpr std::size_t kMostLetterText = 100'000;

// The text of an RTF document, with its paragraphs and its bold, italic and underlined parts; pictures, objects,
// fonts, and what is hidden or deleted, are passed over. What is no RTF is taken for plain text. Never fails.
forms::RichText ReadRtf(std::string_view rtf);

}  // namespace recall
