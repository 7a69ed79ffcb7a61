#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace forms {

// Bytes that are no UTF-8 become U+FFFD.
std::u32string ToUtf32(std::string_view utf8);
std::string ToUtf8(std::u32string_view text);

// One of 0 to 9.
constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// 12403 as "12,403".
std::string WithThousands(int number);

std::size_t CharacterCount(std::string_view utf8);
// The first `count` characters.
std::string Left(std::string_view utf8, std::size_t count);
// As much as there is room for, in characters; 0 is unlimited, as `TextBox::MaxLength` and a column's size have it.
std::string Fitting(std::string_view utf8, int room);

// Without the blanks, tabs and line breaks at both ends.
std::string_view Trim(std::string_view text);

// '*' in the place of every character but the last four; of every one where there are no more.
std::string Masked(const std::string& utf8);

// Tabs and line breaks as blanks, a CR LF as one.
std::string OnOneLine(std::string_view text);

// Case of Latin, Greek and Cyrillic letters, one character for one, wherever the program runs; others stay.
std::string ToUpper(std::string_view utf8);
std::string ToLower(std::string_view utf8);
// First letter of each word upper, the others lower; an apostrophe stands within a word.
std::string ToProper(std::string_view utf8);

// A caption as a person reads it, without the "&" before its mnemonic; "&&" is one "&".
std::string WithoutMnemonic(std::string_view caption);
// The text as a caption with the first of that letter, in either case, for its mnemonic.
std::string WithMnemonic(std::string_view text, char letter);
// The letter behind the "&", lower case; 0 for none.
char MnemonicOf(std::string_view caption);

// A setting that is set: "1", "-1", "on", "true", "yes" or "y" in any case.
bool IsOn(std::string_view text);

bool EqualsIgnoringCase(std::string_view left, std::string_view right);

}  // namespace forms
