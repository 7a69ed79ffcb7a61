#include <gtest/gtest.h>

#include "people/FamScreen.h"
#include "support/practice_host.h"

namespace people {
namespace {

struct ChoosingScreens : test_support::FakeScreens {
  std::int32_t plan = 0;
  session::CoverageChoice asked;
  std::int32_t SelectCoverage(const session::CoverageChoice& choice) override {
    asked = choice;
    return plan;
  }
};

class Slots : public testing::Test {
 protected:
  Slots() {
    for (const char* row :
         {"PATable (pID, pLASNAM, pFIRNAM, pTypPat, pFAMHEAIND, pEmpID1) VALUES (5, 'Roe', 'Jane', '1', 5, 7), (6, "
          "'Roe', 'Tim', '1', 5, NULL)",
          "EmpTable (EmpInd, EmpNam) VALUES (3, 'Acme')",
          "ELTable (elID, elEmpID, elInsID, elGroID, elFla) VALUES (7, 3, 0, 0, 0), (8, 3, 1, 2, 0), (9, 3, 1, 4, "
          "0)"}) {
      host_.Value("INSERT INTO " + std::string(row));
    }
  }

  // Links in the person's first place and saves.
  void LinkPlan(std::int32_t link) {
    screens_.plan = link;
    FamScreen screen({host_.session, host_.user, screens_});
    screen.Opened = session::Opening::Existing(session::RecordKind::FamilyMember, 5);
    screen.Load();
    screen.Employers.imaLinkPlan[0].DoClick();
    EXPECT_EQ(Held(), held_) << "before it is saved";
    EXPECT_EQ(screens_.asked.subscriber, 5);
    EXPECT_EQ(screens_.asked.patient, 5);
    screen.DialogButtons1.OK.DoClick();
    EXPECT_TRUE(screen.Closed());
    EXPECT_EQ(host_.Value("SELECT pEmpID1 FROM PATable WHERE pID=5"), std::to_string(link));
    held_ = Held();
  }

  // "8 1; ": what is held, by order, and by how many coverages.
  std::string Held() {
    std::string held;
    for (const auto row = host_.session.Connection().Execute(
             "SELECT PatEmpElID, PatEmpOrd, (SELECT COUNT(*) FROM CovTable WHERE CovFla=0 AND CovSubPatEmpID=PatEmpID) "
             "FROM PatEmpTable WHERE PatEmpFla=0 ORDER BY PatEmpOrd");
         !row->Eof(); row->MoveNext()) {
      held +=
          session::ToText(row->Get(0)) + " " + session::ToText(row->Get(1)) + " " + session::ToText(row->Get(2)) + "; ";
    }
    return held;
  }

  test_support::PracticeHost host_{host::CreatePractice("sqlite::memory:")};
  ChoosingScreens screens_;
  std::string held_;
};

TEST_F(Slots, HoldThePlanThatIsLinkedAndCarryCoverageToTheNext) {
  LinkPlan(8);
  EXPECT_EQ(held_, "8 1 0; ");
  host_.Value(
      "INSERT INTO CovTable (CovPatID, CovSubPatEmpID, CovOrd, CovRel, CovFla) SELECT 6, PatEmpID, 1, 3, 0 FROM "
      "PatEmpTable");
  held_ = Held();
  LinkPlan(9);
  EXPECT_EQ(held_, "9 1 1; ");
  host_.user.answers = [](const forms::Message&) { return forms::Answer::Yes; };
  LinkPlan(7);
  EXPECT_EQ(held_, "");
  EXPECT_EQ(host_.Value("SELECT COUNT(*) FROM CovTable WHERE CovFla=1 AND CovEndWho='Ann'"), "2");
  EXPECT_EQ(host_.Value("SELECT COUNT(*) FROM LogTable WHERE LogCat='LogInsCov' AND LogPid=6"), "2");
}

}  // namespace
}  // namespace people
