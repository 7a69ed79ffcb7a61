#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "data/statements.h"
#include "lookup/delete_flow.h"
#include "session/screens.h"

namespace lookup {

// One kind of look-up list: what it shows, and what becomes of the choice.
struct ListDefinition {
  // The person-type key ("pTypDoc") that the session is told before the list is shown; empty for lists of records.
  std::string kind_key;
  // What the list's New and Edit edit; nothing for a list whose caller adds.
  std::optional<session::RecordKind> edits = {};
  // What the list's Delete does; null where nothing is deleted.
  DeleteFlow deletes = nullptr;
  std::string title;    // unless the caller gives one
  std::string caption;  // of the window; empty for the title
  // The list's name, its ID and its name column, then the columns that a person tells the rows apart by and the
  // commands of the list ("Delete"; "ALL": it starts unfiltered).
  std::vector<std::string> window_texts;
  data::Sql sql;
  data::Sql sort;
  std::string layout_key;
  // Under which the host is told the choice; empty when it is not told.
  std::string hand_off_column;
  std::string hand_off_table;

  const std::string& ListName() const { return window_texts[0]; }
  const std::string& IdColumn() const { return window_texts[1]; }
  const std::string& NameColumn() const { return window_texts[2]; }
  bool HasCommand(const std::string& command) const;
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
