#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "data/sql.h"
#include "session/screens.h"

namespace people {

struct TypedName {
  std::string last;
  std::string first;

  friend bool operator==(const TypedName&, const TypedName&) = default;
};

// "Smith, John" and "John Smith" alike. Without a comma the last word is the last name and the words before it the
// first name; one word is a last name.
TypedName ParseName(std::string_view text);

// A typed ID or name; text that is a whole number is an ID, 0 for one that is too large.
std::variant<std::int32_t, TypedName> ParseNameOrId(std::string_view text);

// The conditions that find the persons whose names begin as typed, the likeliest reading first. Typed without a comma,
// each of the words may begin the last name ("Mary van Dyke"), the order may be reversed, and all may be one name.
std::vector<data::Sql> NameConditions(const session::Database& database, std::string_view typed);

// The statement that finds all of them. `sort` is what stands behind "order by".
data::Sql NameSearch(session::Database& database, std::string_view text, bool family_heads,
                     const data::Sql& sort = data::Words("pLasNam, pFirNam"));

enum class EntryOutcome { None, Edited, Added };
struct NameEntry {
  EntryOutcome outcome = EntryOutcome::None;
  std::int32_t patient = 0;    // 0 for none
  bool save_and_book = false;  // the choice made on the screen
};

// What the name prompt takes.
struct NamePrompt {
  bool ids = true;            // a number is a patient's ID; otherwise it is a name like any other
  bool family_heads = false;  // finds family heads alone
};

// Whom the name prompt gave.
struct NamedPatient {
  enum class End { Found, New, None };  // New: one of the typed name is to be added

  End end = End::None;
  std::int32_t id = 0;
  std::string typed = {};
};
// Asks for a name or ID, and finds or offers to add the patient.
NamedPatient AskForPatient(const session::ScreenContext& context, const NamePrompt& prompt = {});

// What is told of an ID that nobody has.
std::string NoSuchPatient(std::string_view id);

// The way in to a patient: asks for him, and opens the quick screen.
NameEntry EnterPatient(const session::ScreenContext& context, const NamePrompt& prompt = {});

}  // namespace people
