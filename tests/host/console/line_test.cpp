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
  EXPECT_THAT(Words("move Grid1 #2 #0 # up"), ElementsAre("move", "Grid1", "#2", "#0"));
  EXPECT_THAT(Words("move-column Grid1 Name #3"), ElementsAre("move-column", "Grid1", "Name", "#3"));
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

// Whether a text fits the pattern as a line writes it.
bool Fits(std::string_view pattern, std::string_view text) {
  StepWords words(ReadLine("~ " + std::string(pattern), "f", 1), {});
  return words.TakeExpectation().Matches(text);
}

TEST(Expectation, ABackslashTakesAWildcardForItself) {
  EXPECT_TRUE(Fits(R"("SELECT \* FROM *")", "SELECT * FROM x"));
  EXPECT_FALSE(Fits(R"("SELECT \* FROM *")", "SELECT pID FROM x"));
  EXPECT_TRUE(Fits(R"(Why\?)", "Why?"));
  EXPECT_FALSE(Fits(R"(Why\?)", "Whys"));
  EXPECT_TRUE(Fits(R"("*\\TAVOWP.EXE*\\*")", R"(C:\TAVOWP.EXE C:\DATA\a.rtf)")) << "a backslash, then a wildcard";
  EXPECT_TRUE(Fits(R"(\\server\*\x)", R"(\\server*\x)"));
  StepWords words(ReadLine(R"(= "\*")", "f", 1), {});
  EXPECT_TRUE(words.TakeExpectation().Matches(R"(\*)")) << "there are no wildcards in an equality";
}

TEST(Expectation, EqualityAndGlobs) {
  const auto glob = [](const std::string& pattern) { return Expectation::Glob(pattern, pattern); };
  EXPECT_TRUE(Expectation::Equal("a\r\nb").Matches("a\rb"));
  EXPECT_FALSE(Expectation::Equal("a*").Matches("ab"));
  EXPECT_TRUE(glob("SELECT * FROM*PATable*").Matches("SELECT pID FROM x, PATable"));
  EXPECT_FALSE(glob("select *").Matches("SELECT 1"));
  EXPECT_FALSE(glob("a").Matches("ab"));
  EXPECT_TRUE(glob("M?ller*").Matches("M\xC3\xBCller"));
  EXPECT_TRUE(glob("*a*b*").Matches("xxaxxbxx\r\ny"));
  EXPECT_FALSE(glob("?").Matches(""));
}

}  // namespace
}  // namespace host
