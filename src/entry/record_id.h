#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "session/screens.h"

// Record IDs as the public methods have them: a number, or a text in its place.
namespace entry {

inline constexpr std::string_view kNew = "NEW";

// "NEW", for a patient "EMERGENCY", or a number, in whatever case; an empty text is "NEW". False for any other text.
bool ReadId(std::string_view id, session::Opening& opening);
std::string IdText(const session::Opening& opening);

// The ID as a person's method gives it back: the saved record's, "CANCEL_AND_CLOSE", also when it was deleted, or
// "ALREADY_OPEN"; nothing when it stays as it was given.
std::optional<std::string> IdText(const session::Outcome& outcome);
// What became of the record, by the ID that came back. A number is a saved record's.
session::Outcome ReadOutcome(const std::string& id);

// The person-type keys ("PTYPEMP"), in whatever case.
std::optional<session::RecordKind> PersonKind(std::string_view key);
// Empty for what is edited by a method of its own.
std::string_view PersonKey(session::RecordKind kind);

}  // namespace entry
