#include "data/holdings.h"

#include <algorithm>

#include "data/literal.h"
#include "data/revocable.h"

namespace data {
namespace {

constexpr OrderedRows::Columns kColumns = {"PatEmpTable",  "PatEmpID",     "PatEmpPatID", "PatEmpOrd",
                                           "PatEmpEndDat", "PatEmpEndWho", "PatEmpFla"};

}  // namespace

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
  if (const auto held = Find(subscriber, from_link)) {
    Move(held->id, to_link);
  }
}

void Holdings::Move(std::int32_t holding, std::int32_t to_link, const Told& told) const {
  const auto held = Get(holding);
  if (!held || held->link == to_link) {
    return;
  }
  const auto kept = Find(held->subscriber, to_link);
  if (!held->live && kept) {
    coverages_.Move(holding, kept->id);
    return;
  }
  Revocable steps(statements_);
  std::int32_t moved_to = 0;
  steps.Run(rows_.End(holding), rows_.OpenAgain(holding));
  if (kept) {
    moved_to = kept->id;
    const std::int32_t freed = std::max(held->order, kept->order);
    if (held->order < kept->order) {
      steps.Run(rows_.Place(kept->id, held->order), rows_.Place(kept->id, kept->order));
    }
    steps.Run(rows_.CloseGap(held->subscriber, freed), rows_.OpenGap(held->subscriber, freed));
  } else {
    moved_to = Insert(held->subscriber, to_link, PlaceOf(*held));
    steps.Back(rows_.End(moved_to));
  }
  if (told) {
    told();
  }
  steps.Keep();
  coverages_.Move(holding, moved_to);
}

// Another one may have moved up into the place of one that has ended.
std::int32_t Holdings::PlaceOf(const Holding& holding) const {
  const bool free =
      holding.live || Read("(PatEmpTable.PatEmpPatID=" + Literal(holding.subscriber) +
                           ") AND (PatEmpTable.PatEmpOrd=" + Literal(holding.order) + ") AND (PatEmpTable.PatEmpFla=0)")
                          .empty();
  return free ? holding.order : rows_.NextOrder(holding.subscriber);
}

// The holding itself ends last: until then the same can be asked for again.
void Holdings::Remove(std::int32_t holding, const Told& told) const {
  coverages_.RemoveThrough(holding);
  const auto held = Get(holding);
  if (!held || !held->live) {
    return;
  }
  Revocable steps(statements_);
  steps.Run(rows_.End(holding), rows_.OpenAgain(holding));
  steps.Run(rows_.CloseGap(held->subscriber, held->order), rows_.OpenGap(held->subscriber, held->order));
  if (told) {
    told();
  }
  steps.Keep();
}

std::optional<Holding> Holdings::Get(std::int32_t holding) const {
  const auto found = Read("(PatEmpTable.PatEmpID=" + Literal(holding) + ")");
  return found.empty() ? std::nullopt : std::optional(found.front());
}

std::optional<Holding> Holdings::Find(std::int32_t subscriber, std::int32_t link) const {
  const auto found = Read("(PatEmpTable.PatEmpPatID=" + Literal(subscriber) +
                          ") AND (PatEmpTable.PatEmpElID=" + Literal(link) + ") AND (PatEmpTable.PatEmpFla=0)");
  return found.empty() ? std::nullopt : std::optional(found.front());
}

std::vector<Holding> Holdings::On(std::int32_t link) const {
  return ReadUnfinished("(PatEmpTable.PatEmpElID=" + Literal(link) + ")");
}

std::vector<Holding> Holdings::Of(std::int32_t subscriber) const {
  return ReadUnfinished("(PatEmpTable.PatEmpPatID=" + Literal(subscriber) + ")");
}

std::vector<Holding> Holdings::ReadUnfinished(const Sql& condition) const {
  return Read(condition +
              " AND ((PatEmpTable.PatEmpFla=0) OR EXISTS (SELECT CovID FROM CovTable WHERE "
              "(CovTable.CovSubPatEmpID = PatEmpTable.PatEmpID) AND (CovTable.CovFla=0)" +
              statements_.OfficeJoin(" and (CovTable.OfficeID = PatEmpTable.OfficeID) ") + "))");
}

std::vector<Holding> Holdings::Read(const Sql& condition) const {
  std::vector<Holding> holdings;
  for (const auto row = statements_.Select(
           "SELECT PatEmpID, PatEmpPatID, PatEmpElID, PatEmpOrd, PatEmpFla FROM PatEmpTable WHERE " + condition +
           statements_.Office(" and (PatEmpTable.OfficeID = ", ") ") + " ORDER BY PatEmpPatID, PatEmpOrd, PatEmpID");
       !row->Eof(); row->MoveNext()) {
    const auto number = [&](std::size_t field) { return session::ToId(row->Get(field)); };
    holdings.push_back({number(0), number(1), number(2), number(3), number(4) == 0});
  }
  return holdings;
}

int Holdings::Count(std::int32_t subscriber) const {
  return session::ToId(statements_.SelectValue("SELECT Count(PatEmpID) FROM PatEmpTable WHERE (PatEmpPatID=" +
                                               Literal(subscriber) + ") AND (PatEmpFla=0)" + statements_.Office()));
}

std::int32_t Holdings::SubscriberOf(std::int32_t holding) const {
  const auto held = Get(holding);
  return held ? held->subscriber : 0;
}

}  // namespace data
