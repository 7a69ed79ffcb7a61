#include "console/check_command.h"

#include <sstream>

#include "host/practice/practice_fixture.h"
#include "support/insurance_practice.h"

namespace {

TEST(CheckCommand, NamesTheFaultsOfAllOfficesAndMendsThem) {
  const host::PracticeFile file("check_command_");
  const auto made = host::CreatePractice(file.Url(), {.kind = session::kOfficeScoped, .offices = 2});
  test_support::FillWithInsurance(made, 1);
  const auto check = [&](bool mend, bool right) {
    std::ostringstream output;
    EXPECT_EQ(host::RunCheck(file.Url(), mend, output), right);
    return output.str();
  };
  EXPECT_EQ(check(false, true), "Nothing is wrong.\n");
  made.Database().connection->Execute("UPDATE CovTable SET CovOrd=3 WHERE CovPatID=1 AND CovOrd=1 AND OfficeID=2");
  const std::string fault = "Office 2: Reed 0 [1]: the coverages stand in the orders 2, 3, 3, 4, 5.";
  EXPECT_EQ(check(false, false), fault + "\n1 fault; --mend puts that right.\n");
  EXPECT_EQ(check(true, true),
            fault + " Mended.\n1 fault, mended. What was being replaced or deleted can be commanded again.\n");
  EXPECT_EQ(check(false, true), "Nothing is wrong.\n");
}

}  // namespace
