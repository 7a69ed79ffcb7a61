#include "forms/rich_text.h"

#include <random>

#include "forms/rich_text_box.h"

namespace forms {
namespace {

std::string Canonical(std::string_view html) {
  return WriteHtml(ReadHtml(html));
}

TEST(RichText, KnownTagsAreKeptInOneForm) {
  EXPECT_EQ(Canonical("<STRONG>a</STRONG> <em>b</em> <ins>c</ins>"), "<p><b>a</b> <i>b</i> <u>c</u></p>");
  EXPECT_EQ(Canonical("<font size=5 color='red'>x</font>"),
            "<p><span style=\"font-size:18pt;color:#FF0000\">x</span></p>");
  EXPECT_EQ(Canonical("<span style='color: rgb(1, 2,3); FONT-SIZE:16px; font-weight:700'>x</span>"),
            "<p><span style=\"font-size:12pt;color:#010203\"><b>x</b></span></p>");
  EXPECT_EQ(Canonical("<ul><li>a<li align=right>b</ul>c"),
            "<ul><li>a</li><li style=\"text-align:right\">b</li></ul><p>c</p>");
  EXPECT_EQ(Canonical("<div align=center>a<br>b<br></div><p><br></p>"),
            "<p style=\"text-align:center\">a<br>b</p><p><br></p>");
  EXPECT_EQ(Canonical("<a href='https://a.b/?x=1&amp;y=\"2'>go</a>"),
            "<p><a href=\"https://a.b/?x=1&amp;y=&quot;2\">go</a></p>");
}

TEST(RichText, WhatActsOrIsUnknownFallsAway) {
  EXPECT_EQ(Canonical("a<script>alert('<b>')</SCRIPT >b<style>p{}</style><!-- <b> -->c<!DOCTYPE x><?xml?>"),
            "<p>abc</p>");
  EXPECT_EQ(
      Canonical("<p onclick=\"go()\" style='background:url(http://x)'>a<img src=http://x/y.png onerror=go()>b</p>"),
      "<p>ab</p>");
  EXPECT_EQ(Canonical("<a href=' java\nscript:go()'>a</a><a href='JAVASCRIPT:x'>b</a><a href='data:x'>c</a>"),
            "<p>abc</p>");
  EXPECT_EQ(Canonical("<blink><o:p>a</o:p></blink><b>b</i></b></p>c"), "<p>a<b>b</b></p><p>c</p>");
  EXPECT_EQ(Canonical("1 < 2 & 3 <"), "<p>1 &lt; 2 &amp; 3 &lt;</p>");
  EXPECT_EQ(Canonical("<b"), "");
  EXPECT_EQ(Canonical("<a href=\"x"), "");
  EXPECT_EQ(Canonical("<script>never closed"), "");
}

TEST(RichText, WhatIsHugeOrDeepStaysSmall) {
  std::string many;
  for (int i = 0; i < 3000; ++i) {
    many += "<b>x<i>y<o:p>";
  }
  const std::string written = Canonical("<a href='http://" + std::string(50000, 'x') + "'>" + many + "</a>");
  EXPECT_EQ(written.find("<a"), std::string::npos);
  EXPECT_LT(written.size(), 20U * 3000U);
  EXPECT_LT(Canonical("<a href='http://" + std::string(1900, 'x') + "'>" + many + many).size(), 500000U);
  // One that is not closed ends where the next one begins, and is not within it.
  std::string open;
  for (int i = 0; i < 500; ++i) {
    open += "<p align=center>a";
  }
  EXPECT_TRUE(Canonical(open + "<p><b>b").ends_with("<p style=\"text-align:center\">a</p><p><b>b</b></p>"));
  EXPECT_EQ(Canonical("<a href='{Office Website Address}'>a</a><a href='{x:y}'>b</a>"),
            "<p><a href=\"{Office Website Address}\">a</a>b</p>");
}

TEST(RichText, EntitiesAreCharacters) {
  EXPECT_EQ(PlainText(ReadHtml("&lt;&#233;&#xE9;&eacute;&amp;amp;&nope;&#0;&#xD800;&")),
            "<ééé&amp;&nope;\uFFFD\uFFFD&");
  EXPECT_EQ(PlainText(ReadHtml("a&nbsp;&nbsp;b")), "a  b");
}

TEST(RichText, BlanksAreThoseOfHtml) {
  EXPECT_EQ(Canonical("<p>\n  a \n b <br> c </p>\n<p> </p>"), "<p>a b<br>c</p>");
  EXPECT_EQ(Canonical("<b>a </b> b"), "<p><b>a </b>b</p>");
  EXPECT_EQ(Canonical(""), "");
  const RichText text{{{.runs = {{"  two  blanks  \n here "}}}}};
  EXPECT_EQ(PlainText(ReadHtml(WriteHtml(text))), "  two  blanks  \r\n here ");
}

TEST(RichText, PlainTextIsParagraphs) {
  EXPECT_EQ(WriteHtml(FromPlainText("a\r\n\r\n<b>")), "<p>a</p><p><br></p><p>&lt;b&gt;</p>");
  EXPECT_EQ(PlainText(FromPlainText("a\nb\rc\r\nd")), "a\r\nb\r\nc\r\nd");
}

// A document of anything that the structure can hold, and some that it should not.
RichText RandomDocument(std::mt19937& chance) {
  const auto below = [&chance](unsigned limit) { return static_cast<unsigned>(chance() % limit); };
  const std::vector<std::string> texts = {" ", "  ", "\n", "a",    "<b>", "&nbsp;", "\u00A0",
                                          "é", "\t", "\r", "\x01", "\"",  "x y"};
  const std::vector<std::string> links = {"", "", "http://a", "mailto:a@b?c=<&\"", "javascript:x", " tel: 1"};
  RichText text;
  for (unsigned p = below(5); p > 0; --p) {
    auto& paragraph = text.paragraphs.emplace_back();
    paragraph.align = static_cast<RichText::Align>(below(4));
    paragraph.bullet = below(3) == 0;
    for (unsigned r = below(5); r > 0; --r) {
      auto& run = paragraph.runs.emplace_back();
      for (unsigned t = below(4); t > 0; --t) {
        run.text += texts[below(static_cast<unsigned>(texts.size()))];
      }
      run.style = {.bold = below(2) == 0,
                   .italic = below(3) == 0,
                   .underline = below(4) == 0,
                   .size = static_cast<int>(below(5) == 0 ? below(500) : 0),
                   .link = links[below(static_cast<unsigned>(links.size()))]};
      if (below(4) == 0) {
        run.style.color = Color{static_cast<std::uint8_t>(below(256)), 0, 255};
      }
    }
  }
  return text;
}

TEST(RichText, WhatIsWrittenIsReadAndWrittenAlike) {
  std::mt19937 chance(20261121);
  for (int i = 0; i < 5000; ++i) {
    const std::string html = WriteHtml(RandomDocument(chance));
    ASSERT_EQ(Canonical(html), html);
    // Cut anywhere, it is read as something that is.
    const std::string cut = Canonical(html.substr(0, html.size() / 2));
    ASSERT_EQ(Canonical(cut), cut);
  }
}

TEST(RichTextBox, KeepsOneFormOfItsHtml) {
  RichTextBox box;
  int changes = 0;
  box.Change = [&changes] { ++changes; };
  box.Html = "<strong onclick=x>Call</strong>";
  EXPECT_EQ(box.Html.get(), "<p><b>Call</b></p>");
  EXPECT_TRUE(box.DataChanged);
  EXPECT_EQ(changes, 0);
  box.DoAppend(" him\r\ntoday");
  EXPECT_EQ(box.Html.get(), "<p><b>Call him</b></p><p><b>today</b></p>");
  EXPECT_EQ(box.Text(), "Call him\r\ntoday");
  box.DoType("1 < 2");
  EXPECT_EQ(box.Html.get(), "<p>1 &lt; 2</p>");
  box.DoType("");
  EXPECT_EQ(box.Html.get(), "");
  EXPECT_EQ(changes, 3);
  box.ReadOnly = true;
  box.DoType("x");
  EXPECT_EQ(box.Text(), "");
}

}  // namespace
}  // namespace forms
