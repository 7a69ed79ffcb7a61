#include "data/contact_orders.h"

#include <algorithm>

#include "data/literal.h"
#include "data/reminder_kinds.h"

namespace data {
namespace {

// The row of the excluded methods is no part of an order.
constexpr Words kOfOrder = " and (ebcExc is null or ebcExc=0)";
constexpr Words kExcluding = " and ebcExc>0";

Sql Number(ReminderKind kind) {
  return Literal(static_cast<std::int32_t>(kind));
}

Sql Number(ReminderLink link) {
  return Literal(static_cast<std::int32_t>(link));
}

Sql At(const session::Value& location) {
  return session::ToText(location).empty() ? Sql(" and OffLocID is null")
                                           : " and OffLocID=" + Literal(session::ToId(location));
}

}  // namespace

std::vector<std::int32_t> Without(std::vector<std::int32_t> methods, std::int32_t excluded) {
  std::erase_if(methods, [excluded](std::int32_t method) { return method > 0 && (method & excluded) == method; });
  return methods;
}

bool ContactOrders::Uses(ReminderKind kind) const {
  const auto count = [&](const Sql& condition) {
    return session::ToId(statements_.SelectValue(
        "select count(emmID) from emmTable where emmAppDefTyp=" + Number(kind) + condition + statements_.Office()));
  };
  return count({}) == 0 || count(" and emmEna=1 and offLocID=" + Literal(kAllLocations)) > 0;
}

std::int32_t ContactOrders::Count(std::int32_t patient, const ContactOrderOf& of) const {
  return session::ToId(statements_.SelectValue("Select count(ebcID)" + Rows(patient, of, kOfOrder)));
}

std::vector<std::int32_t> ContactOrders::Read(std::int32_t patient, const ContactOrderOf& of) const {
  std::vector<std::int32_t> methods;
  if (Count(patient, of) == 0) {
    return methods;
  }
  for (const auto rows = statements_.Select("Select ebcConMet" + Rows(patient, of, kOfOrder) + " order by ebcSeq");
       !rows->Eof(); rows->MoveNext()) {
    const std::int32_t method = session::ToId(rows->Get(0));
    if (std::ranges::find(methods, method) == methods.end()) {
      methods.push_back(method);
    }
  }
  return methods;
}

void ContactOrders::Save(std::int32_t patient, const ContactOrderOf& of,
                         const std::vector<std::int32_t>& methods) const {
  const std::vector<std::int32_t> rows = Keys(patient, of, kOfOrder);
  const std::int32_t linked = methods.size() > rows.size() ? LinkedRow(of) : 0;
  for (std::size_t i = 0; i < methods.size(); ++i) {
    const Sql stage = Literal(of.stage);
    const Sql place = Literal(static_cast<std::int32_t>(i + 1));
    const Sql method = Literal(methods[i]);
    if (i < rows.size()) {
      statements_.Execute("update eBusContactSequence set ebcPer=" + stage + ", ebcPid=" + Literal(patient) +
                          ", ebcSeq=" + place + ", ebcConMet=" + method + " Where ebcID=" + Literal(rows[i]) +
                          statements_.Office(" AND (eBusContactSequence.OfficeID=", ")"));
    } else {
      statements_.Insert("eBusContactSequence", {{"ebcLinID", Literal(linked)},
                                                 {"ebcLinTyp", Number(of.link)},
                                                 {"ebcpID", Literal(patient)},
                                                 {"ebcSeq", place},
                                                 {"ebcPer", stage},
                                                 {"ebcConMet", method}});
    }
  }
  for (std::size_t i = methods.size(); i < rows.size(); ++i) {
    Delete(rows[i]);
  }
}

std::int32_t ContactOrders::Excluded(std::int32_t patient, ReminderKind kind) const {
  std::int32_t methods = 0;
  for (const auto rows = statements_.Select("Select ebcExc" + Rows(patient, ContactOrderOf::Kind(kind), kExcluding));
       !rows->Eof(); rows->MoveNext()) {
    methods |= session::ToId(rows->Get(0));
  }
  return methods;
}

void ContactOrders::SetExcluded(std::int32_t patient, ReminderKind kind, std::int32_t methods) const {
  const ContactOrderOf of = ContactOrderOf::Kind(kind);
  std::vector<std::int32_t> rows = Keys(patient, of, kExcluding);
  if (methods != 0 && rows.empty()) {
    statements_.Insert("eBusContactSequence", {{"ebcLinID", Literal(LinkedRow(of))},
                                               {"ebcLinTyp", Number(of.link)},
                                               {"ebcpID", Literal(patient)},
                                               {"ebcSeq", Literal(0)},
                                               {"ebcPer", Literal(0)},
                                               {"ebcConMet", Literal(0)},
                                               {"ebcExc", Literal(methods)}});
  } else if (methods != 0) {
    statements_.Update("eBusContactSequence", {{"ebcExc", Literal(methods)}}, "ebcID", rows.front());
    rows.erase(rows.begin());
  }
  std::ranges::for_each(rows, [this](std::int32_t row) { Delete(row); });
  if (kind == ReminderKind::Recall && methods != 0) {
    DropFromRecalls(patient, methods);
  }
}

// A recall that he is no longer tracked for keeps its rows, and may be his again.
void ContactOrders::DropFromRecalls(std::int32_t patient, std::int32_t methods) const {
  std::vector<ContactOrderOf> orders;
  for (const auto rows = statements_.Select(
           "SELECT DISTINCT RCRecNum, ebcPer, OffLocID" + Source({.link = ReminderLink::Recall}, kOfOrder) +
           " where ebcpID=" + Literal(patient) + statements_.Office(" AND (RSTable.OfficeID=", ")"));
       !rows->Eof(); rows->MoveNext()) {
    orders.push_back({.link = ReminderLink::Recall,
                      .kind = ReminderKind::Recall,
                      .recall = session::ToId(rows->Get(0)),
                      .stage = session::ToId(rows->Get(1)),
                      .location = rows->Get(2)});
  }
  for (const ContactOrderOf& of : orders) {
    const std::vector<std::int32_t> before = Read(patient, of);
    if (const std::vector<std::int32_t> left = Without(before, methods); left != before) {
      Save(patient, of, left);
    }
  }
}

Sql ContactOrders::Source(const ContactOrderOf& of, Words which) const {
  if (of.link == ReminderLink::Recall) {
    return " from RSTable inner join eBusContactSequence on RCRecNum=ebcLinID and ebcLinTyp=" + Number(of.link) +
           which + statements_.OfficeJoin(" and (RSTable.OfficeID=eBusContactSequence.OfficeID)");
  }
  return " from eBusContactSequence inner join EMMTable on emmID=ebcLinID and ebcLinTyp=" + Number(of.link) + which +
         statements_.OfficeJoin(" and (EMMTable.OfficeID=eBusContactSequence.OfficeID)");
}

// A kind counts where the practice uses it; a recall is found at its own location.
Sql ContactOrders::Rows(std::int32_t patient, const ContactOrderOf& of, Words which) const {
  if (of.link == ReminderLink::Recall) {
    return Source(of, which) + " where RCRecNum=" + Literal(of.recall) + " and ebcpID=" + Literal(patient) +
           " and ebcPer=" + Literal(of.stage) + At(of.location) + statements_.Office(" AND (RSTable.OfficeID=", ")");
  }
  return Source(of, which) + " where emmEna=1 and OffLocID=" + Literal(kAllLocations) +
         " and emmAppDefTyp=" + Number(of.kind) + " and ebcpID=" + Literal(patient) +
         statements_.Office(" AND (EMMTable.OfficeID=", ")");
}

std::vector<std::int32_t> ContactOrders::Keys(std::int32_t patient, const ContactOrderOf& of, Words which) const {
  const Sql rows = of.link == ReminderLink::Recall ? Rows(patient, of, which)
                                                   : Source(of, which) + " where ebcpID=" + Literal(patient) +
                                                         " and emmEna=1 and offLocID=" + Literal(kAllLocations) +
                                                         " and emmAppDefTyp=" + Number(of.kind) +
                                                         statements_.Office(" AND (EMMTable.OfficeID=", ")");
  std::vector<std::int32_t> keys;
  for (const auto found = statements_.Select("select ebcID" + rows + " order by ebcID"); !found->Eof();
       found->MoveNext()) {
    keys.push_back(session::ToId(found->Get(0)));
  }
  return keys;
}

std::int32_t ContactOrders::LinkedRow(const ContactOrderOf& of) const {
  if (of.link == ReminderLink::Recall) {
    return of.recall;
  }
  const std::int32_t in_use = session::ToId(
      statements_.SelectValue("select emmID from emmTable where emmEna=1 and offLocID=" + Literal(kAllLocations) +
                              " and emmAppDefTyp=" + Number(of.kind) + statements_.Office()));
  return in_use != 0 ? in_use : ReminderKindRow(database_, of.kind);
}

void ContactOrders::Delete(std::int32_t row) const {
  statements_.Execute("Delete from eBusContactSequence where ebcID=" + Literal(row) + statements_.Office());
}

}  // namespace data
