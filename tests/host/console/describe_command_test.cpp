#include "console/describe_command.h"

#include <sstream>

#include "console/interpreter.h"
#include "console/line_source.h"
#include "entry/form_catalog.h"
#include "host/console/sample_form.h"

namespace host {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::string Described(const std::optional<std::string>& form) {
  std::ostringstream output;
  RunDescribe(form, output);
  return output.str();
}

TEST(Describe, TellsEveryKindOfControl) {
  BlockLines no_lines({});
  Interpreter nobody(no_lines, nullptr);
  SampleForm form(nobody.Person());
  form.Text1[0].ToolTip = "First\r\nname\t!";
  const std::string lines = DescribeControls(form);
  EXPECT_THAT(lines, StartsWith("Text1(0)\tTextBox\t\t\tFirst\\nname\\t!\t\nText1(1)\tTextBox\t\t\t\t\n"));
  for (const char* line :
       {"Label1\tLabel\t\t\t\t\n", "cmdAsk\tButton\tAsk\t\t\t\n", "Panel1\tPanel\t\t\t\t\n",
        "cmdOnPanel\tButton\t\t\t\tPanel1\n", "Check1\tCheckBox\t", "optLeft\tOptionButton\t", "List1\tListBox\t",
        "Combo1\tComboBox\t", "Grid1\tGrid\tName|On\t", "ToolStrip\tToolBar\t", "ToolStrip.New\tButton\tNew\t",
        "Tab1\tTabStrip\tFirst|Second\t", "Slider1\tSlider\t", "Timer1\tTimer\t", "MnuFile\tMenuItem\t",
        "ucSample1.Text1(0)\tTextBox\t", "DialogButtons1\tDialogButtons\t", "DialogButtons1.OK\tButton\t"}) {
    EXPECT_THAT(lines, HasSubstr("\n" + std::string(line)));
  }
}

TEST(Describe, TellsOneFormOrAll) {
  const std::string all = Described(std::nullopt);
  for (const std::string& name : entry::FormNames()) {
    EXPECT_THAT("\n" + all, HasSubstr("\n" + name + "\n" + Described(name)));
  }
  EXPECT_THAT(Described("PATSCREEN_SM"),
              StartsWith("Label1(0)\tLabel\tLast Name\t\t\t\nText1(0)\tTextBox\t\tpLASNAM\t\t\n"));
  EXPECT_THROW(Described("frmNothing"), std::invalid_argument);
}

}  // namespace
}  // namespace host
