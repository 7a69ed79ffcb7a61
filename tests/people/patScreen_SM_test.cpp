#include "people/patScreen_SM.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "support/practice_host.h"

namespace {

using people::patScreen_SM;
using test_support::PracticeHost;

class Person {
 public:
  // Types a whole new patient, and saves.
  static void Add(forms::Form& form) {
    auto& screen = dynamic_cast<patScreen_SM&>(form);
    screen.Text1[patScreen_SM::kBirthDate].DoType("01021980");
    screen.Text1[patScreen_SM::kAddress1].DoType("1 Main St");
    screen.Text1[patScreen_SM::kHomePhone].DoType("555-0100");
    screen.DialogButtons1.OK.DoClick();
  }
};

// A form cannot be told to close by a person who will not discard what was typed.
struct StubbornUser : test_support::FakeUser {
  forms::Answer Ask(const forms::Message& message) override {
    told.push_back(message.text);
    return message.Default();
  }
  void Show(forms::Form& form) override {
    form.Load();
    acts(form);
  }
};

TEST(PatientQuickScreen, KeepsWhatWasTypedWhenAStatementFails) {
  PracticeHost host(host::CreatePractice("sqlite::memory:"));
  StubbornUser user;
  patScreen_SM screen({host.session, user, host.screens});
  screen.Opened.typed_name = "O'Brien, John";
  std::string refused;
  host.session.hear = [&refused](const std::string& sql) {
    if (!refused.empty() && sql.starts_with(refused)) {
      throw session::DatabaseError("the server went away", sql, 1);
    }
  };
  user.acts = [&](forms::Form& form) {
    for (const char* statement : {"INSERT INTO Patable", "UPDATE PATABLE SET pNICNAM", "UPDATE PATABLE SET pHomCon"}) {
      refused = statement;
      user.told.clear();
      if (form.Closed()) {
        break;
      }
      if (screen.Text1[patScreen_SM::kAddress1].Text->empty()) {
        Person::Add(form);
      } else {
        screen.DialogButtons1.OK.DoClick();
      }
      EXPECT_FALSE(form.Closed()) << statement;
      EXPECT_EQ(screen.Text1[patScreen_SM::kAddress1].Text.get(), "1 Main St");
      EXPECT_THAT(user.told.back(), testing::HasSubstr("the server went away"));
    }
    refused.clear();
    screen.DialogButtons1.OK.DoClick();
  };
  user.Show(screen);
  EXPECT_TRUE(screen.Closed());
  EXPECT_EQ(host.Value("SELECT Count(*) FROM PATable WHERE pLASNAM='O''Brien'"), "1");
  EXPECT_EQ(host.Value("SELECT pNICNAM + '|' + pHomPho1 FROM PATable WHERE pLASNAM='O''Brien'"), "John|555-0100");
}

// The child is killed at its Nth statement, for every N, until a save gets through.
TEST(PatientQuickScreen, LeavesThePracticeWholeWhenKilledDuringASave) {
  const auto folder = std::filesystem::temp_directory_path() / ("kill_test_" + std::to_string(getpid()));
  std::filesystem::create_directory(folder);
  const std::string url = "sqlite:" + (folder / "practice.db").string();
  { const auto made = host::CreatePractice(url); }
  bool saved = false;
  for (int last = 1; !saved && last < 60; ++last) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      PracticeHost host{host::Practice(url)};
      int heard = 0;
      host.session.hear = [&heard, last](const std::string&) {
        if (++heard == last) {
          static_cast<void>(raise(SIGKILL));
        }
      };
      patScreen_SM screen(host.Context());
      screen.Opened.typed_name = "Smith, John";
      host.user.acts = Person::Add;
      host.user.Show(screen);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    saved = WIFEXITED(status);
    PracticeHost host{host::Practice(url)};
    EXPECT_EQ(session::ToText(host.session.Connection().Execute("PRAGMA integrity_check")->Get(0)), "ok");
    EXPECT_EQ(host.Value("SELECT Count(*) FROM PATable WHERE pLASNAM='Smith' AND"
                         " (pADD1 IS NULL OR pHOMPHO IS NULL OR pBIRDAT IS NULL OR pTypPat IS NULL)"),
              "0")
        << "killed at statement " << last;
  }
  EXPECT_TRUE(saved);
  std::filesystem::remove_all(folder);
}

}  // namespace
