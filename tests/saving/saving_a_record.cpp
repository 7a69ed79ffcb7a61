// What a save of any screen leaves when its process is killed, or its disk fails, at a moment of it.

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <csignal>

#include "database/schema.h"
#include "people/docScreen.h"
#include "people/patScreen_SM.h"
#include "screens/trying.h"
#include "screens/ways.h"
#include "support/failing_disk.h"

namespace {

using forms::Form;
using screens_test::Desk;
using screens_test::Rows;
using screens_test::Way;
using test_support::DiskFault;

// Where a save has more moments, these are spread over it.
constexpr int kMostMoments = 10;

struct Case {
  Way way;
  std::string name;
  std::string prepare = {};  // the record, before
  std::function<void(Form&)> type = [](Form& form) { screens_test::FillIn(form, "1 Elm St"); };
};
void PrintTo(const Case& each, std::ostream* out) {
  *out << each.name;
}

// An employer is chosen: one that is typed would be added at every attempt, on a screen that saves him by itself.
void FillInProvider(Form& form) {
  auto& screen = dynamic_cast<people::docScreen&>(form);
  screen.Text2[0].ReadOnly = true;
  screens_test::FillIn(form, "1 Elm St");
  screen.EmployerLink.Caption = "-1";
}

std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const Way& way : screens_test::WaysThat([](const Way& each) { return each.saves; })) {
    cases.push_back({way, way.form + "_" + way.how});
    if (way.form == "docScreen") {
      cases.back().type = FillInProvider;
    }
    if (way.how != "ExistingPatient") {
      continue;
    }
    const std::string patient = " WHERE OfficeID=2 AND pTypPat='1'";
    cases.push_back({way, "PatientOnHisCellPhone",
                     "UPDATE PATable SET pHomCon='Cell', pHOMPHO='555-0111', pHomCell='555-0111'" + patient});
    cases.push_back({way, "PatientWhoseContactsWereNeverSeen",
                     "UPDATE PATable SET pHomCon=NULL, pBusCon=NULL, pHomPho1=NULL, pBusPho1=NULL" + patient});
    cases.push_back({way, "NamesThatChangePlaces", {}, [](Form& form) {
                       dynamic_cast<people::patScreen_SM&>(form).picSwapName.DoClick();
                     }});
  }
  return cases;
}

// All that is kept but for what is salted, and for what is put down of people's work.
Rows ReadRows(const std::filesystem::path& file) {
  host::SqliteConnection connection(file.string(), host::OpenMode::Existing);
  Rows all;
  for (const host::Table& table : host::PracticeTables()) {
    if (table.name == host::kChangeLog || table.name == "UserOptionTable") {
      continue;
    }
    std::string columns = "OfficeID";
    for (const host::Column& column : table.columns) {
      columns += column.secret ? "" : ", " + std::string(column.name);
    }
    auto& rows = all[std::string(table.name)];
    for (const auto row = connection.Execute("SELECT " + columns + " FROM " + std::string(table.name)); !row->Eof();
         row->MoveNext()) {
      std::string text;
      for (std::size_t i = 0; i < row->Fields().size(); ++i) {
        text += session::ToText(row->Get(i)) + "|";
      }
      rows.insert(std::move(text));
    }
  }
  return all;
}

// A case, a practice for it, and what the practice comes to in a save that nothing breaks off.
class SavingARecord : public testing::TestWithParam<Case> {
 protected:
  void SetUp() override {
    std::filesystem::copy_file(screens_test::MadePractice(session::kOfficeScoped), folder_.Path() / "made");
    if (!GetParam().prepare.empty()) {
      host::SqliteConnection((folder_.Path() / "made").string()).Execute(GetParam().prepare);
    }
    Renew();
    Desk desk(file_);
    std::size_t opened = 0;
    const auto look = [this](const std::string& /*unused*/ = {}) {
      Rows rows = ReadRows(file_);
      if (states_.empty() || rows != states_.back()) {
        states_.push_back(std::move(rows));
      }
    };
    desk.Session().hear = desk.Session().hear_lock = desk.Session().hear_log = look;
    EXPECT_TRUE(Save(desk, [&](Form& form) {
                  look();
                  opened = states_.size() - 1;
                  EXPECT_TRUE(screens_test::PressOK(form));
                }).Saved());
    look();
    EXPECT_GT(states_.size(), opened + 1) << "nothing was saved";
    ExpectOneChange("PWATable", opened);
    if (GetParam().way.form == "patScreen_SM") {
      ExpectOneChange("PATable", opened);
    }
  }

  // All or nothing of the table is written from that state on.
  void ExpectOneChange(const std::string& table, std::size_t from) const {
    std::set<std::multiset<std::string>> contents;
    for (std::size_t i = from; i < states_.size(); ++i) {
      contents.insert(states_[i].at(table));
    }
    EXPECT_LE(contents.size(), 2U) << table << " is saved in parts";
  }
  // As it was before the save.
  void Renew() const {
    for (const char* tail : {"", "-wal", "-shm"}) {
      std::filesystem::remove(file_.string() + tail);
    }
    ForgetLocks();
    std::filesystem::copy_file(folder_.Path() / "made", file_);
  }
  // As though the killed holder had been silent for long.
  void ForgetLocks() const {
    for (const char* tail : {"-locks", "-locks-wal", "-locks-shm"}) {
      std::filesystem::remove(file_.string() + tail);
    }
  }

  // Opens the screen and types; `press` does the rest.
  static session::Outcome Save(Desk& desk, const std::function<void(Form&)>& press) {
    return screens_test::Open(desk, GetParam().way.open, [&](Form& form) {
      GetParam().type(form);
      press(form);
    });
  }

  // Every statement whole or not there, and nothing else touched.
  bool IsWhole(const Rows& rows) const { return std::ranges::find(states_, rows) != states_.end(); }
  // What was done may be put down twice.
  void ExpectFinished() const {
    Rows left = ReadRows(file_);
    for (const auto& [table, rows] : states_.back()) {
      if (table != "LogTable" && rows != left.at(table)) {
        ADD_FAILURE() << table << " has " << testing::PrintToString(Without(left.at(table), rows))
                      << " in the place of " << testing::PrintToString(Without(rows, left.at(table)));
      }
    }
  }
  static std::vector<std::string> Without(const std::multiset<std::string>& rows,
                                          const std::multiset<std::string>& others) {
    std::vector<std::string> without;
    std::ranges::set_difference(rows, others, std::back_inserter(without));
    return without;
  }

  // The moments to try, of so many.
  static std::vector<int> Sample(int moments) {
    std::vector<int> sample;
    const int step = (moments + kMostMoments - 1) / kMostMoments;
    for (int moment = 1; moment <= moments; moment += step) {
      sample.push_back(moment);
    }
    return sample;
  }

  screens_test::Folder folder_;
  std::filesystem::path file_ = folder_.Path() / "tried";
  std::vector<Rows> states_;  // one behind the other
};

std::string CaseName(const testing::TestParamInfo<Case>& tested) {
  return tested.param.name;
}
INSTANTIATE_TEST_SUITE_P(Every, SavingARecord, testing::ValuesIn(Cases()), CaseName);

TEST_P(SavingARecord, LeavesWholeStatementsWheneverItIsKilled) {
  for (const DiskFault fault : {DiskFault::Killed, DiskFault::KilledWriting}) {
    Renew();
    int moments = 0;
    {
      Desk desk(file_);
      test_support::FailAt(INT_MAX, fault);
      Save(desk, screens_test::PressOK);
      moments = test_support::MomentsPassed();
      test_support::FailAt(0, DiskFault::None);
    }
    for (const int moment : Sample(moments)) {
      Renew();
      const pid_t child = fork();
      if (child == 0) {
        Desk desk(file_);
        test_support::FailAt(moment, fault, moment % 4);
        Save(desk, screens_test::PressOK);
        _exit(0);
      }
      int status = 0;
      waitpid(child, &status, 0);
      ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "moment " << moment << " of " << moments;
      const Rows left = ReadRows(file_);
      ASSERT_TRUE(IsWhole(left)) << "moment " << moment << ": " << screens_test::Difference(states_.front(), left);
      ForgetLocks();
      Desk desk(file_);
      ASSERT_EQ(desk.Value("PRAGMA integrity_check"), "ok");
      // What is saved is not saved again, and a new record that is there now is an existing one.
      if (left != states_.back() && (GetParam().way.OnExisting() || left == states_.front())) {
        ASSERT_TRUE(Save(desk, screens_test::PressOK).Saved()) << "moment " << moment;
        ExpectFinished();
      }
    }
  }
}

TEST_P(SavingARecord, TellsOfAFailingDiskAndKeepsWhatWasTyped) {
  for (const DiskFault fault : {DiskFault::Full, DiskFault::Broken}) {
    const std::string why = fault == DiskFault::Full ? "The disk is full." : "disk I/O error";
    int moments = 0;
    Renew();
    {
      Desk desk(file_);
      Save(desk, [&](Form& form) {
        test_support::FailAt(INT_MAX, fault);
        screens_test::PressOK(form);
        moments = test_support::MomentsPassed();
        test_support::FailAt(0, DiskFault::None);
      });
    }
    for (const int moment : Sample(moments)) {
      SCOPED_TRACE("moment " + std::to_string(moment) + " of " + std::to_string(moments) + ", " + why);
      Renew();
      Desk desk(file_);
      const session::Outcome outcome = Save(desk, [&](Form& form) {
        const auto typed = screens_test::Texts(form);
        desk.User().told.clear();
        test_support::FailAt(moment, fault);
        screens_test::PressOK(form);
        test_support::FailAt(0, DiskFault::None);
        if (form.Closed()) {
          return;
        }
        EXPECT_THAT(desk.User().told, testing::Contains(testing::HasSubstr(why)));
        EXPECT_TRUE(IsWhole(ReadRows(file_)));
        EXPECT_EQ(screens_test::Texts(form), typed);
        screens_test::PressOK(form);
        EXPECT_TRUE(form.Closed()) << testing::PrintToString(desk.User().told);
      });
      EXPECT_TRUE(outcome.Saved());
      ExpectFinished();
      if (HasFailure()) {
        return;
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
