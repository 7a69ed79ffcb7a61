#pragma once

#include <wx/stattext.h>
#include <wx/toplevel.h>

#include <string>
#include <vector>

// What a screen reader finds, what Alt and a letter do, and what a window manager says, as GTK itself tells.

// The names of the groups around a widget, the innermost first.
std::vector<std::string> AccessibleGroups(const wxWindow& widget);
// Whether the caption's mnemonic leads to the widget.
bool LeadsTo(const wxStaticText& caption, const wxWindow& widget);
// Whether the display gives the window the keys.
bool HasKeyboard(const wxTopLevelWindow& window);
// Tells the window of a frame around it, as a desktop's window manager does.
void TellOfFrame(const wxTopLevelWindow& window, int edge, int title);
// False when the window has no such mnemonic.
bool PressMnemonic(const wxTopLevelWindow& window, char letter);
