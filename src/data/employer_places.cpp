#include "data/employer_places.h"

#include <algorithm>

#include "data/coverage_log.h"
#include "data/holdings.h"
#include "data/plan_links.h"
#include "data/shared_record_texts.h"

namespace data {
namespace {

std::vector<Holding> Held(const Holdings& holdings, std::int32_t person, std::int32_t link) {
  std::vector<Holding> held = holdings.Of(person);
  std::erase_if(held, [link](const Holding& one) { return one.link != link; });
  return held;
}

}  // namespace

std::vector<session::LogEntry> ChangeEmployerPlace(session::Session& session, std::int32_t person, std::int32_t from,
                                                   std::int32_t to) {
  std::vector<session::LogEntry> entries;
  const Holdings holdings(session);
  const Coverages coverages(session);
  const auto link = PlanLinks(session).Get(to);
  const bool insured = link && !link->IsNone();
  const CoveredThrough before = {.subscriber = person, .link = from};
  std::optional<CoveredThrough> after;
  if (insured) {
    after = {.subscriber = person, .link = to};
  }
  for (const Holding& old : from == to ? std::vector<Holding>() : Held(holdings, person, from)) {
    const auto through = coverages.Through(old.id);
    for (const Coverage& covered : through) {
      entries.push_back(CoverageEntry(session, covered.patient, covered.order, before, after));
      if (!insured) {
        coverages.Remove(covered.id);
      }
    }
    if (through.empty() && !insured) {
      entries.push_back(DeletedEntry(session, SharedRecord::PlanLink, from));
      entries.back().person = person;
    }
    insured ? holdings.Change(person, from, to) : holdings.Remove(old.id);
  }
  if (insured && !std::ranges::any_of(Held(holdings, person, to), &Holding::live)) {
    holdings.Add(person, to);
  }
  return entries;
}

}  // namespace data
