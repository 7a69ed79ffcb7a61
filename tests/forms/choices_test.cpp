#include "forms/check_box.h"
#include "forms/check_list_box.h"
#include "forms/form.h"
#include "forms/list_box.h"
#include "forms/list_chooser.h"
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

TEST(CheckListBox, EntriesAreTurnedOnAndOff) {
  CheckListBox list;
  std::vector<int> told;
  list.ItemCheck = [&told](int index) { told.push_back(index); };
  list.Items = {{"Mail", 7}, {"Call", 8}, {"Text", 9}};
  EXPECT_TRUE(list.DoTick(2, true));
  EXPECT_TRUE(list.DoTick(2, true));
  EXPECT_FALSE(list.DoTick(3, true));
  list.Check(0, true);
  EXPECT_THAT(list.CheckedData(), testing::ElementsAre(7, 9));
  EXPECT_EQ(list.ListIndex, 2);
  EXPECT_TRUE(list.DoTick(0, false));
  EXPECT_THAT(list.CheckedItems(), testing::ElementsAre(2));
  EXPECT_THAT(told, testing::ElementsAre(2, 0));
  list.Enabled = false;
  EXPECT_TRUE(list.DoTick(1, true));
  EXPECT_FALSE(list.IsChecked(1));
  list.Items = {{"Call", 8}, {"Text", 9}, {"Fax", 10}};
  EXPECT_THAT(list.CheckedItems(), testing::IsEmpty()) << "others";
}

class ChooserTest : public testing::Test {
 protected:
  ChooserTest() : form("Form") {
    form.Add("ToPrint", chooser);
    chooser.SetItems({{"Name", 1}, {"City", 2}, {"Zip", 3}, {"Age", 4}}, {4, 9, 2});
    chooser.Change = [this] { ++changes; };
  }

  static std::string Texts(const ListBox& list) {
    std::string texts;
    for (const ListItem& item : list.Items.get()) {
      texts += item.text + " ";
    }
    return texts;
  }

  Form form;
  ListChooser chooser;
  int changes = 0;
};

TEST_F(ChooserTest, EntriesMoveOverAndBackToTheirPlaces) {
  EXPECT_EQ(form.Find("ToPrint.AddAll"), &chooser.AddAll);
  EXPECT_EQ(Texts(chooser.Available), "Name Zip ");
  EXPECT_EQ(Texts(chooser.Chosen), "Age City ");
  EXPECT_FALSE(chooser.Add.Enabled) << "nothing is current";
  chooser.Available.DoHighlight(0);
  chooser.Add.DoClick();
  EXPECT_THAT(chooser.ChosenData(), testing::ElementsAre(4, 2, 1));
  EXPECT_EQ(chooser.Available.Current()->text, "Zip") << "the next click moves that";
  chooser.Chosen.DoHighlight(1);
  chooser.Chosen.DoOpen();
  EXPECT_EQ(Texts(chooser.Available), "City Zip ");
  chooser.AddAll.DoClick();
  EXPECT_EQ(Texts(chooser.Chosen), "Age Name City Zip ");
  EXPECT_FALSE(chooser.AddAll.Enabled);
  EXPECT_TRUE(chooser.Chosen.HasFocus()) << "its button has nothing left to do";
  chooser.RemoveAll.DoClick();
  EXPECT_EQ(Texts(chooser.Available), "Name City Zip Age ");
  EXPECT_EQ(changes, 4);
}

TEST_F(ChooserTest, ThePersonGivesTheOrder) {
  chooser.Chosen.DoHighlight(0);
  EXPECT_FALSE(chooser.Up.Enabled);
  chooser.Down.DoClick();
  EXPECT_THAT(chooser.ChosenData(), testing::ElementsAre(2, 4));
  EXPECT_FALSE(chooser.Down.Enabled);
  chooser.Up.DoClick();
  EXPECT_THAT(chooser.ChosenData(), testing::ElementsAre(4, 2));
  EXPECT_EQ(chooser.Chosen.ListIndex, 0);
  chooser.AddAll.DoClick();
  EXPECT_TRUE(chooser.Chosen.DoMove(3, 0));
  EXPECT_TRUE(chooser.Chosen.DoMove(1, 2));
  EXPECT_EQ(Texts(chooser.Chosen), "Zip City Age Name ");
  EXPECT_EQ(chooser.Chosen.ListIndex, 2) << "what was dragged is current";
  EXPECT_FALSE(chooser.Chosen.DoMove(0, 4));
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
