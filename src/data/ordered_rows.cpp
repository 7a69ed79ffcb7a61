#include "data/ordered_rows.h"

#include "data/literal.h"

namespace data {

Sql OrderedRows::Set(std::int32_t id, const Sql& values) const {
  return Sql("UPDATE ") + columns_.table + " SET " + values + " WHERE " + columns_.key + "=" + Literal(id) +
         statements_.Office();
}

Sql OrderedRows::End(std::int32_t id) const {
  return Set(id, Sql(columns_.end_date) + "=" + Literal(session_.Today()) + ", " + columns_.end_user + "=" +
                     Literal(session_.UserName()) + ", " + columns_.flag + "=1");
}

Sql OrderedRows::OpenAgain(std::int32_t id) const {
  return Set(id, Sql(columns_.end_date) + "=Null, " + columns_.end_user + "=Null, " + columns_.flag + "=0");
}

Sql OrderedRows::Place(std::int32_t id, std::int32_t order) const {
  return Set(id, Sql(columns_.order) + "=" + Literal(order));
}

Sql OrderedRows::Shift(std::int32_t owner, Words by, const Sql& from) const {
  return Sql("UPDATE ") + columns_.table + " SET " + columns_.table + "." + columns_.order + " = [" + columns_.table +
         "].[" + columns_.order + "]" + by + " WHERE (" + columns_.owner + "=" + Literal(owner) + ") AND (" +
         columns_.flag + "=0) AND (" + columns_.order + from + ")" + statements_.Office();
}

Sql OrderedRows::CloseGap(std::int32_t owner, std::int32_t order) const {
  return Shift(owner, "-1 ", ">" + Literal(order));
}

Sql OrderedRows::OpenGap(std::int32_t owner, std::int32_t order) const {
  return Shift(owner, "+1 ", ">=" + Literal(order));
}

std::int32_t OrderedRows::NextOrder(std::int32_t owner) const {
  return session::ToId(statements_.SelectValue(Sql("SELECT Max(") + columns_.order + ") FROM " + columns_.table +
                                               " WHERE (" + columns_.owner + "=" + Literal(owner) + ") AND (" +
                                               columns_.flag + "=0)" + statements_.Office())) +
         1;
}

}  // namespace data
