#pragma once

#include <string>
#include <vector>

class wxTopLevelWindow;

// What is wrong with a shown window for who works in it without the mouse or the eyes, one line a fault, naming the
// widget: "comes before" (the Tab key's stops are not in reading order), "comes back to" a group, "shares Alt+X",
// "leads elsewhere", "is called" nothing or otherwise, "is not heard in" its group. Empty for a good one.
std::vector<std::string> ReachFaults(const wxTopLevelWindow& window);
