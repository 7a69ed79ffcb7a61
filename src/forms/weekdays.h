#pragma once

#include <array>
#include <bitset>
#include <optional>
#include <string>
#include <string_view>

namespace forms {

// Some days of the week, Monday first.
using Weekdays = std::bitset<7>;

inline constexpr std::array<std::string_view, 7> kWeekdayNames = {"Monday", "Tuesday",  "Wednesday", "Thursday",
                                                                  "Friday", "Saturday", "Sunday"};

// "Mon-Fri", "Mon,Wed,Fri"; days in a row from three on are written from the first to the last, so that no text is
// longer than 20 characters.
std::string FormatWeekdays(Weekdays days);
// What `FormatWeekdays` writes, in any case and with blanks anywhere; nothing for any other text.
std::optional<Weekdays> ParseWeekdays(std::string_view text);

}  // namespace forms
