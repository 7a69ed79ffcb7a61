// What every screen does when the connection to the database is lost under it.

#include <algorithm>

#include "screens/trying.h"
#include "screens/visits.h"

namespace screens_test {
namespace {

using forms::Answer;
using forms::Form;
using session::Outcome;
using test_support::EachOnce;

constexpr const char* kLost = "The connection to the database was lost. Nothing that you typed is lost.";

auto Questions(Desk& desk) {
  return std::ranges::count_if(desk.User().told, [](const std::string& text) { return Has(text, kLost); });
}

class LosingScreen : public Screen {};
class LosingSave : public Screen {};

INSTANTIATE_TEST_SUITE_P(Every, LosingScreen, testing::ValuesIn(WaysThat([](const Way& way) { return way.first; })),
                         WayName);
INSTANTIATE_TEST_SUITE_P(Every, LosingSave,
                         testing::ValuesIn(WaysThat([](const Way& way) { return way.saves && way.first; })), WayName);

// Types and presses OK, where the connection may be lost; what that changed in the rows.
std::string Saved(Desk& desk, const Way& way, const std::function<bool(const std::string&)>& loses = {}) {
  const Rows before = desk.AllRows();
  desk.Line().loses = loses;
  const Outcome outcome = Open(desk, way.open, [&](Form& form) {
    ASSERT_FALSE(form.Closed()) << testing::PrintToString(desk.User().told);
    FillIn(form, kPlain);
    PressOK(form);
    EXPECT_TRUE(form.Closed()) << testing::PrintToString(desk.User().told);
  });
  desk.Line().loses = nullptr;
  EXPECT_TRUE(outcome.Saved());
  EXPECT_THAT(desk.Locks(), testing::IsEmpty());
  return Difference(before, desk.AllRows());
}

// One question for each loss, and Retry is its first answer.
TEST_P(LosingSave, LeavesWhatAnUndisturbedOneLeaves) {
  Desk calm;
  const std::string whole = Saved(calm, way);
  Desk desk;
  EXPECT_EQ(Saved(desk, way, EachOnce()), whole);
  EXPECT_EQ(Questions(desk), desk.Line().losses) << testing::PrintToString(desk.User().told);
}

// Cancel keeps the screen as it is, and the next save goes through.
TEST_P(LosingSave, IsGivenUpWithTheScreenAsItIs) {
  Desk calm;
  const std::string whole = Saved(calm, way);
  Desk desk;
  const Rows before = desk.AllRows();
  const Outcome outcome = Open(desk, way.open, [&](Form& form) {
    FillIn(form, kPlain);
    const auto typed = Texts(form);
    desk.User().told.clear();
    desk.User().answers = [](const forms::Message& message) {
      return Has(message.text, kLost) ? Answer::Cancel : Agree(message);
    };
    EachOnce once;
    desk.Line().loses = [&](const std::string& sql) { return once(sql); };
    for (int i = 0; i < 200 && !form.Closed(); ++i) {
      const int lost = desk.Line().losses;
      desk.User().told.clear();
      PressOK(form);
      if (form.Closed()) {
        break;
      }
      EXPECT_GT(desk.Line().losses, lost) << testing::PrintToString(desk.User().told);
      EXPECT_EQ(Questions(desk), desk.Line().losses - lost);
      EXPECT_EQ(Texts(form), typed);
    }
    EXPECT_TRUE(form.Closed());
    desk.Line().loses = nullptr;
  });
  EXPECT_TRUE(outcome.Saved());
  EXPECT_EQ(Difference(before, desk.AllRows()), whole);
}

// Whatever is done: the person hears of it, and nothing else goes wrong.
TEST_P(LosingScreen, TellsOfEveryLoss) {
  int before = 0;
  TryAll(
      way, session::kOfficeScoped, [&](Desk&) { before = -1; },
      [&](Desk& desk, Form&, const std::string& what) {
        if (before < 0) {  // the screen opens first
          desk.Line().loses = EachOnce();
        }
        EXPECT_TRUE(before < 0 || desk.Line().losses == before || Questions(desk) > 0) << what;
        before = desk.Line().losses;
        desk.User().told.clear();
      });
}

}  // namespace
}  // namespace screens_test
