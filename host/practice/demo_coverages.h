#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "practice/demo_households.h"
#include "practice/demo_insurance.h"
#include "practice/demo_office.h"

namespace host::demo {

// A family member as the later steps need him.
struct Member {
  std::int32_t id = 0;
  HouseholdMaker::Relation relation = HouseholdMaker::Relation::Self;  // to the head
  int age = 0;
};
// What a grown-up has through his employer.
struct Work {
  std::int32_t link = 0;  // 0 for none
  std::optional<Offer> plan = {};
};

// What subscribers hold, and whom it covers.
class CoverageMaker {
 public:
  CoverageMaker(DemoOffice& office, const Insurance& insurance);

  Work FindWork(int age);
  // The head's plan covers the family; so does the spouse's, behind each one's own.
  void Make(std::span<const Member> family, const Work& head, const Work& spouse);
  // What comes behind all families: a third coverage of children through a parent elsewhere, second jobs, plans of
  // earlier days, amounts that still stand in patients' records. The patients are in their table by then.
  void Finish();

 private:
  using Relation = HouseholdMaker::Relation;

  struct Holder {
    Member person;
    Offer plan;
    std::int32_t holding = 0;  // 0 for one that is still to be made
  };
  struct Covered {
    std::int32_t patient = 0;
    std::int32_t order = 1;
    Relation relation = Relation::Self;  // to the holder
  };
  struct Late {
    Holder holder;
    std::vector<Covered> covered;
  };

  std::int32_t Hold(std::int32_t subscriber, const Offer& plan);
  void Cover(Random& chance, const Covered& covered, std::int32_t holding, const Offer& plan);
  void RememberMore(std::span<const Member> family, const std::vector<Holder>& holders);
  // A third coverage, and amounts of a second one in the record, where chance gave nobody any.
  void RememberMissing();
  void MakeLate(const Late& late);
  void MakeFormer(std::int32_t subscriber, const Offer& plan);
  void MoveAmountsToRecord(const Covered& last);

  DemoOffice& office_;
  const Insurance& insurance_;
  Random more_;
  TableWriter holdings_;
  TableWriter coverages_;
  std::optional<Holder> elsewhere_;  // of an earlier family
  // The last family that two plans cover: who holds the earlier one, and the last of them.
  struct Twice {
    Member holder;
    Member last;
  };
  std::optional<Twice> twice_;
  std::vector<Late> late_;
  std::vector<std::pair<std::int32_t, Offer>> former_;  // subscribers
  std::vector<Covered> unopened_;                       // the last coverages of patients that nobody has looked at yet
};

}  // namespace host::demo
