#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "forms/color.h"

namespace host {

// "#80FF00"
std::string ColorText(forms::Color color);
// Nothing when the text is no colour of that form.
std::optional<forms::Color> ParseColor(std::string_view text);

}  // namespace host
