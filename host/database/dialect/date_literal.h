#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace host::sql {

// What stands between the "#" of a date literal, in the one form in which moments are stored: "1980-01-02" at
// midnight, "1980-01-02 14:05:00" otherwise. Read are month/day/year or year-month-day, a time, or both; a time alone
// is one of 1899-12-30. Nothing when the text is no moment.
std::optional<std::string> IsoMoment(std::string_view text);

}  // namespace host::sql
