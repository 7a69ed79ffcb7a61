#include "editing/delimited_text.h"

#include <gmock/gmock.h>

namespace editing {
namespace {

std::string Row(const std::vector<std::string>& cells, char separator = ',') {
  std::string text;
  AddDelimitedRow(text, cells, separator);
  return text;
}

TEST(DelimitedText, QuotesWhatWouldTearTheRow) {
  EXPECT_EQ(Row({"a", "", "c d"}), "a,,c d\r\n");
  EXPECT_EQ(Row({"say \"hi\"", "a,b", "a;b", " a", "two\r\nlines"}),
            "\"say \"\"hi\"\"\",\"a,b\",a;b,\" a\",\"two\r\nlines\"\r\n");
  EXPECT_EQ(Row({"a,b", "a;b"}, ';'), "a,b;\"a;b\"\r\n");
  EXPECT_EQ(Row({"a\tb", "a,b"}, '\t'), "\"a\tb\"\ta,b\r\n");
}

TEST(DelimitedText, RunsNoFormula) {
  for (const char* formula :
       {"=1+1", "+A1", "-A1", "@SUM(A1)", "\t=1", "\r=1", "-", "+1-512-5550142", "-2+3", "+cmd|' /C calc'!A0"}) {
    EXPECT_EQ(Harmless(formula), "'" + std::string(formula));
  }
  for (const char* plain : {"", "a=1", "-12.50", "+1 (512) 5550142", "-1,250.00", "1-2"}) {
    EXPECT_EQ(Harmless(plain), plain);
  }
  EXPECT_EQ(Row({"=HYPERLINK(\"x\")"}), "\"'=HYPERLINK(\"\"x\"\")\"\r\n");
}

}  // namespace
}  // namespace editing
