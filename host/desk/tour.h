#pragma once

#include <functional>
#include <string>

#include "desk/desk.h"

class wxTopLevelWindow;

namespace host {

using VisitWindow = std::function<void(const std::string& name, wxTopLevelWindow& window)>;

// Opens every window of the desk on its practice, one after the other, lets `visit` see each when it has been painted,
// and closes it. A screen's window is called after its form, with what is special about it behind a "-". The practice
// must hold the demo's data; asks for no login.
void VisitWindows(Desk& desk, const VisitWindow& visit);

// Writes a picture of every window to the folder, as NAME.png, or NAME@2x.png at twice the size, with "-dark" behind
// the name where the desktop is dark. False when one could not be written.
bool TakePictures(Desk& desk, const std::string& folder);

}  // namespace host
