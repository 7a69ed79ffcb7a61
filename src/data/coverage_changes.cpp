#include "data/coverage_changes.h"

#include <utility>

#include "data/plan_links.h"

namespace data {

std::optional<Coverage> CoverageChanges::Ordered(std::int32_t coverage) const {
  const auto found = coverages_.Live(coverage);
  if (found) {
    coverages_.Renumber(found->patient);
  }
  return found ? coverages_.Live(coverage) : std::nullopt;
}

std::optional<Holding> CoverageChanges::Usable(std::int32_t holding) const {
  const auto held = holdings_.Live(holding);
  const auto link = held ? PlanLinks(session_).Get(held->link) : std::nullopt;
  return link && link->live ? held : std::nullopt;
}

CoveredThrough CoverageChanges::Through(const Coverage& coverage) const {
  return {holdings_.SubscriberOf(coverage.holding), coverages_.LinkOf(coverage.id)};
}

void CoverageChanges::Log(const Coverage& coverage, const std::optional<CoveredThrough>& original,
                          const std::optional<CoveredThrough>& now) const {
  session_.Log(CoverageEntry(session_, coverage.patient, coverage.order, original, now));
}

void CoverageChanges::AddLogged(std::int32_t patient, const Holding& holding, std::int32_t relationship) const {
  coverages_.Renumber(patient);
  if (const auto added = coverages_.Live(coverages_.Add(patient, holding.id, relationship))) {
    Log(*added, std::nullopt, Through(holding));
  }
}

bool CoverageChanges::Add(std::int32_t patient, std::int32_t holding, std::int32_t relationship) const {
  session::Transaction transaction(session_.Connection());
  const auto through = Usable(holding);
  if (through) {
    AddLogged(patient, *through, relationship);
    transaction.Commit();
  }
  return through.has_value();
}

bool CoverageChanges::AddThroughLink(std::int32_t patient, std::int32_t subscriber, std::int32_t link,
                                     std::int32_t relationship) const {
  session::Transaction transaction(session_.Connection());
  const auto offered = PlanLinks(session_).Get(link);
  if (!offered || !offered->live) {
    return false;
  }
  const auto held = holdings_.LiveOf(subscriber, link);
  const std::int32_t holding = held ? held->id : holdings_.Add(subscriber, link);
  AddLogged(patient, {.id = holding, .subscriber = subscriber, .link = link}, relationship);
  transaction.Commit();
  return true;
}

bool CoverageChanges::Change(std::int32_t coverage, std::int32_t holding) const {
  session::Transaction transaction(session_.Connection());
  const auto old = Ordered(coverage);
  const auto to = Usable(holding);
  if (!old || !to) {
    return false;
  }
  const CoveredThrough original = Through(*old);
  coverages_.Change(coverage, holding);
  Log(*old, original, Through(*to));
  transaction.Commit();
  return true;
}

bool CoverageChanges::Remove(std::int32_t coverage) const {
  session::Transaction transaction(session_.Connection());
  const auto old = Ordered(coverage);
  if (!old) {
    return false;
  }
  const CoveredThrough original = Through(*old);
  coverages_.Remove(coverage);
  Log(*old, original, std::nullopt);
  transaction.Commit();
  return true;
}

bool CoverageChanges::Exchange(std::int32_t one, std::int32_t other) const {
  session::Transaction transaction(session_.Connection());
  auto earlier = Ordered(one);
  auto later = Ordered(other);
  if (!earlier || !later) {
    return false;
  }
  if (later->order < earlier->order) {
    std::swap(earlier, later);
  }
  const CoveredThrough original = Through(*earlier);
  const CoveredThrough now = Through(*later);
  coverages_.Exchange(*earlier, *later);
  session::LogEntry entry = CoverageEntry(session_, earlier->patient, earlier->order, original, now);
  entry.text += NonFamilyLine(session_, later->patient, later->order, original.subscriber);
  session_.Log(entry);
  transaction.Commit();
  return true;
}

bool CoverageChanges::SetRelationship(std::int32_t coverage, std::int32_t relationship) const {
  const bool live = coverages_.Live(coverage).has_value();
  if (live) {
    coverages_.SetRelationship(coverage, relationship);
  }
  return live;
}

bool CoverageChanges::SetCarrierId(std::int32_t coverage, std::string_view id) const {
  const bool live = coverages_.Live(coverage).has_value();
  if (live) {
    coverages_.SetCarrierId(coverage, id);
  }
  return live;
}

}  // namespace data
