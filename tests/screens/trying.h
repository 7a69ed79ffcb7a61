#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "forms/form.h"
#include "forms/text_box.h"

// What a person does who does not know the screen.
namespace screens_test {

// Types into the box the first of the texts, or a date, a letter or a number, with which a rule lets the focus go.
void TypeInto(forms::TextBox& box, std::string_view text);
// Types into every box that takes typing.
void FillIn(forms::Form& form, std::string_view text);
// What every text box that can be seen shows.
std::map<std::string, std::string> Texts(const forms::Form& form);

// What stands in every field that is bound to a column, seen or not.
std::map<std::string, std::string> BoundTexts(const forms::Form& form);

// Presses the button that leaves the screen, with what was done or without; false when it has none.
bool PressOK(forms::Form& form);
bool PressCancel(forms::Form& form);
// Esc where the focus is, until it closes the screen: an open panel takes it first.
void PressEsc(forms::Form& form);

// Tries every control in every way that its kind offers, and what drops below it; `tried` hears of each try. What
// closed the form is added to `closers` and left alone from then on; false when something did.
bool TryEverything(forms::Form& form, std::set<std::string>& closers,
                   const std::function<void(const std::string& what)>& tried);
// Does in a window over the screen what is likely to have an effect there: a text, a row, OK. It is the last row for
// the first window and goes up from there, so that one that comes again for another choice gets one.
void Accept(forms::Form& form, int window);

}  // namespace screens_test
