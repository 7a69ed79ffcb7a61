#include "insurance/insScreen.h"

#include "support/practice_host.h"

namespace {

using insurance::insScreen;

// A company that a coverage runs through, a pharmacy, and a person who agrees to the warning.
struct Practice : test_support::PracticeHost {
  Practice() : PracticeHost(host::CreatePractice("sqlite::memory:")) {
    for (const char* row :
         {"InsCoTable (InsCoInd, InsCoNam) VALUES (5, 'Delta')", "PhaTable (PhaID, PhaNam) VALUES (5, 'Ash')",
          "ELTable (elID, elInsID, elFla) VALUES (7, 5, 0)",
          "PatEmpTable (PatEmpID, PatEmpElID, PatEmpFla) VALUES (1, 7, 0)",
          "CovTable (CovID, CovSubPatEmpID, CovFla) VALUES (1, 1, 0)"}) {
      session.Connection().Execute("INSERT INTO " + std::string(row));
    }
    user.answers = [](const forms::Message& message) {
      return message.title == "Warning!" ? forms::Answer::Yes : message.Default();
    };
    user.input = "yEs";
  }
};

// What was asked while one field of the record was changed and saved by OK.
std::vector<std::string> AskedOnChanging(session::RecordKind kind, std::size_t field) {
  Practice host;
  insScreen screen(host.Context());
  screen.Opened = session::Opening::Existing(kind, 5);
  screen.Load();
  screen.Text1.at(field).DoType("7");
  screen.Command3D2.OK.DoClick();
  EXPECT_TRUE(screen.Closed());
  EXPECT_TRUE(screen.Saved);
  EXPECT_EQ(host.Value("SELECT " + screen.Text1.at(field).DataField + " FROM " +
                       (kind == session::RecordKind::Pharmacy ? "PhaTable" : "InsCoTable")),
            "7");
  EXPECT_EQ(host.Value("SELECT Count(*) FROM LogTable"), std::to_string(host.user.told.size()));
  return host.user.told;
}

TEST(InsuranceCompany, IsGuardedInWhatPatientsKnowItByAndAPharmacyNowhere) {
  for (std::size_t field = insScreen::kName; field <= insScreen::kSwitchCharacter; ++field) {
    EXPECT_EQ(AskedOnChanging(session::RecordKind::Carrier, field).size(), field <= insScreen::kPhone2 ? 1U : 0U)
        << "field " << field;
  }
  for (std::size_t field = insScreen::kName; field <= insScreen::kEmail; ++field) {
    EXPECT_TRUE(AskedOnChanging(session::RecordKind::Pharmacy, field).empty()) << "field " << field;
  }
}

}  // namespace
