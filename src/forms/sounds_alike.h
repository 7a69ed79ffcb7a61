#pragma once

#include <string>
#include <string_view>
#include <vector>

// Names by how they sound in English, so that a person is found whose name is written otherwise.
namespace forms {

// The sounds of a word's consonants, with the spellings of one sound as one ("ph", "f" and "v"; "c", "ck" and "k"; "d",
// "dt" and "th"), the silent ones and doubles left out, and "A" for a vowel at the front. Accents do not count. Letters
// of other scripts stand for themselves; empty for a text without letters.
std::string SoundOf(std::string_view word);

// Two names that are equal but for case, or that sound the same when all is written as one word, or of which every word
// of the shorter sounds like one of the longer: "Mary Ann" and "Marie", "Van Dyke" and "Vandyck". Initials do not count
// beside words.
bool SoundAlike(std::string_view name, std::string_view other);

// How names may begin whose first word sounds like this one's: "K", "C" and "Q". Empty for an empty text.
std::vector<std::string> BeginningsAlike(std::string_view name);

}  // namespace forms
