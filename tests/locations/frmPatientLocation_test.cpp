#include "locations/frmPatientLocation.h"

#include "support/practice_host.h"

namespace {

using locations::frmPatientLocation;

// A supervisor in front of a family of three, each of another primary location.
struct Family : test_support::PracticeHost {
  Family() : PracticeHost(host::CreatePractice("sqlite::memory:")) {
    session.Connection().Execute(
        "INSERT INTO OffLocTable (OffLocID, OffLocNam) VALUES (2, 'North'), (3, 'Lake');"
        "INSERT INTO PATable (pID, pLASNAM, pFAMHEAIND, OffLocID) VALUES (5, 'Roe', 5, NULL), (6, 'Roe', 5, 2), (7, "
        "'Roe', 5, 3);"
        "INSERT INTO FamTable (fMEMID, fRSPID) VALUES (5, 5), (6, 5), (7, 5);"
        "INSERT INTO PDLTable (pdlPID, pdlOffLocID, pdlShoInLoc) VALUES (7, 1, 1), (6, 2, 1)");
    user.answers = [](const forms::Message& message) { return message.buttons.front(); };
  }

  // From member 6 the whole family goes to location 3, with the `last` statement, hold or note refused; 0 refuses
  // none. True when one was.
  bool Move(int last) {
    int heard = 0;
    bool refused = false;
    const auto refuse = [&](const std::string& what) {
      if (++heard == last) {
        refused = true;
        throw session::DatabaseError("was refused", what, 1);
      }
    };
    frmPatientLocation screen(Context());
    screen.PatientID = 6;
    user.acts = [&](forms::Form&) {
      screen.cboPriLoc.DoPick(2);
      screen.TDBG.DoRow(1);
      screen.TDBG.DoCell(0, "0");
      screen.chkFam.DoCheck(forms::CheckState::On);
      session.hear = session.hear_lock = session.hear_log = refuse;
      screen.cmdOK.DoClick();
      if (refused && tries_again) {
        EXPECT_FALSE(screen.Closed());
        screen.cmdOK.DoClick();
      }
      session.hear = session.hear_lock = session.hear_log = nullptr;
      EXPECT_EQ(screen.Closed(), !refused || tries_again);
      screen.Close();
    };
    user.Show(screen);
    return refused;
  }

  std::string Locations() {
    return Value("SELECT group_concat(pID || ' at ' || OffLocID) FROM PATable") + "; " +
           Value(
               "SELECT group_concat(pdlPID || ' ' || pdlOffLocID || ' ' || pdlShoInLoc) FROM (SELECT * FROM PDLTable "
               "ORDER BY pdlPID, pdlOffLocID)");
  }
  int Notes() { return session::ToId(session::Value(Value("SELECT Count(*) FROM LogTable"))); }

  bool tries_again = true;
};

TEST(frmPatientLocation, SavesAFamilyOnceWhateverIsRefused) {
  Family untroubled;
  untroubled.Move(0);
  const std::string whole = untroubled.Locations();
  EXPECT_EQ(whole, "5 at 3,6 at 3,7 at 3; 5 1 0,5 2 0,5 3 1,6 1 0,6 2 0,6 3 1,7 1 0,7 2 0,7 3 1");
  EXPECT_EQ(untroubled.Notes(), 2);  // one was there already
  bool refused = true;
  int last = 0;
  while (refused && !HasFailure()) {
    SCOPED_TRACE("refused: " + std::to_string(++last));
    Family again;
    refused = again.Move(last);
    EXPECT_EQ(again.Locations(), whole);
    EXPECT_EQ(again.Notes(), 2);

    Family anew;  // the screen was left, and the same is done again
    const std::string before = anew.Locations();
    anew.tries_again = false;
    anew.Move(last);
    const std::string left = anew.Locations();
    EXPECT_TRUE(left == whole || (left == before && anew.Notes() == 0)) << left;
    anew.Move(0);
    EXPECT_EQ(anew.Locations(), whole);
  }
  EXPECT_GT(last, 20);
}

}  // namespace
