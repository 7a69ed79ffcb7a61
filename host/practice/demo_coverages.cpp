#include "practice/demo_coverages.h"

#include <algorithm>
#include <string>

#include "data/literal.h"
#include "data/statements.h"

namespace host::demo {
namespace {

using data::Literal;
using forms::Currency;

constexpr std::size_t kUnopened = 24;  // of an office

// As carriers assign them.
std::string PatientNumber(Random& chance) {
  const std::string subscriber = Digits(chance.Below(100000000), 8);
  return "W" + subscriber + "-" + Digits(chance.Between(1, 9), 2);
}

HouseholdMaker::Relation RelationTo(const Member& holder, const Member& member) {
  using Relation = HouseholdMaker::Relation;
  if (holder.relation == Relation::Self || member.relation == Relation::Child || member.relation == Relation::Other) {
    return member.relation;
  }
  return member.relation == Relation::Spouse ? Relation::Self : Relation::Spouse;
}

}  // namespace

CoverageMaker::CoverageMaker(DemoOffice& office, const Insurance& insurance)
    : office_(office),
      insurance_(insurance),
      more_(office.Apart("coverages")),
      holdings_(office.Writer("PatEmpTable",
                              "PatEmpID, PatEmpPatID, PatEmpElID, PatEmpOrd, PatEmpStaDat, PatEmpEndDat, PatEmpEndWho, "
                              "PatEmpFla")),
      coverages_(office.Writer("CovTable",
                               "CovID, CovPatID, CovInsCoPatID, CovSubPatEmpID, CovOrd, CovRel, CovYTD, CovRemBal, "
                               "CovRemDed, CovLastRenewalYear, CovStaDat, CovEndDat, CovEndWho, CovFla")) {}

Work CoverageMaker::FindWork(int age) {
  Random& chance = office_.Chance();
  if (age > 67 || !chance.Percent(75)) {
    return {};
  }
  const Employer& employer = chance.OneOf(std::span(insurance_.employers));
  if (employer.offers.empty() || chance.Percent(20)) {
    return {.link = employer.no_coverage_link};
  }
  const Offer& plan = chance.OneOf(std::span(employer.offers));
  return {.link = plan.link, .plan = plan};
}

void CoverageMaker::Make(std::span<const Member> family, const Work& head, const Work& spouse) {
  std::vector<Holder> holders;
  if (head.plan) {
    holders.push_back({family[0], *head.plan, Hold(family[0].id, *head.plan)});
  }
  if (spouse.plan) {
    holders.push_back({family[1], *spouse.plan, Hold(family[1].id, *spouse.plan)});
  }
  for (const Member& member : family) {
    std::vector<Holder> through = holders;
    if (member.relation == Relation::Spouse) {
      std::ranges::reverse(through);
    }
    std::int32_t order = 0;
    for (const Holder& holder : through) {
      Cover(office_.Chance(), {member.id, ++order, RelationTo(holder.person, member)}, holder.holding, holder.plan);
    }
  }
  RememberMore(family, holders);
}

std::int32_t CoverageMaker::Hold(std::int32_t subscriber, const Offer& plan) {
  Random& chance = office_.Chance();
  const int days = chance.Between(100, 2500);
  if (chance.Percent(5)) {
    // An earlier time with the same plan, and what it covered.
    const forms::Date ended = office_.DaysAgo(days);
    const std::int32_t earlier =
        holdings_.Row(subscriber, plan.link, 1, office_.DaysAgo(days + 700), ended, "admin", 1);
    coverages_.Row(subscriber, nullptr, earlier, 1, static_cast<std::int32_t>(Relation::Self), Currency(), Currency(),
                   Currency(), 2020, office_.DaysAgo(days + 700), ended, "admin", 1);
  }
  return holdings_.Row(subscriber, plan.link, 1, office_.DaysAgo(days), nullptr, nullptr, 0);
}

void CoverageMaker::Cover(Random& chance, const Covered& covered, std::int32_t holding, const Offer& plan) {
  const int used = chance.Percent(60) ? 0 : 25 * chance.Between(1, 30);
  const std::string number = more_.Percent(60) ? PatientNumber(more_) : std::string();
  coverages_.Row(covered.patient, OrNull{number}, holding, covered.order, static_cast<std::int32_t>(covered.relation),
                 Currency::FromWhole(used), Currency::FromWhole(plan.maximum - used),
                 Currency::FromWhole(used > 0 ? 0 : plan.deductible), 2026, office_.DaysAgo(90), nullptr, nullptr, 0);
}

void CoverageMaker::RememberMore(std::span<const Member> family, const std::vector<Holder>& holders) {
  const int share = more_.Below(100);
  if (holders.empty()) {
    return;
  }
  const auto order = static_cast<std::int32_t>(holders.size()) + 1;
  if (order == 3) {
    twice_ = {holders[0].person, family.back()};
  }
  std::vector<Covered> covered;
  if (order == 3 && share < 30 && elsewhere_) {
    for (const Member& member : family) {
      constexpr int kGeneration = 20;
      if (member.relation == Relation::Child && elsewhere_->person.age >= member.age + kGeneration) {
        covered.push_back({member.id, order, Relation::Child});
      }
    }
    if (!covered.empty()) {
      late_.push_back({*elsewhere_, covered});
    }
  } else if (share < 36) {
    const Offer& plan = more_.OneOf(std::span(insurance_.second_jobs));
    for (const Member& member : family) {
      covered.push_back({member.id, order, RelationTo(holders[0].person, member)});
    }
    late_.push_back({{holders[0].person, plan}, covered});
  } else if (share < 40 && !insurance_.former.empty()) {
    former_.emplace_back(holders[0].person.id, more_.OneOf(std::span(insurance_.former)));
  } else if (unopened_.empty() || (unopened_.size() < kUnopened && share < 55)) {
    unopened_.push_back({family.back().id, order - 1, RelationTo(holders.back().person, family.back())});
  }
  elsewhere_ = holders[0];
}

void CoverageMaker::RememberMissing() {
  if (!twice_) {
    return;
  }
  const auto& [holder, last] = *twice_;
  constexpr std::int32_t kThird = 3;
  const bool third = std::ranges::any_of(late_, [](const Late& late) {
    return std::ranges::any_of(late.covered, [](const Covered& covered) { return covered.order == kThird; });
  });
  if (!third) {
    const Offer& plan = more_.OneOf(std::span(insurance_.second_jobs));
    late_.push_back({{holder, plan}, {{holder.id, kThird, Relation::Self}}});
  }
  if (std::ranges::none_of(unopened_, [](const Covered& covered) { return covered.order == 2; })) {
    unopened_.push_back({last.id, 2, RelationTo(holder, last)});
  }
}

void CoverageMaker::Finish() {
  RememberMissing();
  for (const Late& late : late_) {
    MakeLate(late);
  }
  for (const auto& [subscriber, plan] : former_) {
    MakeFormer(subscriber, plan);
  }
  holdings_.Flush();
  coverages_.Flush();
  for (const Covered& last : unopened_) {
    MoveAmountsToRecord(last);
  }
}

void CoverageMaker::MakeLate(const Late& late) {
  const auto& [person, plan, made] = late.holder;
  std::int32_t holding = made;
  if (holding == 0) {
    holding = holdings_.Row(person.id, plan.link, 2, office_.DaysAgo(more_.Between(30, 90)), nullptr, nullptr, 0);
    data::Statements(office_.Database()).Update("PATable", {{"pEmpID2", Literal(plan.link)}}, "pID", person.id);
  }
  for (const Covered& covered : late.covered) {
    Cover(more_, covered, holding, plan);
  }
}

void CoverageMaker::MakeFormer(std::int32_t subscriber, const Offer& plan) {
  const forms::Date began = office_.DaysAgo(plan.ended_days_ago + more_.Between(100, 700));
  const forms::Date ended = office_.DaysAgo(plan.ended_days_ago);
  const std::int32_t holding = holdings_.Row(subscriber, plan.link, 1, began, ended, "front", 1);
  coverages_.Row(subscriber, PatientNumber(more_), holding, 1, static_cast<std::int32_t>(Relation::Self),
                 Currency::FromWhole(plan.maximum), Currency(), Currency(), 2025, began, ended, "front", 1);
}

// As a program wrote them that knew two coverages of a patient, and told a year or only that it had renewed.
void CoverageMaker::MoveAmountsToRecord(const Covered& last) {
  const data::Statements statements(office_.Database());
  const int used = 25 * more_.Between(0, 30);
  data::Assignments amounts = {{"pPriBal", Literal(Currency::FromWhole(1000 - used))},
                               {"pPriDed", Literal(Currency::FromWhole(used == 0 ? 50 : 0))},
                               {"pPriYTD", Literal(Currency::FromWhole(used))},
                               {"pPriRenFla", Literal(more_.Percent(80) ? 2026 : 1)}};
  if (last.order == 2) {
    amounts.insert(amounts.end(), {{"pSecBal", Literal(Currency::FromWhole(1500))},
                                   {"pSecDed", Literal(Currency::FromWhole(50))},
                                   {"pSecYTD", Literal(Currency())},
                                   {"pSecRenFla", Literal(2025)}});
  }
  statements.Update("PATable", amounts, "pID", last.patient);
  statements.Execute(
      "UPDATE CovTable SET CovYTD=Null, CovRemBal=Null, CovRemDed=Null, CovLastRenewalYear=Null WHERE "
      "(CovPatID=" +
      Literal(last.patient) + ") AND (CovFla=0)" + statements.Office());
}

}  // namespace host::demo
