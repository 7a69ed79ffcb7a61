#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/statements.h"
#include "lookup/list_commands.h"
#include "session/screens.h"

namespace lookup {

// One kind of look-up list: what it shows, and what becomes of the choice.
struct ListDefinition {
  // The person-type key ("pTypDoc") that the session is told before the list is shown; empty for lists of records.
  std::string kind_key;
  ListCommands commands = {};
  std::string title;    // unless the caller gives one
  std::string caption;  // of the window; empty for the title
  // The list's name, its ID and its name column, then the columns that a person tells the rows apart by and what the
  // list allows ("Delete") or begins with ("ALL" its rows).
  std::vector<std::string> window_texts;
  data::Sql sql;
  data::Sql sort;
  std::string layout_key;
  // Under which the host is told the choice; empty when it is not told.
  std::string hand_off_column;
  std::string hand_off_table;
  // The condition for the records of an office location; null where they have none.
  data::Sql (*at_location)(const data::Statements& statements, std::int32_t location) = nullptr;

  const std::string& ListName() const { return window_texts[0]; }
  const std::string& IdColumn() const { return window_texts[1]; }
  const std::string& NameColumn() const { return window_texts[2]; }
};

inline constexpr std::int32_t kListKinds = 14;

// Throws std::out_of_range for no kind of list.
ListDefinition DefinitionOf(session::LookUpListTypes type, const data::Statements& statements,
                            const session::ListOptions& options = {});

// The columns of a short list.
inline constexpr const char* kPickCode = "Code";
inline constexpr const char* kPickDescription = "Description";
ListDefinition DefinitionOf(session::PickList list, const data::Statements& statements);

}  // namespace lookup
