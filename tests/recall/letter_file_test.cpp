#include "recall/letter_file.h"

#include <filesystem>
#include <fstream>

namespace recall {
namespace {

namespace fs = std::filesystem;
using Verdict = LetterFolder::Verdict;

// A data folder with letters, beside one that is called nearly like it.
class Letters : public testing::Test {
 protected:
  void SetUp() override {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    data_ = fs::path(testing::TempDir()) / (std::string("letters_") + test->name());
    fs::remove_all(data_);
    for (const char* file : {"WP/Due.RTF", "WP/Recall/six \u00FC.rtf", "WP/notes.txt", "WP/CON.rtf", "WPX/other.rtf",
                             "secret.rtf", "WP/NUL/in.rtf", "WP/COM\u00B2.rtf"}) {
      fs::create_directories((data_ / file).parent_path());
      std::ofstream(data_ / file) << "{\\rtf1 x}";
    }
    fs::create_directory(data_ / "WP/folder.rtf");
    fs::create_symlink(data_ / "secret.rtf", data_ / "WP/link.rtf");
    fs::create_directory_symlink(data_ / "WPX", data_ / "WP/linked");
    fs::create_symlink(data_ / "WP/Due.RTF", data_ / "WP/within.rtf");
  }
  void TearDown() override { fs::remove_all(data_); }

  LetterFolder::Link Judged(const std::string& file) const {
    return LetterFolder((data_ / "").string()).Judge((data_ / file).string());
  }

  fs::path data_;
};

TEST_F(Letters, AreLinkedByTheirPathBelowTheFolder) {
  for (const auto& [file, name] :
       std::map<std::string, std::string>{{"WP/Due.RTF", "Due.RTF"},
                                          {"wp/due.rtf", "due.rtf"},
                                          {"WP/Recall/six \u00FC.rtf", "Recall\\six \u00FC.rtf"},
                                          {"WP/Recall/../Due.RTF", "Due.RTF"},
                                          {"WP/./within.rtf", "within.rtf"}}) {
    EXPECT_EQ(Judged(file).verdict, Verdict::May) << file;
    EXPECT_EQ(Judged(file).name, name);
    const LetterFolder letters(data_.string());
    EXPECT_TRUE(fs::is_regular_file(letters.FileOf(name))) << name;
  }
}

TEST_F(Letters, StayInTheirFolder) {
  for (const char* outside : {"secret.rtf", "WP/../secret.rtf", "WPX/other.rtf", "WP", "WP/"}) {
    EXPECT_EQ(Judged(outside).verdict, Verdict::Outside) << outside;
  }
  EXPECT_EQ(LetterFolder(data_.string()).Judge("Due.RTF").verdict, Verdict::Outside) << "no folder";
  EXPECT_EQ(LetterFolder("").Judge("/WP/Due.RTF").verdict, Verdict::Outside) << "no data";
  for (const char* no_letter :
       {"WP/link.rtf", "WP/linked/other.rtf", "WP/CON.rtf", "WP/NUL/in.rtf", "WP/COM\u00B2.rtf", "WP/notes.txt",
        "WP/folder.rtf", "WP/gone.rtf", "WP/Due.RTF:hidden.rtf", "WP/Due.RTF\\..\\..\\secret.rtf"}) {
    EXPECT_EQ(Judged(no_letter).verdict, Verdict::Not) << no_letter;
  }
  EXPECT_EQ(Judged("WP/" + std::string(251, 'n') + ".rtf").verdict, Verdict::Not) << "255 characters, not there";
  EXPECT_EQ(Judged("WP/" + std::string(252, 'n') + ".rtf").verdict, Verdict::TooLong);
}

// What other programs have stored is not trusted either.
TEST_F(Letters, AreFoundByStoredNames) {
  const LetterFolder letters(data_.string());
  EXPECT_EQ(letters.FileOf("gone.rtf"), data_ / "WP/gone.rtf");
  EXPECT_EQ(letters.FileOf("RECALL\\SIX \u00DC.RTF"), data_ / "WP/Recall/six \u00FC.rtf") << "as it is called there";
  for (const char* outside : {"..\\secret.rtf", "../secret.rtf", "Recall\\..\\..\\secret.rtf", "/etc/passwd",
                              "C:\\x.rtf", "link.rtf", "linked\\other.rtf", "CON", "", "a.rtf "}) {
    EXPECT_TRUE(letters.FileOf(outside).empty()) << outside;
  }
}

}  // namespace
}  // namespace recall
