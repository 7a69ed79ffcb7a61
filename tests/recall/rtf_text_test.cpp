#include "recall/rtf_text.h"

#include <array>
#include <random>

namespace recall {
namespace {

std::string Html(std::string_view rtf) {
  return forms::WriteHtml(ReadRtf(rtf));
}

TEST(RtfText, KeepsParagraphsAndTheirFormats) {
  EXPECT_EQ(Html(R"({\rtf1\ansi{\fonttbl{\f0 Verdana;}}{\*\generator x;}\pard\qc\b Dear\b0  {\i Ann},\par)"
                 "\r\n"
                 R"(\pard\ul it\ulnone 's\line time\par})"),
            "<p style=\"text-align:center\"><b>Dear</b> <i>Ann</i>,</p><p><u>it</u>'s<br>time</p>");
}

TEST(RtfText, KnowsSignsOfEveryKind) {
  EXPECT_EQ(
      forms::PlainText(ReadRtf(R"({\rtf1 \'e9\'80\emdash\lquote \u8364?\uc2\u233ab\u-10179??\u-8704??\{\\\}a\~b})")),
      "\u00E9\u20AC\u2014\u2018\u20AC\u00E9\U0001F600{\\}a b");
}

TEST(RtfText, PassesOverWhatIsNoText) {
  EXPECT_EQ(
      Html(
          R"({\rtf1 a{\pict\wmetafile8 0102ab}b{\object{\*\objdata 00}{\result c}}{\field{\*\fldinst X}{\fldrslt d}}\bin3 }}}e})"),
      "<p>abde</p>");
  EXPECT_EQ(Html(R"({\rtf1 a{\v b\par}c\v d\v0 e{\revised\deleted f\plain g}\deleted h\deleted0 i})"), "<p>acegi</p>");
  EXPECT_EQ(Html(R"({\rtf1 <script>alert(1)</script> &})"), "<p>&lt;script&gt;alert(1)&lt;/script&gt; &amp;</p>");
  EXPECT_EQ(Html("no {\\rtf\nat all"), "<p>no {\\rtf</p><p>at all</p>");
  EXPECT_EQ(Html("{\\rtf1"), "");
}

// Whatever stands in a file, it is read, and not without end.
TEST(RtfText, ReadsAnything) {
  EXPECT_LE(forms::PlainText(ReadRtf("{\\rtf1 " + std::string(1'000'000, 'x'))).size(), kMostLetterText);
  EXPECT_EQ(Html("{\\rtf1 a" + std::string(1'000'000, '{')), "<p>a</p>");
  std::mt19937 random(7);
  constexpr std::array<std::string_view, 16> kParts = {"{",     "}", "\\",   "\\'",   "\\u",    "-99999999999999999999",
                                                       "\\bin", "9", " ",    "\\par", "\\pict", "\\*",
                                                       "\xFF",  "é", "\\uc", "x"};
  for (int i = 0; i < 2'000; ++i) {
    std::string rtf = "{\\rtf1";
    for (int part = 0; part < 60; ++part) {
      rtf += kParts[random() % kParts.size()];
    }
    const std::string html = Html(rtf);
    EXPECT_EQ(forms::WriteHtml(forms::ReadHtml(html)), html) << rtf;
  }
}

}  // namespace
}  // namespace recall
