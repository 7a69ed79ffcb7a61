#pragma once

#include <cstdint>
#include <vector>

#include "data/statements.h"

namespace data {

// Who belongs to whom: `PATable.pFAMHEAIND`, which decides, and the row of `FamTable` that repeats it for every person,
// heads included. A person who names himself, 0 or nobody is a head. Whatever is written leaves both in step for those
// whom it concerns, with rows that were missing. `FamTable` comes first, so that what stops half-way has changed
// nobody's family, and the same call finishes it. All throw session::DatabaseError.
class Families {
 public:
  explicit Families(session::Database& database) : statements_(database) {}

  // The person himself for a head.
  std::int32_t HeadOf(std::int32_t person) const;
  // Everybody who names the head, and he himself if he is one; by ID.
  std::vector<std::int32_t> Of(std::int32_t head) const;
  // The condition on `PATable` for the same.
  static Sql Belongs(std::int32_t head);
  bool HeadsOthers(std::int32_t person) const;

  // A new person, or a member who leaves his family, heads himself.
  void HeadHimself(std::int32_t person) const;
  // To another person's family. One who heads others is not added.
  void Add(std::int32_t person, std::int32_t to) const;
  // The person heads the family that he is in.
  void MakeHead(std::int32_t person) const;
  // The family rows of a person who is deleted go; who names him nevertheless heads himself.
  void Remove(std::int32_t person) const;

 private:
  void Put(const std::vector<std::int32_t>& persons, std::int32_t head) const;
  // In `FamTable`: exactly one row.
  void Repeat(std::int32_t person, std::int32_t head) const;
  std::vector<std::int32_t> Ids(const Sql& select) const;

  Statements statements_;
};

}  // namespace data
