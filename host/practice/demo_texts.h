#pragma once

#include <array>
#include <string_view>

// What a demo practice writes to its patients, with the variables that are put in for each.
namespace host::demo {

// The tones of a recall's stages, from the friendly one to the last.
enum class Tone { Due, Missed, Overdue, LongOverdue, Last };

struct RecallText {
  std::string_view letter_file;  // below the data folder's "WP"; '\' separates its folders
  std::string_view letter;       // the letter's own sentences
  std::string_view message;
  std::string_view spanish;
};

const RecallText& TextOf(Tone tone);

// Every tone's text.
inline constexpr std::array kTones = {Tone::Due, Tone::Missed, Tone::Overdue, Tone::LongOverdue, Tone::Last};

}  // namespace host::demo
