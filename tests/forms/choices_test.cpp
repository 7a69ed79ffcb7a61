#include "forms/check_box.h"
#include "forms/form.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text_box.h"

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

class TabTest : public testing::Test {
 protected:
  TabTest() : form("Form") {
    for (std::size_t i = 0; i < pages.size(); ++i) {
      pages[i].Caption = "Page " + std::to_string(i);
      fields[i].Container = &pages[i];
      tabs.AddPage(pages[i]);
    }
    form.Add("tabs", tabs);
    form.Add("pages", pages);
    form.Add("fields", fields);
  }

  Form form;
  TabStrip tabs;
  std::array<Panel, 3> pages;
  std::array<TextBox, 3> fields;
};

TEST_F(TabTest, OnlyThePageInFrontIsSeen) {
  int switched = 0;
  tabs.Switch = [&switched] { ++switched; };
  EXPECT_THAT(tabs.Tabs.get(), testing::ElementsAre("Page 0", "Page 1", "Page 2"));
  EXPECT_TRUE(fields[0].Usable());
  EXPECT_FALSE(fields[1].Shown());
  EXPECT_FALSE(fields[1].DoFocus());
  EXPECT_TRUE(tabs.DoTab(1));
  EXPECT_TRUE(tabs.DoTab(1));
  EXPECT_FALSE(tabs.DoTab(3));
  EXPECT_TRUE(fields[1].DoFocus());
  EXPECT_FALSE(fields[0].Usable());
  EXPECT_EQ(switched, 1);
}

TEST_F(TabTest, ARulesFocusBringsThePageForward) {
  fields[2].SetFocus();
  EXPECT_EQ(tabs.CurrTab, 2);
  EXPECT_TRUE(fields[2].Usable());
  pages[1].Visible = false;
  fields[1].SetFocus();
  EXPECT_EQ(tabs.CurrTab, 2) << "a page without a tab stays away";
}

TEST_F(TabTest, AFieldThatKeepsTheFocusKeepsItsPage) {
  fields[0].Leave = [this] { fields[0].SetFocus(); };
  fields[0].DoFocus();
  EXPECT_TRUE(tabs.DoTab(1));
  EXPECT_EQ(tabs.CurrTab, 0);
}

TEST_F(TabTest, ANeighbourTakesTheFrontOfAPageThatGoes) {
  tabs.DoTab(1);
  pages[1].Visible = false;
  EXPECT_EQ(tabs.CurrTab, 2) << "the one behind it";
  EXPECT_FALSE(tabs.DoTab(1));
  EXPECT_EQ(tabs.NextTab(1), 0);
  pages[2].Visible = false;
  EXPECT_EQ(tabs.CurrTab, 0) << "or the one before";
  pages[0].Visible = false;
  EXPECT_EQ(tabs.CurrTab, -1);
  pages[1].Visible = true;
  EXPECT_EQ(tabs.CurrTab, 1);
  pages[1].Caption = "New";
  EXPECT_EQ(tabs.Tabs.get()[1], "New");
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
