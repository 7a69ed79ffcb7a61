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
