#include "practice/programs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "host/practice/practice_fixture.h"
#include "practice/recall_refresh.h"
#include "practice/settings.h"

namespace host {
namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

class ProgramsTest : public testing::Test {
 protected:
  ProgramsTest() {
    fs::remove_all(folder_);
    fs::create_directories(folder_ / "data" / "WP");
    fs::create_directories(folder_ / "programs");
    Write(letter_);
    Write(folder_ / "secret.RTF");
    Write(folder_ / "programs" / "OTHER.EXE");
  }
  void TearDown() override { fs::remove_all(folder_); }

  static void Write(const fs::path& file) { std::ofstream(file) << "{\\rtf1}"; }
  bool Start(const std::string& line) { return programs_.Start(office_, line); }
  void Run(const std::string& sql) { office_.Connection().Execute(sql); }

  fs::path folder_ =
      fs::canonical(fs::temp_directory_path()) / ("programs_test" + std::to_string(ThisProcess().number));
  fs::path letter_ = folder_ / "data" / "WP" / "It's due; $(rm) 100%.RTF";
  Practice practice_ = CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .offices = 2});
  OfficeDatabase office_{practice_, 1};
  Words started_;
  std::string opened_;
  bool there_ = true;
  Programs programs_{(folder_ / "data").string(),
                     (folder_ / "programs").string(),
                     {.run =
                          [this](const Words& words) {
                            started_ = words;
                            return there_;
                          },
                      .open =
                          [this](const std::string& file) {
                            opened_ = file;
                            return there_;
                          }}};
};

TEST_F(ProgramsTest, LettersOpenInTheWordProcessorOfTheOfficeOrTheMachine) {
  const std::string line = "tavowp.exe /NOSPLASH=TRUE " + letter_.string();
  EXPECT_TRUE(Start(line));
  EXPECT_EQ(opened_, letter_.string());
  there_ = false;
  EXPECT_FALSE(Start(line));
  there_ = true;
  opened_.clear();
  WriteOfficeSetting(office_, kDeskSection, kWordProcessor, "\"/opt/my writer\" --new");
  EXPECT_TRUE(Start("\"" + (folder_ / "programs" / "TAVOWP.EXE").string() + "\" " + line.substr(11)));
  EXPECT_EQ(started_, (Words{"/opt/my writer", "--new", letter_.string()}));
  EXPECT_EQ(opened_, "");
}

TEST_F(ProgramsTest, OnlyFilesOfTheDataFolderAreOpened) {
  std::error_code without_links;
  fs::create_symlink(folder_ / "secret.RTF", folder_ / "data" / "WP" / "Link.RTF", without_links);
  for (const fs::path& file : {folder_ / "secret.RTF", folder_ / "data" / "WP" / ".." / ".." / "secret.RTF",
                               folder_ / "data" / "WP" / "Link.RTF", folder_ / "data" / "WP" / "None.RTF",
                               folder_ / "data" / "WP", fs::path("--help"), fs::path()}) {
    EXPECT_FALSE(Start("TAVOWP.EXE /NOSPLASH=TRUE " + file.string())) << file;
  }
  EXPECT_EQ(opened_, "");
}

TEST_F(ProgramsTest, OthersAreStartedAsGivenAndFromTheProgramFolder) {
  EXPECT_TRUE(Start("OTHER.EXE /A \"b c\""));
  EXPECT_EQ(started_, (Words{(folder_ / "programs" / "OTHER.EXE").string(), "/A", "b c"}));
  EXPECT_TRUE(Start("NONE.EXE; ls"));
  EXPECT_EQ(started_, (Words{"NONE.EXE;", "ls"}));
  EXPECT_FALSE(Start("  "));
  EXPECT_FALSE(StartProcess({(folder_ / "none").string(), "x"}));
}

TEST_F(ProgramsTest, TheRecallUtilityWorksOutDueDates) {
  Run("INSERT INTO RSTable (RCRecNum, RCRecPer, OfficeID) VALUES (3, '6M', 1), (3, '1Y', 2), (4, '', 1)");
  Run("INSERT INTO RecTable (rRecNum, rPid, rRCRecNum, rLasDat, rDueDat, OfficeID) VALUES "
      "(1, 5, 3, '2026-08-31 09:30:00', NULL, 1), (2, 6, 3, NULL, '2026-01-01 00:00:00', 1), "
      "(3, 7, 4, '2026-08-31 00:00:00', '2026-01-01 00:00:00', 1), (4, 5, 9, '2026-08-31 00:00:00', NULL, 1), "
      "(1, 5, 3, '2026-08-31 00:00:00', NULL, 2), (4, 5, 9, '2026-08-31 00:00:00', NULL, 2)");
  EXPECT_TRUE(Start("\"C:\\Programs\\FXRECALL.EXE\" /S /ID=3"));
  EXPECT_TRUE(Start("fxrecall.exe /S /ID=4"));
  EXPECT_TRUE(Start("FXRECALL.EXE /S /ID=9"));
  const auto due = [&](int row, int office) {
    return Ask(practice_, "SELECT rDueDat FROM RecTable WHERE rRecNum=" + std::to_string(row) +
                              " AND OfficeID=" + std::to_string(office));
  };
  EXPECT_EQ(due(1, 1).substr(0, 10), "2027-02-28");
  EXPECT_EQ(due(2, 1).substr(0, 10), "2026-01-01");
  EXPECT_EQ(due(3, 1).substr(0, 10), "2026-01-01");
  EXPECT_EQ(due(4, 1), "none");
  EXPECT_EQ(due(1, 2), "");
  EXPECT_EQ(due(4, 2), "");
  EXPECT_EQ(RefreshRecall(office_, 3).moved, 0);
  // Rows without a recall are nobody's to delete.
  Run("INSERT INTO RecTable (rRecNum, rPid, rRCRecNum, OfficeID) VALUES (28, 5, 0, 1), (29, 5, -3, 1)");
  EXPECT_FALSE(Start("FXRECALL.EXE /S /ID=0"));
  EXPECT_FALSE(Start("FXRECALL.EXE /S /ID=-3"));
  EXPECT_EQ(RefreshRecall(office_, 0).moved + RefreshRecall(office_, -3).moved, 0);
  EXPECT_EQ(Ask(practice_, "SELECT count(*) FROM RecTable WHERE rRCRecNum<1"), "2");
  // Refused half-way, or asked for what is no recall: nothing is done.
  Run("UPDATE RSTable SET RCRecPer='1Y'");
  Run("INSERT INTO RecTable (rRecNum, rPid, rRCRecNum, rLasDat, OfficeID) VALUES (9, 8, 3, '2024-02-29', 1)");
  Run("CREATE TRIGGER Full BEFORE UPDATE ON RecTable WHEN OLD.rRecNum=9 BEGIN SELECT RAISE(ABORT, 'full'); END");
  EXPECT_FALSE(Start("FXRECALL.EXE /S /ID=3"));
  EXPECT_EQ(due(1, 1).substr(0, 10), "2027-02-28");
  EXPECT_FALSE(Start("FXRECALL.EXE /S"));
  EXPECT_FALSE(Start("FXRECALL.EXE /S /ID=3x"));
  EXPECT_EQ(DueDate(std::chrono::year(2026) / 1 / 1, {9999, forms::PeriodUnit::Years}), std::nullopt);
}

}  // namespace
}  // namespace host
