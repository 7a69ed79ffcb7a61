#include "lookup/frmSearchWindow.h"

#include "support/fake_host.h"

namespace {

using End = session::SearchOutcome::End;

TEST(Search, OffersANameThatNothingMatchesWithoutAWindow) {
  test_support::FakeHost host;
  const session::SearchRequest request = {
      .list = session::SearchList::Carriers, .typed = " Delta ", .offer = [](const std::string& name) {
        return "Enter as " + name + " for Group Plan 'Gold'?";
      }};
  const auto added = lookup::Search(host.Context(), request);
  EXPECT_EQ(added.end, End::New);
  EXPECT_EQ(added.name, "Delta");
  EXPECT_THAT(host.user.told, testing::ElementsAre("Enter as Delta for Group Plan 'Gold'?"));
  host.user.answers = [](const forms::Message&) { return forms::Answer::No; };
  EXPECT_EQ(lookup::Search(host.Context(), request).end, End::Nothing);
  EXPECT_EQ(host.user.shown, 0);
}

TEST(Search, GivesAMatchOfTheTypedName) {
  test_support::FakeHost host;
  host.session.rows = {{"Acme Tools", "", "", "", "", "", "", std::int64_t{5}}};
  host.user.acts = [](forms::Form& form) {
    auto& window = dynamic_cast<lookup::frmSearchWindow&>(form);
    EXPECT_EQ(window.Caption.get(), "Filter/Search List");
    EXPECT_TRUE(window.TDBG.HasFocus());
    window.DialogButtons1.OK.DoClick();
  };
  host.session.columns = {"EmpNam", "EmpAdd1", "EmpAdd2", "EmpCIT", "EmpSTA", "EmpZIP", "EmpTEL", "EmpInd"};
  const auto found = lookup::Search(host.Context(), {.list = session::SearchList::Employers, .typed = "acme"});
  EXPECT_EQ(found.end, End::Chosen);
  EXPECT_EQ(found.id, 5);
  EXPECT_EQ(found.name, "Acme Tools");
  host.session.refuses = true;
  EXPECT_EQ(lookup::Search(host.Context(), {.typed = "acme"}).end, End::Cancelled);
}

}  // namespace
