#pragma once

#include <cstdint>
#include <string>

#include "editing/rules.h"

namespace editing {

// A person as he is stored, for whoever deletes him.
struct DeletedPerson {
  // Throws Refusal when there is no such person any more.
  static DeletedPerson Read(const data::Statements& statements, std::int32_t id);

  std::int32_t id = 0;
  std::string name;              // "Smith, John"
  std::int32_t family_head = 0;  // 0, or himself, for a head
  bool patient = false;
  bool provider = false;
  bool employee = false;

  bool IsHead() const { return family_head == 0 || family_head == id; }
};

// Deletes persons, as far as nothing stands against it. All throw session::DatabaseError.
class PersonDeletion : public Rules {
 public:
  using Rules::Rules;

  // Tells what stands against it and asks about what it disturbs. Whether to delete him.
  bool MayDelete(const DeletedPerson& person) const;
  // Deletes him with all that is his alone. The caller holds him.
  void Delete(const DeletedPerson& person) const;

 private:
  // What stands against it, without a question; empty for nothing.
  std::string Obstacle(const DeletedPerson& person) const;
  std::string FamilyObstacle(const DeletedPerson& person) const;
  bool AcceptsLostTransactions(const DeletedPerson& person) const;
  bool AcceptsLostCoverage(const DeletedPerson& person) const;
};

}  // namespace editing
