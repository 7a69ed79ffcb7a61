#include "console/line.h"

#include "console/expectation.h"
#include "console/step_failure.h"
#include "console/step_words.h"

namespace host {
namespace {

using testing::ElementsAre;

std::vector<std::string> Words(std::string_view text) {
  std::vector<std::string> words;
  for (const Word& word : ReadLine(text, "f", 1).words) {
    words.push_back(word.text);
  }
  return words;
}

TEST(Line, IsCutIntoWords) {
  EXPECT_THAT(Words("  type\tText1(0)  \"Smith, \\\"J\\\" \\\\ \\n\\t|\" "),
              ElementsAre("type", "Text1(0)", "Smith, \"J\" \\ \r\n\t|"));
  EXPECT_THAT(Words("call A.B ns_ID=\"Smith, John\" l_ID=NEW"),
              ElementsAre("call", "A.B", "ns_ID=Smith, John", "l_ID=NEW"));
  EXPECT_THAT(Words("type X \"\""), ElementsAre("type", "X", ""));
  EXPECT_THAT(Words("started ~ \"*\\WP\\x\""), ElementsAre("started", "~", "*\\WP\\x"));
}

TEST(Line, CommentsBeginOutsideQuotesAndPositionsAreNone) {
  EXPECT_THAT(Words("click X # then \"this\""), ElementsAre("click", "X"));
  EXPECT_THAT(Words("#3 is no position"), ElementsAre());
  EXPECT_THAT(Words("type X \"Apt #5\" #5"), ElementsAre("type", "X", "Apt #5"));
  EXPECT_THAT(Words("line Grid1 #12 = \"a\" # third"), ElementsAre("line", "Grid1", "#12", "=", "a"));
  EXPECT_THAT(Words("chosen #80FF00"), ElementsAre("chosen", "#80FF00"));
  EXPECT_THAT(Words("click X #decade"), ElementsAre("click", "X"));
}

TEST(Line, TellsOfAQuoteThatIsNotClosed) {
  EXPECT_EQ(ReadLine("type X \"Smith", "f", 3).error, "a double quote is not closed");
}

TEST(StepWords, ReplacesVariablesAndRefusesUnknownOnes) {
  const Variables known = {{"ID", "7"}};
  StepWords words(ReadLine("query \"pID=${ID} ${ x } $\" = ${ID}", "f", 1), known);
  EXPECT_EQ(words.Take("step"), "query");
  EXPECT_EQ(words.TakeUpToSign("query"), "pID=7 ${ x } $");
  EXPECT_TRUE(words.TakeExpectation().Matches("7"));
  EXPECT_THROW(StepWords(ReadLine("type X ${NONE}", "f", 1), known), StepFailure);
}

TEST(Expectation, EqualityAndGlobs) {
  EXPECT_TRUE(Expectation::Equal("a\r\nb").Matches("a\rb"));
  EXPECT_FALSE(Expectation::Equal("a*").Matches("ab"));
  EXPECT_TRUE(Expectation::Glob("SELECT * FROM*PATable*").Matches("SELECT pID FROM x, PATable"));
  EXPECT_FALSE(Expectation::Glob("select *").Matches("SELECT 1"));
  EXPECT_FALSE(Expectation::Glob("a").Matches("ab"));
  EXPECT_TRUE(Expectation::Glob("M?ller*").Matches("M\xC3\xBCller"));
  EXPECT_TRUE(Expectation::Glob("*a*b*").Matches("xxaxxbxx\r\ny"));
  EXPECT_FALSE(Expectation::Glob("?").Matches(""));
}

}  // namespace
}  // namespace host
