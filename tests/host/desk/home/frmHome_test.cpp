#include "home/frmHome.h"

#include <gmock/gmock.h>

#include "home/recent_patients.h"
#include "support/practice_host.h"

namespace {

using host::frmHome;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Home : public testing::Test {
 protected:
  Home() {
    host_.session.Connection().Execute(
        "INSERT INTO PATable (pID, pTypPat, pLASNAM, pFIRNAM, pTTL, pSEX, pBIRDAT, pHOMPHO, pHomCell, pADD1, pCIT, "
        "pSTA, pZIP, pSSN, pFAMHEAIND, pMEDALE, pPROIND) VALUES "
        "(1, '1', 'Reed', 'Paul', 'Mr.', 'M', '1976-05-06', '5125550142', '', '', '', '', '', '', 1, '', 0), "
        "(2, '1', 'Reed', 'Rita', 'Ms.', 'F', '1980-01-02', '5125550142', '512-555-0177', '1 Main St', 'Austin', "
        "'TX', '78701', '900-11-2345', 1, 'Penicillin', 9), "
        "(9, NULL, 'Stone', 'Anna', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL)");
    home_.Load();
    Pause();
  }
  void Pause() {
    while (home_.DoIdle()) {
    }
  }
  void Type(const std::string& text) {
    home_.txtSearch.DoType(text);
    Pause();
  }
  void Press(forms::Key key) {
    home_.ActiveControl()->DoKey(key);
    Pause();
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(home_.grdPatients.RowCount()));
    for (int row = 0; row < home_.grdPatients.RowCount(); ++row) {
      names.emplace_back(home_.grdPatients.Cell(row, 0));
    }
    return names;
  }
  const host::DeskCommand& Command(std::string_view caption) {
    const auto commands = host::DeskCommands();
    return *std::ranges::find(commands, caption, &host::DeskCommand::caption);
  }

  test_support::PracticeHost host_{host::CreatePractice("sqlite::memory:")};
  frmHome home_{host_.Context(), "Main Office"};
};

TEST_F(Home, ListsWhatIsFoundWhenThePersonPauses) {
  EXPECT_TRUE(home_.txtSearch.HasFocus());
  int statements = 0;
  host_.session.hear = [&statements](const std::string&) { ++statements; };
  home_.txtSearch.DoType("reed");
  EXPECT_EQ(statements, 0) << "typing does not wait for the database";
  Pause();
  EXPECT_THAT(Names(), ElementsAre("Reed, Paul", "Reed, Rita"));
  EXPECT_EQ(home_.lblResults.Caption.get(), "2 patients");
  std::vector<std::string> cells;
  for (const int column : home_.grdPatients.VisibleColumns()) {
    cells.emplace_back(home_.grdPatients.Cell(1, column));
  }
  EXPECT_THAT(cells,
              ElementsAre("Reed, Rita", "01-02-1980", "46", "(512) 555-0142", "Austin", "Stone, Anna", "***-**-2345"));
  Type("Reed, Z");
  EXPECT_EQ(home_.lblResults.Caption.get(), "No patient found. Ctrl+N adds \"Reed, Z\".");
  EXPECT_FALSE(home_.pnlCard.Visible);
  Press(forms::Key::Enter);
  EXPECT_THAT(host_.screens.opened, IsEmpty());
}

TEST_F(Home, ShowsTheCardOfTheChosenPatient) {
  EXPECT_FALSE(home_.pnlCard.Visible);
  host_.session.Connection().Execute("INSERT INTO InsCoTable (InsCoInd, InsCoNam) VALUES (3, 'Northern Dental')");
  host_.session.Connection().Execute(
      "INSERT INTO GroPlaTable (GroPlaInd, GroPlaNam, GroPlaGroNum) VALUES (4, 'Group 1', '12345')");
  host_.session.Connection().Execute("INSERT INTO ELTable (elID, elInsID, elGroID) VALUES (5, 3, 4)");
  host_.session.Connection().Execute("INSERT INTO PatEmpTable (PatEmpID, PatEmpPatID, PatEmpElID) VALUES (6, 1, 5)");
  host_.session.Connection().Execute(
      "INSERT INTO CovTable (CovPatID, CovSubPatEmpID, CovOrd, CovFla) VALUES (2, 6, 1, 0), (2, 6, 2, 1)");
  Type("reed");
  EXPECT_EQ(home_.lblName.Caption.get(), "Reed, Paul");
  EXPECT_FALSE(home_.pnlAlert.Visible);
  Press(forms::Key::Down);
  EXPECT_TRUE(home_.txtSearch.HasFocus()) << "the arrows choose while one types";
  EXPECT_EQ(home_.Caption.get(), "Reed, Rita - Main Office - Practice Desk");
  EXPECT_EQ(home_.lblFacts.Caption.get(), "Ms., female, 46 years 10 months\nBorn 01-02-1980, ID 2");
  EXPECT_TRUE(home_.pnlAlert.Visible);
  EXPECT_THAT(home_.lblAlert.Caption.get(), HasSubstr("Medical alert: Penicillin"));
  EXPECT_EQ(home_.lblPhones.Caption.get(), "Home  (512) 555-0142\nCell  (512) 555-0177");
  EXPECT_EQ(home_.lblAddress.Caption.get(), "1 Main St\nAustin, TX 78701");
  EXPECT_EQ(home_.lblFamily.Caption.get(), "Reed, Paul 50 (head)");
  EXPECT_EQ(home_.lblCoverage.Caption.get(), "Primary: Northern Dental, Group 1 (12345), through Reed, Paul");
}

TEST_F(Home, ListsThePatientsThatTheUserOpenedLast) {
  EXPECT_THAT(Names(), IsEmpty());
  host_.screens.saves = 2;
  Type("reed, ri");
  Press(forms::Key::Enter);
  Type("paul");
  Press(forms::Key::Enter);
  Press(forms::Key::Esc);
  EXPECT_EQ(home_.txtSearch.Text.get(), "");
  EXPECT_THAT(Names(), ElementsAre("Reed, Paul", "Reed, Rita"));
  EXPECT_EQ(home_.Chosen(), 0);
  test_support::HeardSession another(host_.practice, 1, host::LoginRights("Bob"), test_support::StandingStill());
  EXPECT_THAT(host::RecentPatients(another), IsEmpty());
}

TEST_F(Home, TellsWhatBecameOfThePatientAndLeadsBack) {
  Type("reed, ri");
  Press(forms::Key::Enter);
  EXPECT_EQ(home_.cmdStatus.Caption.get(), "Closed Reed, Rita");
  EXPECT_EQ(home_.txtSearch.Text.get(), "reed, ri") << "the search goes on";
  home_.cmdStatus.DoClick();
  ASSERT_EQ(host_.screens.opened.size(), 2U);
  EXPECT_EQ(host_.screens.opened.back().id, 2);

  host_.screens.saves = 1;
  Type("Reed, Paul");
  home_.Do(Command("&New Patient..."));
  Pause();
  EXPECT_EQ(host_.screens.opened.back().typed_name, "Reed, Paul");
  EXPECT_EQ(home_.cmdStatus.Caption.get(), "Added Reed, Paul");
  EXPECT_EQ(home_.txtSearch.Text.get(), "");
  EXPECT_EQ(home_.Chosen(), 1);
  Type("512");
  home_.Do(Command("&New Patient..."));
  EXPECT_EQ(host_.screens.opened.back().typed_name, "") << "a number is no name";
}

TEST_F(Home, OffersTheFirstPatientOfANewPractice) {
  EXPECT_FALSE(home_.pnlFirst.Visible);
  host_.session.Connection().Execute("DELETE FROM PATable WHERE pTypPat='1'");
  home_.Refresh();
  Pause();
  EXPECT_TRUE(home_.pnlFirst.Visible);
  EXPECT_FALSE(home_.grdPatients.Shown());
  home_.cmdFirst.DoClick();
  EXPECT_TRUE(host_.screens.opened.back().IsNew());
  EXPECT_EQ(home_.lblStatus.Caption.get(), "No patient was added");
}

TEST_F(Home, GoesWhereAListLeads) {
  home_.GoTo("Patient", 2);
  EXPECT_THAT(host_.screens.opened, IsEmpty()) << "the list has not returned yet";
  Pause();
  ASSERT_EQ(host_.screens.opened.size(), 1U);
  EXPECT_EQ(host_.screens.opened.back().id, 2);
  EXPECT_EQ(home_.cmdStatus.Caption.get(), "Closed Reed, Rita");
  home_.GoTo("Aging", 1);
  Pause();
  EXPECT_EQ(host_.screens.opened.size(), 1U);
  EXPECT_THAT(host_.user.told, ElementsAre(HasSubstr("the suite would open the aging table of the family's account.")));
}

TEST_F(Home, SaysWhyACommandCannotBeGiven) {
  EXPECT_EQ(home_.Obstacle(Command("&Appointment...")), "still to come");
  EXPECT_THAT(home_.lblComing.Caption.get(), HasSubstr("Still to come: appointment"));
  EXPECT_EQ(home_.Obstacle(Command("&Employees...")), "");
  home_.Do(Command("&Open Patient..."));
  EXPECT_EQ(home_.lblStatus.Caption.get(), "Open Patient: choose a patient first");
  test_support::HeardSession front(host_.practice, 1, host::LoginRights("Bob"), test_support::StandingStill());
  const frmHome home({front, host_.user, host_.screens}, "Main Office");
  EXPECT_EQ(home.Obstacle(Command("&Employees...")), "needs the right \"Supervisor Rights\"");
}

TEST_F(Home, GoesOnWhenTheDatabaseCannotBeRead) {
  host_.session.hear = [](const std::string& sql) { throw session::DatabaseError("disk I/O error", sql, 10); };
  Type("reed");
  EXPECT_THAT(home_.lblResults.Caption.get(), HasSubstr("disk I/O error"));
  EXPECT_THAT(Names(), IsEmpty());
  host_.session.hear = nullptr;
  Type("reed,");
  EXPECT_EQ(home_.lblResults.Caption.get(), "2 patients");
}

}  // namespace
