#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "forms/currency.h"
#include "forms/dates.h"
#include "session/value.h"

// How values are written into statements: one function a type.
namespace data {

// A text value: 'O''Brien'.
std::string Literal(std::string_view text);
std::string Literal(std::int32_t number);
std::string Literal(forms::Currency amount);
// #01/02/1980#
std::string Literal(forms::Date date);
// #01/02/1980 14:05:00#
std::string Literal(forms::DateTime time);
// By what the value holds; null is "Null". A GUID is written as text.
std::string ValueLiteral(const session::Value& value);

// A "Like" pattern for what begins with, or contains, the text; wildcards in the text stand for themselves.
std::string LikeBeginning(std::string_view text);
std::string LikeContaining(std::string_view text);

}  // namespace data
