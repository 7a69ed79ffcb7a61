#include "console/terminal.h"

#include <sstream>

namespace host {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string Type(const std::string& lines) {
  std::istringstream input(lines);
  std::ostringstream output;
  RunTerminal(input, output, std::nullopt);
  return output.str();
}

TEST(Terminal, AStepThatFailsDoesNotEndIt) {
  const std::string output = Type(
      "nonsense\n"
      "query \"SELECT COUNT(*) FROM PATable\" = 1\n"
      "call EditingScreen.Load_PatInfo_Small l_ID=NEW ns_ID=Roe\n"
      "type Text1(3) Q\n"
      "leave Text1(3)\n"
      "click cmdContact\n"
      "answer OK\n"
      "expect Text1(0) = Doe\n"
      "close\n"
      "answer No\n"
      "result l_ID = OLD\n"
      "quit\n"
      "never\n");
  EXPECT_THAT(output, HasSubstr("typed:1: nonsense\n  there is no step nonsense\n"));
  EXPECT_THAT(output, HasSubstr("    \"0\"\n"));
  EXPECT_THAT(output,
              HasSubstr("patScreen_SM> the message box \"TAVO Windows\": \"Only letters F or M are allowed.\" [OK]\n"
                        "message box> typed:6: click cmdContact\n  the message box"));
  EXPECT_THAT(output, HasSubstr("expected: = \"Doe\"\n  was:      \"Roe\"\npatScreen_SM> "));
  EXPECT_THAT(output, HasSubstr("patScreen_SM is closed\n> typed:11: result l_ID = OLD\n"));
  EXPECT_THAT(output, Not(HasSubstr("never")));
}

TEST(Terminal, EndsWithTheInputWhateverIsOpen) {
  EXPECT_THAT(Type("call EditingScreen.Load_PatInfo_Small l_ID=NEW ns_ID=Roe\nclose\n"), HasSubstr("message box> \n"));
  EXPECT_THAT(Type("help\n"), HasSubstr("press CONTROL KEY"));
}

}  // namespace
}  // namespace host
