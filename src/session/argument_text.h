#pragma once

#include <cstdint>
#include <string>

#include "forms/currency.h"

// The arguments and properties of screens as text, for callers that know them by name alone.
namespace session {

// Truth values are "True" and "False"; "1", "-1", "on" and "true" are read as true.
std::string TextOf(bool value);
std::string TextOf(std::int32_t value);
std::string TextOf(double value);
std::string TextOf(forms::Currency value);
std::string TextOf(const std::string& value);

// An empty text leaves the value as it is; what is none of its type is 0 or False.
void ReadText(const std::string& text, bool& value);
void ReadText(const std::string& text, std::int32_t& value);
void ReadText(const std::string& text, double& value);
void ReadText(const std::string& text, forms::Currency& value);
void ReadText(const std::string& text, std::string& value);

}  // namespace session
