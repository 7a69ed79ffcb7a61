#pragma once

#include <string>
#include <vector>

class wxTopLevelWindow;

// What is wrong with how a shown window is laid out, one line a fault, naming the widget: "clipped", "outside its
// parent", "overlaps", "has no name". Empty for a good layout.
std::vector<std::string> LayoutFaults(const wxTopLevelWindow& window);
