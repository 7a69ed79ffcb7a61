#pragma once

#include <string>
#include <string_view>

// Numbers of payment cards, which nobody is shown whole.
namespace forms {

// As it is shown: "************1234"; of four digits or fewer not one.
std::string MaskedCardNumber(std::string_view number);
// Twelve to nineteen digits, apart from blanks and dashes, of which the last one checks the others.
bool IsCardNumber(std::string_view typed);
// A text in which every run of twelve digits or more, apart from blanks and dashes, is masked: what a statement or a
// message says.
std::string WithoutCardNumbers(std::string_view text);

}  // namespace forms
