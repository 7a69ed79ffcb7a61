#include "console/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <fstream>

namespace host {
namespace {

using std::filesystem::exists;
using std::filesystem::perms;
using std::filesystem::status;

TEST(TemporaryFolder, IsPrivateAndGoesWithAKilledProcess) {
  std::array<int, 2> told{};
  ASSERT_EQ(pipe(told.data()), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const TemporaryFolder folder;
    std::ofstream(folder.Path() / "letter.txt") << "Dear Jane";
    const std::string path = folder.Path().string();
    (void)!write(told[1], path.data(), path.size());
    _exit(0);  // as one that is killed: nothing is removed
  }
  close(told[1]);
  std::array<char, 1000> path{};
  ASSERT_GT(read(told[0], path.data(), path.size() - 1), 0);
  close(told[0]);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  EXPECT_EQ(status(path.data()).permissions(), perms::owner_all);

  const TemporaryFolder alive;
  TemporaryFolder::RemoveLeft();
  EXPECT_FALSE(exists(path.data()));
  EXPECT_TRUE(exists(alive.Path()));
}

}  // namespace
}  // namespace host
