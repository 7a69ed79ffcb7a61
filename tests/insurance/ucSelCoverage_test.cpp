#include <gmock/gmock.h>

#include "insurance/frmSelectCoverage.h"
#include "support/practice_host.h"

namespace insurance {
namespace {

class Selecting : public testing::Test {
 protected:
  Selecting() {
    for (const char* row :
         {"EmpTable (EmpInd, EmpNam) VALUES (3, 'Acme')", "InsCoTable (InsCoInd, InsCoNam) VALUES (1, 'North')",
          "GroPlaTable (GroPlaInd, GroPlaInsID, GroPlaGroNum, GroPlaNam) VALUES (11, 1, '100', 'Gold'), (12, 1, '200', "
          "'Silver'), (13, 1, '300', 'Basic')"}) {
      host_.Value("INSERT INTO " + std::string(row));
    }
    screen_.EmployerID = 3;
  }

  std::string Linked() {
    return host_.Value("SELECT GROUP_CONCAT(elGroID) FROM (SELECT elGroID FROM ELTable WHERE elFla=0 ORDER BY elID)");
  }

  test_support::PracticeHost host_{host::CreatePractice("sqlite::memory:")};
  frmSelectCoverage screen_{host_.Context()};
  ucSelCoverage& plans_ = screen_.ucSelCoverage1;
};

TEST_F(Selecting, SavesNothingWhereOneWasRefused) {
  screen_.Load();
  for (const std::int32_t plan : {11, 12, 13}) {
    EXPECT_TRUE(plans_.AddCoverage(plan));
  }
  EXPECT_EQ(Linked(), "0");
  int inserts = 0;
  host_.session.hear = [&](const std::string& sql) {
    if (sql.starts_with("INSERT") && ++inserts == 2) {
      throw session::DatabaseError("was refused", sql, 1);
    }
  };
  screen_.DialogButtons1.OK.DoClick();
  EXPECT_THAT(host_.user.told, testing::ElementsAre(testing::HasSubstr("was refused")));
  EXPECT_FALSE(screen_.Closed());
  EXPECT_EQ(Linked(), "0");
  EXPECT_TRUE(plans_.Unsaved());
  EXPECT_EQ(plans_.GroupID(), 13) << "the choice stays";
  screen_.DialogButtons1.OK.DoClick();
  EXPECT_TRUE(screen_.Closed());
  EXPECT_EQ(Linked(), "0,11,12,13");
  EXPECT_EQ(std::to_string(screen_.SelectedCoverage), host_.Value("SELECT elID FROM ELTable WHERE elGroID=13"));
}

// A plan that is linked and not saved yet follows what becomes of the plan.
TEST_F(Selecting, TakesAPlanAsItIsWhenItIsSaved) {
  host_.screens.saves = 11;
  screen_.Load();
  plans_.AddCoverage(11);
  host_.Value("INSERT INTO InsCoTable (InsCoInd, InsCoNam) VALUES (2, 'South')");
  host_.Value("UPDATE GroPlaTable SET GroPlaInsID=2, GroPlaNam='Golden' WHERE GroPlaInd=11");
  plans_.Buttons("EDIT").DoClick();
  EXPECT_EQ(host_.screens.opened.size(), 1U);
  EXPECT_EQ(plans_.CarrierID(), 2);
  EXPECT_EQ(plans_.TDBG.Cell(0, 2), "Golden");
  host_.Value("DELETE FROM GroPlaTable WHERE GroPlaInd=11");
  screen_.DialogButtons1.OK.DoClick();
  EXPECT_THAT(host_.user.told, testing::ElementsAre("[ South 100 ] cannot be linked any more. Please un-link it and "
                                                    "try again."));
  EXPECT_EQ(Linked(), "0");
  EXPECT_FALSE(screen_.Closed());
}

}  // namespace
}  // namespace insurance
