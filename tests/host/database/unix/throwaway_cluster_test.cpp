#include "database/unix/throwaway_cluster.h"

#include <gtest/gtest.h>
#include <libpq-fe.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

namespace host {
namespace {

// The folder of a cluster's socket.
std::filesystem::path FolderOf(const std::string& url) {
  return url.substr(url.find("?host=") + 6);
}

bool Answers(const std::string& url) {
  return PQping(url.c_str()) == PQPING_OK;
}

TEST(ThrowawayCluster, ItsDatabasesAreCopiedAndDropped) {
  std::filesystem::path folder;
  {
    ThrowawayCluster cluster(ThrowawayCluster::Own{});
    const std::string first = cluster.MakeDatabase("practice");
    folder = cluster.Folder();
    EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all);
    cluster.Run("CREATE TABLE Letter (Said text)", first);
    const std::string second = cluster.MakeDatabase("practice", first);
    EXPECT_NE(first, second);
    cluster.Run("INSERT INTO Letter VALUES ('Dear Jane')", second);
    cluster.Restart();
    cluster.Run("SELECT Said FROM Letter", second);
    cluster.DropDatabase(second);
    EXPECT_THROW(cluster.Run("SELECT 1", second), std::runtime_error);
    EXPECT_TRUE(Answers(cluster.Url(first)));
  }
  EXPECT_FALSE(std::filesystem::exists(folder));
}

TEST(ThrowawayCluster, EndsWithAKilledProcess) {
  std::array<int, 2> told{};
  ASSERT_EQ(pipe(told.data()), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const ThrowawayCluster cluster(ThrowawayCluster::Own{});
    const std::string url = cluster.Url("postgres");
    (void)!write(told[1], url.data(), url.size());
    (void)raise(SIGKILL);
  }
  close(told[1]);
  std::array<char, 1000> url{};
  ASSERT_GT(read(told[0], url.data(), url.size() - 1), 0);
  close(told[0]);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  // Its lock is free, so the next one removes it; a server that still answers would have no folder to do so in.
  const ThrowawayCluster next(ThrowawayCluster::Own{});
  EXPECT_FALSE(std::filesystem::exists(FolderOf(url.data())));
  EXPECT_FALSE(Answers(url.data()));
  EXPECT_TRUE(Answers(next.Url("postgres")));
}

TEST(ThrowawayCluster, UsesTheOneThatTheEnvironmentNames) {
  const ThrowawayCluster own(ThrowawayCluster::Own{});
  const char* before = std::getenv("PRACTICE_POSTGRES");
  const std::string kept = before == nullptr ? "" : before;
  setenv("PRACTICE_POSTGRES", own.Url("postgres").c_str(), 1);
  std::string name;
  {
    ThrowawayCluster borrowed;
    EXPECT_EQ(borrowed.Url("one"), own.Url("one"));
    name = borrowed.MakeDatabase("practice");
    own.Run("SELECT 1", name);
  }
  EXPECT_THROW(own.Run("SELECT 1", name), std::runtime_error);
  setenv("PRACTICE_POSTGRES", "sqlite:one.db", 1);
  EXPECT_THROW(ThrowawayCluster(), std::runtime_error);
  kept.empty() ? unsetenv("PRACTICE_POSTGRES") : setenv("PRACTICE_POSTGRES", kept.c_str(), 1);
}

}  // namespace
}  // namespace host
