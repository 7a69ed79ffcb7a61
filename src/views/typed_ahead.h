#pragma once

namespace views {

// Keys that were pressed and that no window has heard of yet. They stay where they are.

// Whether one of them writes a character or takes one away.
bool TypingWaits();
// Takes the Esc among them; false when there is none.
bool TakeEscape();

}  // namespace views
