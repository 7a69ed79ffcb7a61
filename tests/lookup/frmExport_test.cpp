#include "lookup/frmExport.h"

#include <filesystem>
#include <fstream>

#include "practice/demo.h"
#include "practice/machine.h"
#include "support/practice_host.h"

namespace lookup {
namespace {

constexpr const char* kManyRows =
    "SELECT a.pID AS [ID], b.pID AS [Other] FROM PATable AS a, PATable AS b ORDER BY a.pID, b.pID";

// An export over a file that is there.
class Export : public testing::Test {
 public:
  Export()
      : host_(host::MakeDemo("sqlite::memory:", {.patients = 40, .password_cost = host::HashCost::Least})),
        folder_(std::filesystem::temp_directory_path() / ("export" + std::to_string(host::ThisProcess().number))),
        file_(folder_ / "list.csv") {
    std::filesystem::create_directory(folder_);
    std::ofstream(file_) << "before";
    host_.user.file = file_.string();
    host_.user.answers = [](const forms::Message&) { return forms::Answer::Yes; };
  }

  Export(const Export&) = delete;
  Export& operator=(const Export&) = delete;
  ~Export() override { std::filesystem::remove_all(folder_); }

 protected:
  void Run(const char* sql) {
    host_.user.acts = [](forms::Form& form) { dynamic_cast<frmExport&>(form).DialogButtons1.OK.DoClick(); };
    frmExport form(host_.Context());
    form.Properties["SQL"].set(sql);
    host_.user.Show(form);
  }
  std::string Written() const {
    std::ifstream file(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  auto FilesThere() const {
    return std::distance(std::filesystem::directory_iterator(folder_), std::filesystem::directory_iterator());
  }

  test_support::PracticeHost host_;
  std::filesystem::path folder_;
  std::filesystem::path file_;
};

TEST_F(Export, LeavesTheFileAloneUntilItIsWhole) {
  host_.user.gives_up = true;
  Run(kManyRows);
  EXPECT_EQ(host_.user.told.back(), "The export was given up. No file was written.");
  EXPECT_EQ(Written(), "before");
  EXPECT_EQ(FilesThere(), 1);

  host_.user.gives_up = false;
  Run(kManyRows);
  EXPECT_THAT(Written(), testing::StartsWith("\xEF\xBB\xBFID,Other\r\n1,1\r\n1,2\r\n"));
  EXPECT_EQ(std::ranges::count(Written(), '\n'),
            std::stoi(host_.Value("SELECT COUNT(*) FROM PATable AS a, PATable AS b")) + 1);
  EXPECT_EQ(FilesThere(), 1);
}

TEST_F(Export, IsNoFailureWhenThePersonEndedItsStatement) {
  host_.practice.Database().connection->WhileBusy = [this](session::Busy) {
    host_.user.gives_up = true;
    return true;
  };
  Run("SELECT a.pID AS [ID] FROM PATable AS a, PATable AS b, PATable AS c, PATable AS d WHERE a.pID+b.pID+c.pID+d.pID "
      "< 0");
  EXPECT_EQ(host_.user.told.back(), "The export was given up. No file was written.");
  EXPECT_EQ(Written(), "before");
  EXPECT_EQ(host_.user.waits.back(), "");
}

}  // namespace
}  // namespace lookup
