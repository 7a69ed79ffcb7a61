#include "data/holdings.h"

#include <algorithm>

#include "data/literal.h"

namespace data {

Holdings::Holdings(session::Session& session)
    : session_(session), statements_(session), rows_(session, kColumns), coverages_(session) {}

std::int32_t Holdings::Add(std::int32_t subscriber, std::int32_t link) const {
  return Insert(subscriber, link, rows_.NextOrder(subscriber));
}

std::int32_t Holdings::Insert(std::int32_t subscriber, std::int32_t link, std::int32_t order) const {
  return statements_.Insert("PatEmpTable", {{"PatEmpPatID", Literal(subscriber)},
                                            {"PatEmpElID", Literal(link)},
                                            {"PatEmpOrd", Literal(order)},
                                            {"PatEmpStaDat", Literal(session_.Today())},
                                            {"PatEmpFla", "0"}});
}

void Holdings::Change(std::int32_t subscriber, std::int32_t from_link, std::int32_t to_link) const {
  if (from_link == to_link) {
    return;
  }
  for (const Holding& held : Of(subscriber, from_link)) {
    BeginToMove(held.id, to_link);
    SetEnded(held.id);
  }
}

void Holdings::Remove(std::int32_t holding) const {
  BeginToRemove(holding);
  SetEnded(holding);
}

void Holdings::BeginToMove(std::int32_t holding, std::int32_t to_link) const {
  const auto held = Find(holding);
  if (!held) {
    return;
  }
  const auto kept = LiveOf(held->subscriber, to_link);
  if (!kept) {
    coverages_.Move(holding, Succeed(*held, to_link));
  } else {
    Merge(*held, *kept);
    coverages_.Move(holding, kept->id);
  }
}

std::int32_t Holdings::Succeed(const Holding& old, std::int32_t to_link) const {
  if (old.live) {
    rows_.BeginToEnd(old.id);
  }
  try {
    const bool free = rows_.IsFree(old.subscriber, old.order);
    return Insert(old.subscriber, to_link, free ? old.order : rows_.NextOrder(old.subscriber));
  } catch (const session::DatabaseError&) {
    rows_.OpenAgain(old.id);
    throw;
  }
}

void Holdings::Merge(const Holding& old, const Holding& kept) const {
  if (old.live) {
    rows_.BeginToEnd(old.id);
  }
  if (old.order < kept.order && rows_.IsFree(old.subscriber, old.order)) {
    rows_.SetOrder(kept.id, old.order);
  }
  rows_.CloseGap(old.subscriber);
}

void Holdings::BeginToRemove(std::int32_t holding) const {
  coverages_.RemoveThrough(holding);
  if (const auto held = Find(holding)) {
    if (held->live) {
      rows_.BeginToEnd(holding);
    }
    rows_.CloseGap(held->subscriber);
  }
}

std::optional<Holding> Holdings::Find(std::int32_t holding) const {
  const auto found = Read("(PatEmpID=" + Literal(holding) + ")");
  return found.empty() ? std::nullopt : std::optional(found.front());
}

std::vector<Holding> Holdings::Of(std::int32_t subscriber, std::int32_t link) const {
  return Read("(PatEmpPatID=" + Literal(subscriber) + ") AND (PatEmpElID=" + Literal(link) + ")");
}

std::optional<Holding> Holdings::LiveOf(std::int32_t subscriber, std::int32_t link) const {
  const auto held = Of(subscriber, link);
  const auto live = std::ranges::find_if(held, &Holding::live);
  return live == held.end() ? std::nullopt : std::optional(*live);
}

std::optional<Holding> Holdings::Live(std::int32_t holding) const {
  const auto held = Find(holding);
  return held && held->live ? held : std::nullopt;
}

std::vector<Holding> Holdings::On(std::int32_t link) const {
  return Read("(PatEmpElID=" + Literal(link) + ")");
}

std::vector<Holding> Holdings::Of(std::int32_t subscriber) const {
  return Read("(PatEmpPatID=" + Literal(subscriber) + ")");
}

std::vector<Holding> Holdings::Read(const Sql& condition) const {
  std::vector<Holding> holdings;
  for (const auto row =
           statements_.Select("SELECT PatEmpID, PatEmpPatID, PatEmpElID, PatEmpOrd, PatEmpFla FROM PatEmpTable WHERE " +
                              condition + " AND ((PatEmpFla=0) OR (PatEmpFla=" + Literal(OrderedRows::kEnding) + "))" +
                              statements_.Office() + " ORDER BY PatEmpPatID, PatEmpOrd, PatEmpID");
       !row->Eof(); row->MoveNext()) {
    const auto number = [&](std::size_t field) { return session::ToId(row->Get(field)); };
    holdings.push_back({number(0), number(1), number(2), number(3), number(4) == OrderedRows::kLive});
  }
  return holdings;
}

int Holdings::Count(std::int32_t subscriber) const {
  return session::ToId(statements_.SelectValue("SELECT Count(PatEmpID) FROM PatEmpTable WHERE (PatEmpPatID=" +
                                               Literal(subscriber) + ") AND (PatEmpFla=0)" + statements_.Office()));
}

std::int32_t Holdings::SubscriberOf(std::int32_t holding) const {
  return session::ToId(statements_.SelectValue(
      "SELECT PatEmpPatID FROM PatEmpTable WHERE PatEmpID=" + Literal(holding) + statements_.Office()));
}

}  // namespace data
