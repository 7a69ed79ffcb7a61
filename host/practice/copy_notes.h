#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "database/database.h"
#include "practice/copied_table.h"

namespace host {

// What the target of a copy knows of it, in tables of its own that the copy ends with. Until then it is no practice
// that could be opened. All throw session::DatabaseError.
class CopyNotes {
 public:
  // Makes the tables of a practice in a vacant database, or goes on with a copy of the same kind of practice that was
  // broken off there.
  CopyNotes(const PracticeDatabase& target, const CreationOptions& options);

  // How far a table has come; nothing before its first row.
  std::optional<RowPlace> Behind(const Table& table) const;
  // In the transaction that brings the rows.
  void Note(const Table& table, const RowPlace& place) const;
  // The table is copied anew.
  void Forget(const Table& table) const;
  // The target is a practice from now on.
  void Finish() const;

 private:
  const PracticeDatabase& target_;
};

}  // namespace host
