#include "forms/check_box.h"
#include "forms/list_box.h"
#include "forms/panels.h"

namespace forms {
namespace {

TEST(CheckBox, OnlyAThreeStateBoxCanBeMixed) {
  CheckBox box;
  int clicks = 0;
  box.Click = [&clicks] { ++clicks; };
  EXPECT_FALSE(box.DoCheck(CheckState::Mixed));
  box.ThreeState = true;
  EXPECT_TRUE(box.DoCheck(CheckState::Mixed));
  EXPECT_TRUE(box.DoCheck(CheckState::Mixed));
  EXPECT_EQ(box.Value, CheckState::Mixed);
  EXPECT_EQ(clicks, 1) << "the same state again is no click";
  EXPECT_EQ(box.FieldText(), "") << "a record keeps it as Null";
}

TEST(OptionGroup, OneAtMostIsOnWhoeverTurnsItOn) {
  std::array<OptionButton, 3> options;
  const OptionGroup group{options.data(), &options[1], &options[2]};
  EXPECT_EQ(group.Chosen(), -1);
  options[1].Value = true;
  EXPECT_EQ(group.Chosen(), 1);
  options[2].DoChoose();
  EXPECT_EQ(group.Chosen(), 2);
  EXPECT_FALSE(options[1].Value);
  options[0].Enabled = false;
  options[0].DoChoose();
  EXPECT_EQ(group.Chosen(), 2);
}

class ComboTest : public testing::Test {
 protected:
  ComboTest() { combo.Items = {{"Days", 1}, {"Months", 30}}; }

  ComboBox combo;
};

TEST_F(ComboTest, TheBoxShowsTheCurrentEntry) {
  EXPECT_FALSE(combo.DoPick(2));
  EXPECT_TRUE(combo.DoPick(1));
  EXPECT_EQ(combo.Text, "Months");
  EXPECT_EQ(combo.Current()->data, 30);
  combo.ListIndex = combo.IndexOfData(1);
  EXPECT_EQ(combo.Text, "Days");
  combo.Clear();
  EXPECT_EQ(combo.Text, "");
  EXPECT_EQ(combo.Current(), nullptr);
}

TEST_F(ComboTest, AnotherTextLeavesNoEntryCurrent) {
  combo.ListIndex = 1;
  combo.Text = "Weeks";
  EXPECT_EQ(combo.ListIndex, -1);
  EXPECT_EQ(combo.Text, "Weeks");
  combo.ListIndex = 1;
  combo.DoEdit("Mo");
  EXPECT_EQ(combo.ListIndex, -1);
  EXPECT_EQ(combo.Text, "Mo");
}

TEST(Slider, StaysInItsRange) {
  Slider slider;
  slider.Max = 6;
  EXPECT_TRUE(slider.DoSlide(6));
  EXPECT_FALSE(slider.DoSlide(7));
  EXPECT_FALSE(slider.DoSlide(-1));
  EXPECT_EQ(slider.Value, 6);
}

}  // namespace
}  // namespace forms
