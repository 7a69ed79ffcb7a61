#pragma once

#include <cstdint>
#include <vector>

#include "data/reminders.h"
#include "data/statements.h"

namespace data {

// What a contact order is for: a kind of reminder, or a stage of a recall.
struct ContactOrderOf {
  ReminderLink link = ReminderLink::Kind;
  ReminderKind kind = {};
  std::int32_t recall = 0;       // `RCRecNum`
  std::int32_t stage = 0;        // `emsSeq`
  session::Value location = {};  // `OffLocID` of the recall

  static ContactOrderOf Kind(ReminderKind kind) { return {.link = ReminderLink::Kind, .kind = kind}; }
};

// The methods without those whose sum is excluded.
std::vector<std::int32_t> Without(std::vector<std::int32_t> methods, std::int32_t excluded);

// By which methods, as `ebcConMet` keeps them, and in which order reminders reach a patient, where the practice's
// defaults do not hold for him. All throw session::DatabaseError.
class ContactOrders {
 public:
  explicit ContactOrders(session::Database& database) : database_(database), statements_(database) {}

  // Whether the practice uses the kind; one without a row yet is used.
  bool Uses(ReminderKind kind) const;

  // How many methods the patient's own order has.
  std::int32_t Count(std::int32_t patient, const ContactOrderOf& of) const;
  // Empty where the defaults hold.
  std::vector<std::int32_t> Read(std::int32_t patient, const ContactOrderOf& of) const;
  // In the caller's transaction, of a kind that the practice uses. Rows are used again; an empty order leaves none, and
  // the defaults hold.
  void Save(std::int32_t patient, const ContactOrderOf& of, const std::vector<std::int32_t>& methods) const;

  // The sum of the methods that the kind's reminders must not use.
  std::int32_t Excluded(std::int32_t patient, ReminderKind kind) const;
  // In the caller's transaction, of a kind that the practice uses. What no recall reminder may use leaves the orders of
  // all his recalls.
  void SetExcluded(std::int32_t patient, ReminderKind kind, std::int32_t methods) const;

 private:
  // " from ...": the rows of all patients; `which` are those of an order, or the one of what is excluded.
  Sql Source(const ContactOrderOf& of, Words which) const;
  // " from ... where ...": the patient's.
  Sql Rows(std::int32_t patient, const ContactOrderOf& of, Words which) const;
  std::vector<std::int32_t> Keys(std::int32_t patient, const ContactOrderOf& of, Words which) const;
  void DropFromRecalls(std::int32_t patient, std::int32_t methods) const;
  std::int32_t LinkedRow(const ContactOrderOf& of) const;
  void Delete(std::int32_t row) const;

  session::Database& database_;
  Statements statements_;
};

}  // namespace data
