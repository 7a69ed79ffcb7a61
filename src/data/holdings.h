#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "data/coverages.h"
#include "data/ordered_rows.h"

namespace data {

// A subscriber's membership in a link of employer and plan.
struct Holding {
  std::int32_t id = 0;
  std::int32_t subscriber = 0;
  std::int32_t link = 0;
  std::int32_t order = 0;
  bool live = true;  // or ending
};

// What subscribers hold: `PatEmpTable`. A subscriber's live holdings are ordered 1, 2, 3; a changed or removed one
// ends, and everybody's coverages through it go with it. What stops half-way is finished when the same is asked for
// again. All throw session::DatabaseError.
class Holdings {
 public:
  static constexpr OrderedRows::Columns kColumns = {"PatEmpTable",  "PatEmpID",     "PatEmpPatID", "PatEmpOrd",
                                                    "PatEmpEndDat", "PatEmpEndWho", "PatEmpFla"};

  explicit Holdings(session::Session& session);

  // Behind the subscriber's other holdings; its ID.
  std::int32_t Add(std::int32_t subscriber, std::int32_t link) const;
  // The subscriber's holding of a link goes to another link, in its order. Where he holds that one already, the holding
  // there takes the earlier of the two places.
  void Change(std::int32_t subscriber, std::int32_t from_link, std::int32_t to_link) const;
  void Remove(std::int32_t holding) const;

  // The first steps of these, up to where only the end of the old holding is due: for what is to be done before.
  void BeginToMove(std::int32_t holding, std::int32_t to_link) const;
  void BeginToRemove(std::int32_t holding) const;
  void SetEnded(std::int32_t holding) const { rows_.SetEnded(holding); }

  // Those of a link, live or ending, by subscriber and order.
  std::vector<Holding> On(std::int32_t link) const;
  // The same of a subscriber, in their order.
  std::vector<Holding> Of(std::int32_t subscriber) const;
  // The subscriber's live holding of the link; nothing where he has none.
  std::optional<Holding> LiveOf(std::int32_t subscriber, std::int32_t link) const;
  // Nothing when there is no such holding, or it has ended.
  std::optional<Holding> Live(std::int32_t holding) const;
  // A person's live holdings.
  int Count(std::int32_t subscriber) const;
  // 0 when there is no such holding.
  std::int32_t SubscriberOf(std::int32_t holding) const;

 private:
  std::vector<Holding> Read(const Sql& condition) const;
  std::optional<Holding> Find(std::int32_t holding) const;
  std::vector<Holding> Of(std::int32_t subscriber, std::int32_t link) const;
  std::int32_t Insert(std::int32_t subscriber, std::int32_t link, std::int32_t order) const;
  // The successor's ID.
  std::int32_t Succeed(const Holding& old, std::int32_t to_link) const;
  void Merge(const Holding& old, const Holding& kept) const;

  session::Session& session_;
  Statements statements_;
  OrderedRows rows_;
  Coverages coverages_;
};

}  // namespace data
