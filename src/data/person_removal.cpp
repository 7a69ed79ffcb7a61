#include "data/person_removal.h"

#include <algorithm>
#include <array>

#include "data/coverages.h"
#include "data/families.h"
#include "data/holdings.h"
#include "data/literal.h"

namespace data {
namespace {

constexpr std::array<Words, 3> kHisOwn = {
    "eBusContactSequence WHERE ebcpID=", "PDLTable WHERE pdlPID=", "DrIDTable WHERE DrIDpID="};

}  // namespace

// The last of an order ends first: what has ended keeps the place that it had.
void RemovePerson(session::Session& session, std::int32_t person) {
  const Coverages coverages(session);
  const auto covering = coverages.Of(person);
  std::for_each(covering.rbegin(), covering.rend(), [&](const Coverage& last) { coverages.Remove(last.id); });
  const Holdings holdings(session);
  const auto held = holdings.Of(person);
  std::for_each(held.rbegin(), held.rend(), [&](const Holding& last) { holdings.Remove(last.id); });
  const Statements statements(session);
  const auto remove = [&](Words rows) {
    statements.Execute(Sql("DELETE * FROM ") + rows + Literal(person) + statements.Office());
  };
  std::ranges::for_each(kHisOwn, remove);
  Families(session).Remove(person);
  remove("PATable WHERE pID=");
}

}  // namespace data
