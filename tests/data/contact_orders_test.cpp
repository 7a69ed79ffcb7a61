// Whatever order replaces whatever other one, it is read as it was saved, and nothing else of the table changes.

#include "data/contact_orders.h"

#include <algorithm>

#include "practice/demo_random.h"
#include "support/practice_host.h"

namespace {

using data::ContactOrderOf;
using Order = std::vector<std::int32_t>;

constexpr std::int32_t kPatient = 5;

class AnyContactOrder : public testing::Test {
 protected:
  AnyContactOrder() {
    for (const std::int32_t office : host_.practice.Offices()) {
      const std::string scope = std::to_string(office) + ")";
      Run("INSERT INTO emmTable (emmID, emmEna, emmAppDefTyp, OffLocID, OfficeID) VALUES (7, 1, 1, -1, " + scope);
      Run("INSERT INTO emmTable (emmID, emmEna, emmAppDefTyp, OffLocID, OfficeID) VALUES (8, 1, 2, -1, " + scope);
      // A recall of the number that a kind has.
      Run("INSERT INTO RSTable (RCRecNum, OffLocID, OfficeID) VALUES (7, 1, " + scope);
      for (const std::int32_t other : {kPatient - 1, kPatient + 1}) {
        Run("INSERT INTO eBusContactSequence (ebcLinID, ebcLinTyp, ebcpID, ebcSeq, ebcPer, ebcConMet, OfficeID) VALUES "
            "(7, 1, " +
            std::to_string(other) + ", 1, 0, 16, " + scope);
      }
    }
  }

  static Order AnyOrder(host::demo::Random& chance) {
    Order order = {1, 2, 4, 8, 16, 32, 64};
    for (std::size_t left = order.size(); left > 1; --left) {
      std::swap(order[left - 1], *(order.begin() + chance.Below(left)));
    }
    order.erase(order.begin() + chance.Below(order.size() + 1), order.end());
    return order;
  }

  void Run(const std::string& sql) const { host_.practice.Database().connection->Execute(sql); }
  std::string OthersRows() {
    return host_.Value("SELECT Count(*) FROM eBusContactSequence WHERE ebcpID<>5 AND ebcSeq=1 AND ebcConMet=16");
  }

  test_support::PracticeHost host_{
      host::CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .office = 2, .offices = 2})};
};

TEST_F(AnyContactOrder, IsReadAsItWasSaved) {
  const data::ContactOrders orders(host_.session);
  const ContactOrderOf of_stage{.link = data::ReminderLink::Recall, .recall = 7, .stage = 2147483647, .location = 1};
  const std::array all = {ContactOrderOf::Kind(data::ReminderKind::Recall),
                          ContactOrderOf::Kind(data::ReminderKind::Confirmation),
                          ContactOrderOf::Kind(data::ReminderKind::Birthday),  // which has no row at first
                          of_stage};
  std::array<Order, all.size()> saved;
  std::int32_t excluded = 0;
  host::demo::Random chance(11);
  for (int turn = 0; turn < 200; ++turn) {
    const auto which = static_cast<std::size_t>(chance.Below(all.size()));
    saved.at(which) = AnyOrder(chance);
    orders.Save(kPatient, all.at(which), saved.at(which));
    if (chance.Percent(30)) {
      excluded = chance.Below(64);
      orders.SetExcluded(kPatient, data::ReminderKind::Recall, excluded);
      saved.back() = data::Without(saved.back(), excluded);
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
      ASSERT_EQ(orders.Read(kPatient, all.at(i)), saved.at(i)) << "turn " << turn << ", order " << i;
      ASSERT_EQ(orders.Count(kPatient, all.at(i)), static_cast<std::int32_t>(saved.at(i).size()));
    }
    ASSERT_EQ(orders.Excluded(kPatient, data::ReminderKind::Recall), excluded);
    ASSERT_EQ(orders.Excluded(kPatient, data::ReminderKind::Confirmation), 0);
  }
  EXPECT_EQ(OthersRows(), "4") << "those of two patients in two offices";
}

}  // namespace
