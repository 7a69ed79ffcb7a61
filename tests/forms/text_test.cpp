#include "forms/text.h"

namespace forms {
namespace {

TEST(Text, BytesThatAreNoUtf8BecomeTheReplacementCharacter) {
  EXPECT_EQ(ToUtf32("a\u00E9\u20AC\U0001F600"), U"a\u00E9\u20AC\U0001F600");
  EXPECT_EQ(ToUtf32("\xFF\xC3"), U"\uFFFD\uFFFD");
  EXPECT_EQ(ToUtf32("\xC0\xAF"), U"\uFFFD\uFFFD") << "overlong";
  EXPECT_EQ(ToUtf32("\xED\xA0\x80"), U"\uFFFD") << "surrogate";
  EXPECT_EQ(ToUtf32("\xE2\x82"
                    "b"),
            U"\uFFFDb")
      << "cut short";
}

TEST(Text, EveryCharacterComesBackFromUtf8) {
  for (char32_t c = 1; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 0x101) {
    if (c < 0xD800 || c > 0xDFFF) {
      ASSERT_EQ(ToUtf32(ToUtf8({&c, 1})), std::u32string(1, c));
    }
  }
}

TEST(Text, LengthsAreInCharacters) {
  EXPECT_EQ(CharacterCount("Zo\u00EB"), 3U);
  EXPECT_EQ(Left("Zo\u00EB\u00EB", 3), "Zo\u00EB");
  EXPECT_EQ(Left("Zo\u00EB", 3), "Zo\u00EB");
  EXPECT_EQ(Left("abc", 0), "");
}

TEST(Text, TrimTakesBlanksAtBothEnds) {
  EXPECT_EQ(Trim(" \t a b\r\n"), "a b");
  EXPECT_EQ(Trim(" \n "), "");
}

TEST(Text, CaseIsMappedInTheLettersOfPeoplesNames) {
  EXPECT_EQ(ToUpper("o'brien \u00E9\u00FF\u00DF\u0151\u017E\u0219 \u03AC\u03C3\u03C2 \u0451\u044F \u1EC7"),
            "O'BRIEN \u00C9\u0178\u00DF\u0150\u017D\u0218 \u0386\u03A3\u03C2 \u0401\u042F \u1EC6");
  EXPECT_EQ(ToLower("O'BRIEN \u00C9\u0178\u0150\u017D\u0130 \u0386\u03A3 \u0401\u042F \u1EC6 [@`{]"),
            "o'brien \u00E9\u00FF\u0151\u017E\u0130 \u03AC\u03C3 \u0451\u044F \u1EC7 [@`{]");
  EXPECT_EQ(ToProper("o'BRIEN-sMITH 12TH street \u00E9LAN"), "O'brien-Smith 12th Street \u00C9lan");
}

TEST(Text, CaseMappingComesBack) {
  for (char32_t c = 0x20; c < 0x2000; ++c) {
    const std::string lower = ToLower(ToUtf8({&c, 1}));
    ASSERT_EQ(ToLower(ToUpper(lower)), lower) << static_cast<std::uint32_t>(c);
  }
}

TEST(Text, CaptionsMarkOneLetter) {
  EXPECT_EQ(WithMnemonic("Home Phone 2", 'm'), "Ho&me Phone 2");
  EXPECT_EQ(WithMnemonic("Home Phone 2", '2'), "Home Phone &2");
  EXPECT_EQ(WithMnemonic("A & B", 'b'), "A && &B");
  EXPECT_EQ(WithMnemonic("Fax", 'z'), "Fax");
  for (const char* caption : {"Ho&me", "A && &Me", "&M"}) {
    EXPECT_EQ(MnemonicOf(caption), 'm');
  }
  EXPECT_EQ(MnemonicOf("A && B &"), '\0');
  EXPECT_EQ(WithoutMnemonic("A && &Me"), "A & Me");
}

TEST(Text, EqualityIgnoresCase) {
  EXPECT_TRUE(EqualsIgnoringCase("patscreen_sm", "patScreen_SM"));
  EXPECT_TRUE(EqualsIgnoringCase("\u00C9LAN", "\u00E9lan"));
  EXPECT_FALSE(EqualsIgnoringCase("Text1(1)", "Text1(11)"));
}

}  // namespace
}  // namespace forms
