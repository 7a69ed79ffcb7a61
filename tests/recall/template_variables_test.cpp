#include "recall/template_variables.h"

#include <random>

#include "recall/template_merge.h"

namespace recall {
namespace {

TEST(TemplateVariables, OlderNamesBecomeTodays) {
  EXPECT_EQ(WithCurrentVariables("Hi {Recall Patient First Name}, {Recall Patient First Name}!"),
            "Hi {Patient First Name}, {Patient First Name}!");
  EXPECT_EQ(WithCurrentVariables("{Appointment Provider Business Address}{Appointment Provider Business "
                                 "Address,city,state,zip}{Birthday Patient Patient Title}"),
            "{Office Address for Map}{Office City, State Zip}{Patient Title}");
  EXPECT_EQ(WithCurrentVariables("{recall patient title}{Appointment Time"), "{recall patient title}{Appointment Time");
}

TEST(TemplateVariables, UnknownOnesAreTheInnermostOnOneLine) {
  EXPECT_EQ(UnknownVariables("{Patient Title} {None} {Current Date}"), (std::vector<TextRange>{{23, 14}}));
  EXPECT_EQ(UnknownVariables("{a {é}}{x\n}} {"), (std::vector<TextRange>{{3, 4}}));
  EXPECT_EQ(UnknownVariables("{Current date}").size(), 0U);
}

// Pieces of variables in any order.
std::string RandomTemplate(std::mt19937& chance) {
  constexpr std::array<std::string_view, 12> kPieces = {"{",
                                                        "}",
                                                        "{None}",
                                                        "{Patient Title}",
                                                        "{Patient ",
                                                        "Title}",
                                                        "{Recall Patient Title}",
                                                        "{Appointment Provider ",
                                                        "Business Address}",
                                                        "Address line 1}",
                                                        "{Office Fax}",
                                                        "é<b>"};
  std::string text;
  for (auto pieces = chance() % 12; pieces > 0; --pieces) {
    text += kPieces.at(chance() % kPieces.size());
  }
  return text;
}

TEST(TemplateVariables, RenamingAgainChangesNothingAndMergingLeavesNone) {
  std::mt19937 chance(20261122);
  const TemplateValues values = {{"{Patient Title}", "{Office Name}"}, {"{Office Address for Map}", "1 <Elm> & Oak"}};
  for (int i = 0; i < 20000; ++i) {
    const std::string text = RandomTemplate(chance);
    const std::string renamed = WithCurrentVariables(text);
    ASSERT_EQ(WithCurrentVariables(renamed), renamed) << text;
    for (const bool html : {false, true}) {
      const std::string merged = Merged(renamed, values, html);
      for (const TemplateVariable& variable : TemplateVariables()) {
        ASSERT_EQ(merged.find(variable.text), std::string::npos) << text;
      }
      ASSERT_EQ(merged.find(kNoVariable), std::string::npos) << text;
    }
  }
}

TEST(TemplateVariables, ValuesAreTextWhereverTheyStand) {
  const TemplateValues values = {{"{Office Name}", "Smith & <Sons>\r\n{Patient Title}"}};
  EXPECT_EQ(Merged("a {Office Name} b{Office Fax}", values, false), "a Smith & <Sons>\r\nPatient Title b");
  EXPECT_EQ(Merged("<a href=\"{Office Name}\">", values, true),
            "<a href=\"Smith &amp; &lt;Sons&gt;<br>Patient Title\">");
}

}  // namespace
}  // namespace recall
