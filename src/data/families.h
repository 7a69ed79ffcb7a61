#pragma once

#include <cstdint>
#include <vector>

#include "data/statements.h"

namespace data {

// Who belongs to whom: `PATable.pFAMHEAIND`, which decides, and the row of `FamTable` that repeats it for every person,
// heads included. A person who names himself, 0 or nobody is a head. Whatever is written leaves both in step for those
// whom it concerns, with rows that were missing, in one transaction. All throw session::DatabaseError.
class Families {
 public:
  explicit Families(session::Database& database) : database_(database), statements_(database) {}

  // The person himself for a head.
  std::int32_t HeadOf(std::int32_t person) const;
  // Everybody who names the head, and he himself if he is one; by ID.
  std::vector<std::int32_t> Of(std::int32_t head) const;
  // The condition on `PATable` for the same.
  static Sql Belongs(std::int32_t head);
  bool HeadsOthers(std::int32_t person) const;

  // Whose rows are written, and whom they name from then on.
  struct Change {
    std::vector<std::int32_t> persons;
    std::int32_t head = 0;
  };
  // To another person's family. One who heads others is not added.
  Change Adding(std::int32_t person, std::int32_t to) const;
  // The person heads the family that he is in.
  Change MakingHead(std::int32_t person) const;
  // A new person, or a member who leaves his family, heads himself.
  static Change HeadingHimself(std::int32_t person) { return {{person}, person}; }
  void Make(const Change& change) const;

  // The family rows of a person who is deleted go, in the caller's transaction; who names him nevertheless heads
  // himself.
  void Remove(std::int32_t person) const;

 private:
  void Put(const Change& change) const;
  // In `FamTable`: exactly one row.
  void Repeat(std::int32_t person, std::int32_t head) const;
  std::vector<std::int32_t> Ids(const Sql& select) const;

  session::Database& database_;
  Statements statements_;
};

}  // namespace data
