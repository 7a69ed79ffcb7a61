#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"
#include "session/screens.h"

namespace entry {

// The class names of every form that can be opened by name.
std::vector<std::string> FormNames();

// A new form of that class, its inputs at their defaults; nullptr when there is no such class. Case does not matter.
// An editing screen takes "NEW", "EMERGENCY" or an ID by its property "Mode".
std::unique_ptr<forms::Form> MakeForm(std::string_view name, const session::ScreenContext& context);

// The screen that edits such records, while one is open, whoever opened it; nullptr otherwise.
const forms::Form* OpenScreenOf(session::RecordKind kind);

// Opens the screen that edits records of this kind, or says that it is not part of this version. Opens nothing, and
// says nothing, while that screen is open already.
session::Outcome EditRecord(const session::ScreenContext& context, const session::Opening& opening);

// Asks to close the screen that is open first.
void TellAlreadyOpen(forms::User& user, const forms::Form& open);

// The screens as they reach one another, for a host that opens forms by name.
std::unique_ptr<session::Screens> MakeScreens(session::Session& session, forms::User& user);

}  // namespace entry
