#pragma once

#include <string>
#include <string_view>

namespace host {

// Shown and logged when a second page comes.
constexpr std::string_view kOpenElsewhere =
    "The practice desk is open in another page. Close that page, then load this one again.";

// The page that shows the windows, in HTML; `title` is plain text of this program's.
std::string PageOfWindows(std::string_view title);

// A page of one sentence, in HTML.
std::string PageOfSentence(std::string_view title, std::string_view sentence);

// "page.js": joins the page to the windows, and says in words when they cannot come or have gone.
extern const std::string_view kPageScript;

}  // namespace host
