#pragma once

#include <cstdint>

#include "data/statements.h"

namespace data {

// A table whose rows are never deleted but end, and whose live rows have an order among those of their owner: 1, 2, 3
// without gaps. A row ends in two steps, so that what stops between them is found: while a successor, the others'
// orders or anything else that follows from its end is still due it is ending, then it has ended. All throw
// session::DatabaseError.
class OrderedRows {
 public:
  struct Columns {
    Words table;
    Words key;
    Words owner;
    Words order;
    Words end_date;
    Words end_user;
    Words flag;
  };
  // Of the flag; any other value is an ended row's as well.
  static constexpr std::int32_t kLive = 0;
  static constexpr std::int32_t kEnded = 1;
  static constexpr std::int32_t kEnding = 99;

  OrderedRows(session::Session& session, const Columns& columns)
      : session_(session), statements_(session), columns_(columns) {}

  // What rows are sorted by: one without an order, which is read as 0, is behind the others.
  static std::int32_t PlaceOf(std::int32_t order);

  // Today, by the user.
  void BeginToEnd(std::int32_t id) const;
  void OpenAgain(std::int32_t id) const;
  void SetEnded(std::int32_t id) const;

  void SetOrder(std::int32_t id, std::int32_t order) const;
  // Whether no live row of the owner has the order.
  bool IsFree(std::int32_t owner, std::int32_t order) const;
  // Behind the owner's live rows.
  std::int32_t NextOrder(std::int32_t owner) const;
  // The owner's live rows are 1, 2, 3 in their order, whatever they were; those without one come last.
  void Renumber(std::int32_t owner) const;
  // Where an order is missing, those behind it move up by one.
  void CloseGap(std::int32_t owner) const;

 private:
  void Set(std::int32_t id, const Sql& values) const;
  Sql LiveOf(std::int32_t owner) const;

  session::Session& session_;
  Statements statements_;
  Columns columns_;
};

}  // namespace data
