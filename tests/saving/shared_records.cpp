// A shared record's replacement or deletion that stops at any statement is finished by the same command and the check.

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>
#include <set>

#include "practice/link_check.h"
#include "support/insurance_practice.h"
#include "support/practice_host.h"
#include "support/shared_command.h"

namespace {

using data::SharedRecord;
using test_support::PracticeHost;
using test_support::SharedCommand;

constexpr std::int32_t kOffice = 1;
// Both commands that move holdings merge some in this practice.
constexpr std::uint64_t kSeed = 42;

std::vector<SharedCommand> Commands() {
  return {{SharedRecord::Employer, 1, 2}, {SharedRecord::Employer, 1, 0},  {SharedRecord::Carrier, 1, 2},
          {SharedRecord::Carrier, 1, 0},  {SharedRecord::GroupPlan, 1, 2}, {SharedRecord::GroupPlan, 1, 0},
          {SharedRecord::PlanLink, 2, 3}, {SharedRecord::PlanLink, 2, 0},  {SharedRecord::Pharmacy, 1, 2},
          {SharedRecord::Pharmacy, 1, 0}};
}

// All that is live, the records, and what was put down of whom: what people see.
struct Seen {
  explicit Seen(const host::Practice& practice) : live(test_support::ReadInsurance(practice, kOffice).Text()) {
    for (const char* table : {"EmpTable", "InsCoTable", "GroPlaTable", "PhaTable", "IPTable"}) {
      records += std::string(table) + testing::PrintToString(test_support::ReadRows(practice, table, kOffice));
    }
    for (const auto& [row, columns] : test_support::ReadRows(practice, "LogTable", kOffice)) {
      logs.insert(columns[3] + " " + columns[4]);
    }
  }

  std::string live;
  std::string records;
  std::set<std::string> logs;  // one that stands there twice does no harm
};

std::vector<std::string> Check(PracticeHost& host, bool mend) {
  std::vector<std::string> told;
  host::CheckLinks(host.session, mend, [&](const std::string& fault) { told.push_back(fault); });
  return told;
}

// What every broken-off command comes to when it is given again and the practice is checked, whichever is first.
void ExpectFinished(PracticeHost& host, const SharedCommand& command, bool check_first, const Seen& whole) {
  if (check_first) {
    const auto found = Check(host, true);
    EXPECT_THAT(Check(host, false), testing::IsEmpty()) << "after mending " << testing::PrintToString(found);
  }
  command.Run(host.session);
  EXPECT_THAT(Check(host, false), testing::IsEmpty()) << "after the same command";
  Check(host, true);
  const Seen seen(host.practice);
  EXPECT_EQ(seen.live, whole.live);
  EXPECT_EQ(seen.records, whole.records);
  EXPECT_EQ(seen.logs, whole.logs);
}

// Every statement and every entry for a log.
void Hear(PracticeHost& host, const std::function<void(const std::string&)>& hear) {
  host.session.hear = hear;
  host.session.hear_log = hear;
}

// What a command does and comes to that nothing stops.
struct Whole {
  Whole(PracticeHost& host, const SharedCommand& command) {
    const session::Transaction taken_back(host.session.Connection());
    Hear(host, [this](const std::string& sql) { statements.push_back(sql); });
    command.Run(host.session);
    Hear(host, {});
    seen.emplace(host.practice);
  }
  // Where nothing is written a stop leaves what the next statement's leaves.
  bool Writes(int statement) const {
    return !statements[static_cast<std::size_t>(statement) - 1].starts_with("SELECT");
  }

  std::vector<std::string> statements;
  std::optional<Seen> seen;
};

// One statement, or the line breaks there and all later ones are refused as well.
void Refuse(PracticeHost& host, const SharedCommand& command, int statement, bool all_later, const Whole& whole) {
  const std::string& refused = whole.statements[static_cast<std::size_t>(statement) - 1];
  SCOPED_TRACE(testing::Message() << command << ", refused" << (all_later ? " from " : " ") << statement << ": "
                                  << refused);
  const session::Transaction taken_back(host.session.Connection());
  int heard = 0;
  Hear(host, [&](const std::string& sql) {
    ++heard;
    if (all_later ? heard >= statement : heard == statement) {
      throw session::DatabaseError("was refused", sql, 1);
    }
  });
  EXPECT_THROW(command.Run(host.session), session::DatabaseError);
  Hear(host, {});
  if (!all_later && refused.starts_with("INSERT INTO PatEmpTable")) {
    EXPECT_EQ(host.Value("SELECT COUNT(*) FROM PatEmpTable WHERE PatEmpFla NOT IN (0, 1)"), "0") << "not open again";
  } else if (!all_later && refused.starts_with("INSERT INTO CovTable")) {
    EXPECT_EQ(host.Value("SELECT COUNT(*) FROM CovTable WHERE CovFla NOT IN (0, 1)"), "0") << "not open again";
  }
  ExpectFinished(host, command, all_later && statement % 2 == 0, *whole.seen);
}

TEST(SharedRecords, AreFinishedAfterAnyRefusal) {
  PracticeHost host(host::CreatePractice("sqlite::memory:"));
  test_support::FillWithInsurance(host.practice, kSeed);
  for (const SharedCommand& command : Commands()) {
    const Whole whole(host, command);
    for (int statement = 1; statement <= static_cast<int>(whole.statements.size()) && !HasFailure(); ++statement) {
      Refuse(host, command, statement, false, whole);
      if (whole.Writes(statement)) {
        Refuse(host, command, statement, true, whole);
      }
    }
  }
}

// In a process of its own.
void RunKilledBefore(int statement, const std::string& url, const SharedCommand& command) {
  const pid_t child = fork();
  if (child == 0) {
    PracticeHost host{host::Practice(url)};
    int heard = 0;
    Hear(host, [&](const std::string&) {
      if (++heard == statement) {
        static_cast<void>(raise(SIGKILL));
      }
    });
    command.Run(host.session);
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
}

TEST(SharedRecords, AreFinishedAfterAnyKill) {
  const auto folder = std::filesystem::temp_directory_path() / ("shared_records_" + std::to_string(getpid()));
  std::filesystem::create_directory(folder);
  const auto url = [&](const char* file) { return "sqlite:" + (folder / file).string(); };
  test_support::FillWithInsurance(host::CreatePractice(url("made")), kSeed);
  const auto copy = [&] {
    for (const char* tail : {"", "-wal", "-shm"}) {
      std::filesystem::remove(folder / (std::string("tried") + tail));
    }
    std::filesystem::copy_file(folder / "made", folder / "tried");
    return host::Practice(url("tried"));
  };
  for (const SharedCommand& command : Commands()) {
    const Whole whole = [&] {
      PracticeHost host{copy()};
      return Whole(host, command);
    }();
    for (int statement = 1; statement <= static_cast<int>(whole.statements.size()) && !HasFailure(); ++statement) {
      if (whole.Writes(statement)) {
        SCOPED_TRACE(testing::Message() << command << ", killed before statement " << statement);
        static_cast<void>(copy());
        RunKilledBefore(statement, url("tried"), command);
        PracticeHost host{host::Practice(url("tried"))};
        ExpectFinished(host, command, statement % 2 == 0, *whole.seen);
      }
    }
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
