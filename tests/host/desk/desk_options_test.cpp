#include "desk/desk_options.h"

#include <gmock/gmock.h>

namespace {

using host::DeskOptions;

std::variant<DeskOptions, std::string> Parse(const std::vector<std::string>& words) {
  return host::ParseDeskOptions(words);
}

TEST(DeskOptions, AreReadFromTheCommandLine) {
  const auto none = std::get<DeskOptions>(Parse({}));
  EXPECT_EQ(none.database, "");
  EXPECT_EQ(none.scale, 0);
  const auto all = std::get<DeskOptions>(
      Parse({"--tour", "out", "--scale", "2", "--port", "8123", "--files", "f", "--database", "sqlite:a b"}));
  EXPECT_EQ(all.tour, "out");
  EXPECT_EQ(all.files, "f");
  EXPECT_EQ(all.scale, 2);
  EXPECT_EQ(all.port, 8123);
  EXPECT_EQ(all.database, "sqlite:a b");
}

TEST(DeskOptions, SayWhatIsWrongWithThem) {
  EXPECT_EQ(std::get<std::string>(Parse({"--nothing", "x"})), "Unknown option --nothing.");
  EXPECT_EQ(std::get<std::string>(Parse({"--tour"})), "--tour needs a value.");
  EXPECT_EQ(std::get<std::string>(Parse({"--scale", "3"})), "--scale is 1 or 2, not 3.");
  for (const char* port : {"0", "65536", "80a"}) {
    EXPECT_EQ(std::get<std::string>(Parse({"--port", port})),
              "--port is a number from 1 to 65535, not " + std::string(port) + ".");
  }
}

}  // namespace
