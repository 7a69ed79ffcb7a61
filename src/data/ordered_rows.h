#pragma once

#include <cstdint>

#include "data/statements.h"

namespace data {

// A table whose rows are never deleted but end, and whose live rows have an order among those of their owner: 1, 2, 3
// without gaps. The statements that keep it so.
class OrderedRows {
 public:
  struct Columns {
    Words table;
    Words key;
    Words owner;
    Words order;
    Words end_date;
    Words end_user;
    Words flag;  // 0 for a live row
  };

  OrderedRows(session::Session& session, const Columns& columns)
      : session_(session), statements_(session), columns_(columns) {}

  // Today, by the user.
  Sql End(std::int32_t id) const;
  Sql OpenAgain(std::int32_t id) const;
  Sql Place(std::int32_t id, std::int32_t order) const;
  // Where the owner's row of that order has ended: those behind it move up.
  Sql CloseGap(std::int32_t owner, std::int32_t order) const;
  // The reverse.
  Sql OpenGap(std::int32_t owner, std::int32_t order) const;

  // Behind the owner's live rows. Throws session::DatabaseError.
  std::int32_t NextOrder(std::int32_t owner) const;

 private:
  Sql Set(std::int32_t id, const Sql& values) const;
  // Moves the owner's live rows from an order on.
  Sql Shift(std::int32_t owner, Words by, const Sql& from) const;

  session::Session& session_;
  Statements statements_;
  Columns columns_;
};

}  // namespace data
