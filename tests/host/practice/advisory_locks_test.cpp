#include "practice/advisory_locks.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace host {
namespace {

TEST(HolderNames, SayUserAndMachineInWhatAServerKeeps) {
  EXPECT_EQ(HolderName("ann", "FRONT-DESK"), "ann@FRONT-DESK");
  for (const auto& [user, machine] : {std::pair<std::string, std::string>("Zoë O'Neil", "日本 PC"),
                                      {"a@b%41", "x@y"},
                                      {"", "FRONT-DESK"},
                                      {"ann", ""}}) {
    const std::string name = HolderName(user, machine);
    EXPECT_TRUE(std::ranges::all_of(name, [](char c) { return c > ' ' && c < 0x7f; })) << name;
    EXPECT_EQ(UserAndMachine(name), std::pair(user, machine));
  }
  EXPECT_EQ(UserAndMachine("psql"), std::pair(std::string(), std::string()));
}

TEST(HolderNames, AreCutBetweenCharacters) {
  std::string long_name;
  for (int i = 0; i < 30; ++i) {
    long_name += "ü";
  }
  const std::string name = HolderName(long_name, long_name);
  EXPECT_LE(name.size(), 63U);
  const auto [user, machine] = UserAndMachine(name);
  EXPECT_EQ(user, "üüüüüü");
  EXPECT_EQ(machine, "üüüü");
  EXPECT_EQ(UserAndMachine(HolderName("ann", std::string(300, 'x'))).second.size(), 59U);
}

}  // namespace
}  // namespace host
