#pragma once

#include <string_view>

namespace fuzz {

// Whether the HTML has no tag and no attribute but those that rich text is written in: nothing that acts by itself, and
// nothing that is fetched.
bool IsSafeHtml(std::string_view html);

}  // namespace fuzz
