#include "data/ordered_rows.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <vector>

#include "data/literal.h"

namespace data {

std::int32_t OrderedRows::PlaceOf(std::int32_t order) {
  return order > 0 ? order : std::numeric_limits<std::int32_t>::max();
}

void OrderedRows::Set(std::int32_t id, const Sql& values) const {
  statements_.Execute(Sql("UPDATE ") + columns_.table + " SET " + values + " WHERE " + columns_.key + "=" +
                      Literal(id) + statements_.Office());
}

void OrderedRows::BeginToEnd(std::int32_t id) const {
  Set(id, Sql(columns_.end_date) + "=" + Literal(session_.Today()) + ", " + columns_.end_user + "=" +
              Literal(session_.UserName()) + ", " + columns_.flag + "=" + Literal(kEnding));
}

void OrderedRows::OpenAgain(std::int32_t id) const {
  Set(id, Sql(columns_.end_date) + "=Null, " + columns_.end_user + "=Null, " + columns_.flag + "=" + Literal(kLive));
}

void OrderedRows::SetEnded(std::int32_t id) const {
  Set(id, Sql(columns_.flag) + "=" + Literal(kEnded));
}

void OrderedRows::SetOrder(std::int32_t id, std::int32_t order) const {
  Set(id, Sql(columns_.order) + "=" + Literal(order));
}

Sql OrderedRows::LiveOf(std::int32_t owner) const {
  return Sql("(") + columns_.owner + "=" + Literal(owner) + ") AND (" + columns_.flag + "=0)";
}

bool OrderedRows::IsFree(std::int32_t owner, std::int32_t order) const {
  return session::ToId(statements_.SelectValue(Sql("SELECT Count(") + columns_.key + ") FROM " + columns_.table +
                                               " WHERE " + LiveOf(owner) + " AND (" + columns_.order + "=" +
                                               Literal(order) + ")" + statements_.Office())) == 0;
}

std::int32_t OrderedRows::NextOrder(std::int32_t owner) const {
  return session::ToId(statements_.SelectValue(Sql("SELECT Max(") + columns_.order + ") FROM " + columns_.table +
                                               " WHERE " + LiveOf(owner) + statements_.Office())) +
         1;
}

void OrderedRows::Renumber(std::int32_t owner) const {
  struct Row {
    std::int32_t id = 0;
    std::int32_t order = 0;
  };
  std::vector<Row> rows;
  for (const auto row = statements_.Select(Sql("SELECT ") + columns_.key + ", " + columns_.order + " FROM " +
                                           columns_.table + " WHERE " + LiveOf(owner) + statements_.Office());
       !row->Eof(); row->MoveNext()) {
    rows.push_back({session::ToId(row->Get(0)), session::ToId(row->Get(1))});
  }
  std::ranges::sort(rows, {}, [](const Row& row) { return std::tuple(PlaceOf(row.order), row.id); });
  std::int32_t order = 0;
  for (const Row& row : rows) {
    if (row.order != ++order) {
      SetOrder(row.id, order);
    }
  }
}

void OrderedRows::CloseGap(std::int32_t owner) const {
  std::int32_t order = 1;
  std::int32_t last = 0;
  for (const auto row = statements_.Select(Sql("SELECT ") + columns_.order + " FROM " + columns_.table + " WHERE " +
                                           LiveOf(owner) + statements_.Office() + " ORDER BY " + columns_.order);
       !row->Eof(); row->MoveNext()) {
    last = session::ToId(row->Get(0));
    order += last == order ? 1 : 0;
  }
  if (last < order) {
    return;
  }
  statements_.Execute(Sql("UPDATE ") + columns_.table + " SET " + columns_.table + "." + columns_.order + " = [" +
                      columns_.table + "].[" + columns_.order + "]-1 WHERE " + LiveOf(owner) + " AND (" +
                      columns_.order + ">" + Literal(order) + ")" + statements_.Office());
}

}  // namespace data
