// A save of the patient screen that a killed process or a failing disk breaks off leaves the old row or the new one.

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <set>

#include "people/frmContacts.h"
#include "people/patScreen_SM.h"
#include "support/failing_disk.h"
#include "support/practice_host.h"

namespace {

using people::frmContacts;
using people::patScreen_SM;
using test_support::DiskFault;
using test_support::PracticeHost;

constexpr const char* kColumns =
    "SELECT pLASNAM, pFIRNAM, pNICNAM, pADD1, pHOMPHO, pHomCon, pHomPho1, pHomCell, pBUSPHO, pBusCon, pBusPho1 "
    "FROM PATable";

std::string Row(const host::Practice& practice) {
  const auto row = practice.Database().connection->Execute(kColumns);
  std::string text;
  for (std::size_t i = 0; !row->Eof() && i < row->Fields().size(); ++i) {
    text += session::ToText(row->Get(i)) + "|";
  }
  return text;
}

struct Case {
  std::string name;
  std::string row;  // what is there at first; empty for a new patient
  std::function<void(patScreen_SM&)> type;
  std::string saved;
  std::set<std::string> prepared = {};  // what opening the screen leaves, side by side, where that changes the row
  std::int32_t kind = session::kFileDatabase;  // an office-scoped one keeps row GUIDs
};

void TypeAll(patScreen_SM& screen) {
  screen.Text1[patScreen_SM::kFirstName].DoType("Joan");
  screen.Text1[patScreen_SM::kAddress1].DoType("12 Oak Street");
  screen.Text1[patScreen_SM::kHomePhone].DoType("555-0102");
  screen.Text1[patScreen_SM::kWorkPhone].DoType("555-0198");
}

// Types a cell phone over the visible number, and has it shown.
void EditContacts(patScreen_SM& screen) {
  screen.cmdContact.DoClick();
}

const std::string kColumnsOfRow =
    "INSERT INTO PATable (pID, pLASNAM, pFIRNAM, pNICNAM, pADD1, pHOMPHO, pHomCon, pHomPho1, pHomCell, pBUSPHO, "
    "pBusCon, "
    "pBusPho1, OfficeID) VALUES (5, ";

std::vector<Case> Cases() {
  const std::string row = "'Roe', 'Jane', 'Jan', '1 Elm St', '555-0100', 'Pho1', '555-0100', '', '', 'Pho1', '', 1)";
  const std::string on_cell =
      "'Roe', 'Jane', 'Jan', '1 Elm St', '555-0111', 'Cell', '555-0100', '555-0111', '', 'Pho1', '', 1)";
  const std::string unseen =
      "'Roe', 'Jane', 'Jan', '1 Elm St', '555-0100', Null, Null, Null, '555-0199', Null, Null, 1)";
  const std::string added = "Roe|Joan|Joan|12 Oak Street|555-0102|Pho1|555-0102||555-0198|Pho1|555-0198|";
  const auto add = [](patScreen_SM& screen) {
    screen.Text1[patScreen_SM::kLastName].DoType("Roe");
    TypeAll(screen);
  };
  const auto swap = [](patScreen_SM& screen) { screen.picSwapName.DoClick(); };
  return {
      {"new", {}, add, added},
      {"new in one of several offices", {}, add, added, {}, session::kOfficeScoped},
      {"everything", row, TypeAll, added},
      {"everything, with a cell phone shown", on_cell, TypeAll,
       "Roe|Joan|Joan|12 Oak Street|555-0102|Cell|555-0100|555-0102|555-0198|Pho1|555-0198|"},
      {"everything, of one whose contacts were never seen",
       unseen,
       TypeAll,
       added,
       {"Roe|Jane|Jan|1 Elm St|555-0100|Pho1|555-0100||555-0199|||",
        "Roe|Jane|Jan|1 Elm St|555-0100|Pho1|555-0100||555-0199|Pho1|555-0199|"}},
      {"names that change places", row, swap, "Jane|Roe|Roe|1 Elm St|555-0100|Pho1|555-0100|||Pho1||"},
      {"another contact chosen", row, EditContacts, "Roe|Jane|Jan|1 Elm St|555-0103|Cell|555-0100|555-0103||Pho1||"},
  };
}

// A practice with the case's row, made once and copied for every try.
class Tries {
 public:
  explicit Tries(const Case& tried) : tried_(tried) {
    std::filesystem::create_directory(folder_);
    PracticeHost host(
        host::CreatePractice(Url("made"), {.kind = tried.kind, .row_guids = tried.kind == session::kOfficeScoped}));
    if (!tried.row.empty()) {
      host.Value(kColumnsOfRow + tried.row);
    }
    before_ = Row(host.practice);
  }
  Tries(const Tries&) = delete;
  Tries& operator=(const Tries&) = delete;
  ~Tries() { std::filesystem::remove_all(folder_); }

  std::unique_ptr<PracticeHost> Fresh() const {
    for (const char* tail : {"", "-wal", "-shm"}) {
      std::filesystem::remove(folder_ / (std::string("tried") + tail));
    }
    std::filesystem::copy_file(folder_ / "made", folder_ / "tried");
    auto host = std::make_unique<PracticeHost>(Left());
    host->user.answers = [](const forms::Message& message) {
      return message.buttons.size() == 1 ? forms::Answer::OK : forms::Answer::Yes;
    };
    return host;
  }
  // What the last try left.
  host::Practice Left() const { return host::Practice(Url("tried")); }
  // Neither half nor mixed.
  bool IsWhole(const std::string& row) const {
    return row == before_ || row == tried_.saved || tried_.prepared.contains(row);
  }
  // Opens the screen, types, and does the rest.
  void Save(PracticeHost& host, const std::function<void(patScreen_SM&)>& rest) const {
    patScreen_SM screen(host.Context());
    if (!tried_.row.empty()) {
      screen.Opened = session::Opening::Existing(session::RecordKind::Patient, 5);
    }
    host.user.acts = [&](forms::Form& form) {
      if (auto* contacts = dynamic_cast<frmContacts*>(&form)) {
        contacts->txtHome[3].DoType("555-0103");
        contacts->optHome[3].DoChoose();
        contacts->DialogButtons1.OK.DoClick();
      } else {
        tried_.type(screen);
        rest(screen);
      }
    };
    host.user.Show(screen);
  }

 private:
  std::string Url(const std::string& file) const { return "sqlite:" + (folder_ / file).string(); }

  const Case& tried_;
  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("saving_a_patient_" + std::to_string(getpid()));
  std::string before_;
};

// Killed one moment later each time, before a change or after so many quarters of a write, until a save gets through.
// How often it was killed.
int KillAtEveryMoment(const Tries& tries, const Case& tried, int quarters) {
  for (int moment = 1;; ++moment) {
    const pid_t child = fork();
    if (child == 0) {
      const auto host = tries.Fresh();
      test_support::FailAt(moment, quarters == 0 ? DiskFault::Killed : DiskFault::KilledWriting, quarters);
      tries.Save(*host, [](patScreen_SM& screen) { screen.DialogButtons1.OK.DoClick(); });
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    const host::Practice practice = tries.Left();
    const std::string row = Row(practice);
    if (WIFEXITED(status)) {
      EXPECT_EQ(row, tried.saved);
      return moment - 1;
    }
    EXPECT_EQ(WTERMSIG(status), SIGKILL);
    EXPECT_TRUE(tries.IsWhole(row)) << row << " after being killed at moment " << moment;
    EXPECT_EQ(session::ToText(practice.Database().connection->Execute("PRAGMA integrity_check")->Get(0)), "ok");
    if (testing::Test::HasFailure()) {
      return moment;
    }
  }
}

TEST(SavingAPatient, LeavesTheOldRowOrTheNewOneInAThousandKills) {
  int kills = 0;
  for (const Case& tried : Cases()) {
    SCOPED_TRACE(tried.name);
    const Tries tries(tried);
    for (int quarters = 0; quarters < 4; ++quarters) {
      kills += KillAtEveryMoment(tries, tried, quarters);
    }
  }
  EXPECT_GE(kills, 1000);
}

TEST(SavingAPatient, TellsOfAFailingDiskAndKeepsWhatWasTyped) {
  for (const Case& tried : Cases()) {
    SCOPED_TRACE(tried.name);
    const Tries tries(tried);
    for (const DiskFault fault : {DiskFault::Full, DiskFault::Broken}) {
      bool failed = true;
      for (int moment = 1; failed && !HasFailure(); ++moment) {
        const auto host = tries.Fresh();
        tries.Save(*host, [&](patScreen_SM& screen) {
          const auto typed = screen.Text1[patScreen_SM::kAddress1].Text.get();
          test_support::FailAt(moment, fault);
          screen.DialogButtons1.OK.DoClick();
          failed = test_support::DiskFailed();
          test_support::FailAt(0, DiskFault::None);
          if (screen.Closed()) {
            return;
          }
          EXPECT_TRUE(failed && !host->user.told.empty());
          EXPECT_TRUE(host->user.told.back().find(fault == DiskFault::Full ? "The disk is full." : "disk I/O error") !=
                      std::string::npos)
              << host->user.told.back();
          EXPECT_TRUE(tries.IsWhole(Row(host->practice))) << Row(host->practice);
          EXPECT_EQ(screen.Text1[patScreen_SM::kAddress1].Text.get(), typed);
          screen.DialogButtons1.OK.DoClick();
          EXPECT_TRUE(screen.Closed());
        });
        EXPECT_EQ(Row(host->practice), tried.saved) << "moment " << moment;
      }
    }
  }
}

}  // namespace

int main(int argument_count, char** arguments) {
  testing::InitGoogleMock(&argument_count, arguments);
  test_support::InstallFailingDisk();
  return RUN_ALL_TESTS();
}
