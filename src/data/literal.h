#pragma once

#include <cstdint>
#include <string_view>

#include "data/sql.h"
#include "forms/currency.h"
#include "forms/dates.h"
#include "session/value.h"

// How values are written into statements: one function a type.
namespace data {

// A text value: 'O''Brien'.
Sql Literal(std::string_view text);
Sql Literal(std::int32_t number);
Sql Literal(forms::Currency amount);
// #01/02/1980#
Sql Literal(forms::Date date);
// #01/02/1980 14:05:00#
Sql Literal(forms::DateTime time);
// By what the value holds; null is "Null". A GUID is written as text.
Sql ValueLiteral(const session::Value& value);
// A typed number as it stands; any other text as a text value.
Sql NumberLiteral(std::string_view typed);

// A "Like" pattern for what begins with, or contains, the text; wildcards in the text stand for themselves.
Sql LikeBeginning(std::string_view text);
Sql LikeContaining(std::string_view text);
// As `LikeBeginning`, in double quotes: "Smith%".
Sql LikeBeginningInDoubleQuotes(std::string_view text);

// A column by a name that is known when running only: [Last Name].
Sql Bracketed(std::string_view name);

}  // namespace data
