#pragma once

#include <cstdint>
#include <functional>
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
  bool live = true;
};

// What subscribers hold: `PatEmpTable`. A subscriber's live holdings are ordered 1, 2, 3; a changed or removed one
// ends, and everybody's coverages through it follow. All throw session::DatabaseError; where a change fails half-way
// what was ended is open again, and coverages that are left behind follow when the same is asked for again.
class Holdings {
 public:
  // Called where a change can still be taken back: when it throws, that happens.
  using Told = std::function<void()>;

  explicit Holdings(session::Session& session);

  // Behind the subscriber's other holdings; its ID.
  std::int32_t Add(std::int32_t subscriber, std::int32_t link) const;
  // The subscriber's live holding of a link goes to another link, in its order. Where he holds that one already, the
  // holding there takes the earlier of the two places.
  void Change(std::int32_t subscriber, std::int32_t from_link, std::int32_t to_link) const;
  // The same of one holding. One that has ended, but still covers somebody, was left behind half-way: it is finished.
  void Move(std::int32_t holding, std::int32_t to_link, const Told& told = {}) const;
  // `told` is not called for one that has ended before.
  void Remove(std::int32_t holding, const Told& told = {}) const;

  // Nothing when there is no such holding.
  std::optional<Holding> Get(std::int32_t holding) const;
  // The first live one.
  std::optional<Holding> Find(std::int32_t subscriber, std::int32_t link) const;
  // Those that are live, and those that have ended but still cover somebody.
  std::vector<Holding> On(std::int32_t link) const;
  // The same of a subscriber, in their order.
  std::vector<Holding> Of(std::int32_t subscriber) const;
  // A person's live holdings.
  int Count(std::int32_t subscriber) const;
  // 0 when there is no such holding.
  std::int32_t SubscriberOf(std::int32_t holding) const;

 private:
  std::vector<Holding> Read(const Sql& condition) const;
  std::vector<Holding> ReadUnfinished(const Sql& condition) const;
  // In the order of the subscriber's holdings.
  std::int32_t PlaceOf(const Holding& holding) const;
  std::int32_t Insert(std::int32_t subscriber, std::int32_t link, std::int32_t order) const;

  session::Session& session_;
  Statements statements_;
  OrderedRows rows_;
  Coverages coverages_;
};

}  // namespace data
