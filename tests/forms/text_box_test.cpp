#include "forms/text_box.h"

namespace forms {
namespace {

using testing::ElementsAre;

class TextBoxTest : public testing::Test {
 protected:
  TextBoxTest() {
    box.Change = [this] { changes.push_back(box.Text); };
  }

  TextBox box;
  std::vector<std::string> changes;
};

TEST_F(TextBoxTest, TypingReplacesAndAddingAppendsKeyByKey) {
  box.Text = "old";
  box.DoType("ab");
  box.DoAppend("c");
  EXPECT_THAT(changes, ElementsAre("a", "ab", "abc"));
  box.DoType("");
  EXPECT_EQ(box.Text, "");
}

TEST_F(TextBoxTest, TheKeyFilterChangesOrDropsCharacters) {
  box.KeyPress = [](char32_t c) { return c == U'f' ? U'F' : c == U'x' ? char32_t{0} : c; };
  box.DoType("xfx\u00E9");
  EXPECT_EQ(box.Text, "F\u00E9");
  box.DoType("x");
  EXPECT_EQ(box.Text, "F\u00E9") << "a dropped key does not type over";
}

TEST_F(TextBoxTest, TheLongestTextBoundsTypingButNotTheRules) {
  box.MaxLength = 3;
  box.DoType("\u00E9\u00E9\u00E9\u00E9");
  EXPECT_EQ(box.Text, "\u00E9\u00E9\u00E9");
  box.Text = "assigned";
  box.DoAppend("x");
  EXPECT_EQ(box.Text, "assigned");
}

TEST_F(TextBoxTest, TheMaskPutsItsOwnCharactersIn) {
  box.Mask = "##-##";
  box.DoType("1231");
  EXPECT_EQ(box.Text, "12-31");
  box.DoType("1x2-/315");
  EXPECT_EQ(box.Text, "12-31") << "typed separators fit, other characters do not";
  box.DoType("7-1");
  EXPECT_EQ(box.Text, "07-1") << "a separator ends the number before it";
  box.DoType("");
  box.DoType("-12-");
  EXPECT_EQ(box.Text, "12-");
  box.Text = "12";
  EXPECT_EQ(box.DoTypeOver(1, 1, "-"), std::nullopt) << "in the midst it fits nowhere";
  box.Mask = "A#&";
  box.DoType("1a1%9");
  EXPECT_EQ(box.Text, "a1%");
}

TEST_F(TextBoxTest, TypingOverAPartTellsWhereTheCaretIs) {
  box.Text = "Sm\u00EFth";
  EXPECT_EQ(box.DoTypeOver(2, 3, "yy"), 4U);
  EXPECT_EQ(box.Text, "Smyyth");
  EXPECT_THAT(changes, ElementsAre("Smyyth"));
  box.MaxLength = 6;
  EXPECT_EQ(box.DoTypeOver(0, 0, "x"), std::nullopt);
  EXPECT_EQ(box.DoTypeOver(99, 120, "x"), std::nullopt);
  EXPECT_EQ(box.Text, "Smyyth");
}

TEST_F(TextBoxTest, WhatARuleMakesOfTheTextIsTypedOn) {
  box.Change = [this] {
    if (box.Text == "ab") {
      box.Text = "AB!";
    }
  };
  box.DoType("abc");
  EXPECT_EQ(box.Text, "ABc!") << "the caret stands behind the second key";
}

TEST_F(TextBoxTest, ReadOnlyAndDisabledFieldsTakeNoTyping) {
  box.Text = "kept";
  box.ReadOnly = true;
  box.DoType("x");
  box.DoType("");
  box.DoAppend("x");
  box.ReadOnly = false;
  box.Enabled = false;
  box.DoType("x");
  EXPECT_EQ(box.Text, "kept");
  EXPECT_TRUE(changes.empty());
}

TEST_F(TextBoxTest, EqualTextIsNoChange) {
  box.Text = "same";
  box.DoEdit("same");
  EXPECT_TRUE(changes.empty());
  box.DoEdit("other");
  EXPECT_EQ(changes.size(), 1U);
}

}  // namespace
}  // namespace forms
