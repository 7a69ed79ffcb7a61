#include "practice/demo_households.h"

#include <algorithm>
#include <array>

#include "practice/demo_words.h"

namespace host::demo {
namespace {

// One household in so many has the name of another; half of these sound like it.
constexpr int kNamesakeEvery = 18;
constexpr int kSoundsLike = 9;
constexpr int kSameName = 14;

// Numbers that are made for tests, of no account.
struct Card {
  std::string_view type;
  std::string_view number;
};
constexpr std::array<Card, 3> kCards = {
    {{"Visa", "4111111111111111"}, {"MasterCard", "5555555555554444"}, {"Discover", "6011111111111117"}}};

std::string_view BillingTitle(const Person& head, bool alone) {
  if (alone) {
    return head.sex == 'F' ? "Ms." : "Mr.";
  }
  return head.sex == 'F' ? "The family of" : "Mr. and Mrs.";
}

}  // namespace

HouseholdMaker::Name HouseholdMaker::NextName(std::string_view last, bool woman) {
  ++made_;
  if (made_ % kNamesakeEvery == kSameName) {
    return {last_head_.last, last_head_.sex == 'F'};
  }
  if (made_ % kNamesakeEvery == kSoundsLike && !last_respelled_.last.empty()) {
    return {Respelled(last_respelled_.last), last_respelled_.sex == 'F'};
  }
  return {last, woman};
}

void HouseholdMaker::Head(Person& head, bool alone) {
  Random& details = office_.Details();
  if (made_ % kNamesakeEvery == kSameName) {
    head.first = last_head_.first;
    if (made_ / kNamesakeEvery % 2 == 0) {
      head.birth.reset();
    }
  } else if (head.last == Respelled(last_respelled_.last)) {
    head.first = last_respelled_.first;
    if (alone) {
      head.birth = last_respelled_.birth;
    } else {
      head.birth.reset();
    }
  }
  head.billing_title = BillingTitle(head, alone);
  head.next_statement = office_.DaysAgo(-details.Between(1, 30));
  if (made_ % 4 == 0 && static_cast<std::size_t>(made_ / 4) <= kCards.size()) {
    const Card& card = kCards.at(static_cast<std::size_t>(made_ / 4) - 1);
    head.card_type = card.type;
    head.card_number = card.number;
  }
  last_head_ = head;
  if (!Respelled(head.last).empty()) {
    last_respelled_ = head;
  }
}

HouseholdMaker::Dependent HouseholdMaker::MakeDependent(int age, int head_age, bool may_be_parent) {
  constexpr int kGrown = 20;
  constexpr int kOldest = 95;
  Random& details = office_.Details();
  const int kind = details.Below(100);
  if (may_be_parent && kind < 20) {
    return {Relation::Other, std::min(head_age + details.Between(22, 32), kOldest)};
  }
  if (kind < 30) {
    return {Relation::Child, 0};
  }
  if (kind < 55 && head_age >= 2 * kGrown) {
    return {Relation::Child, details.Between(kGrown, head_age - kGrown)};
  }
  return {Relation::Child, age};
}

void HouseholdMaker::Display(const std::vector<std::int32_t>& members, std::int32_t location) {
  constexpr int kEvery = 6;
  if (made_ % kEvery != 0) {
    return;
  }
  const std::int32_t other = office_.Details().OneOf(std::span(locations_));
  for (const std::int32_t member : members) {
    for (const std::int32_t each : locations_) {
      displays_.Row(member, each, each == location || each == other ? 1 : 0);
    }
  }
}

}  // namespace host::demo
