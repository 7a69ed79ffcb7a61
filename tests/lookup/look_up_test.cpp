#include "lookup/look_up.h"

#include "lookup/fake_host.h"
#include "lookup/frmTGList.h"

namespace {

using lookup::frmTGList;
using lookup::ShowLookUpList;
using testing::ElementsAre;
using testing::IsEmpty;

class LookUp : public testing::Test {
 protected:
  LookUp() {
    host_.session.rows = {{std::int64_t{7}, "Wolf, "}, {std::int64_t{8}, "Smith, J"}};
    host_.user.acts = [this](forms::Form& form) {
      caption_ = form.Caption;
      if (act_) {
        act_(dynamic_cast<frmTGList&>(form));
      }
    };
  }

  lookup_test::FakeHost host_;
  std::string caption_;
  std::function<void(frmTGList&)> act_;
};

TEST_F(LookUp, TellsTheHostThePersonTypeAndTheChoice) {
  act_ = [](frmTGList& list) { list.DialogButtons1.OK.DoClick(); };
  const auto result = ShowLookUpList(host_.Context(), session::lulReferral, {});
  EXPECT_EQ(result.answer, "7");
  EXPECT_EQ(result.choice->text, "Wolf");
  EXPECT_EQ(caption_, "Referred By List");
  EXPECT_THAT(host_.session.person_types, ElementsAre("pTypRef"));
  EXPECT_THAT(host_.session.handed, ElementsAre("pID PaTable 7"));
}

TEST_F(LookUp, TellsTheHostNothingWhenNothingIsChosen) {
  const auto result = ShowLookUpList(host_.Context(), session::lulInsuranceCo, {.title = "Select Replacement"});
  EXPECT_EQ(result.answer, "CANCEL_AND_CLOSE");
  EXPECT_FALSE(result.choice);
  EXPECT_EQ(caption_, "Select Replacement");
  EXPECT_THAT(host_.session.person_types, IsEmpty());
  EXPECT_THAT(host_.session.handed, IsEmpty());
}

TEST_F(LookUp, ShowsNothingForAnUnknownTypeAndSkipsAListForANewEmployee) {
  EXPECT_EQ(ShowLookUpList(host_.Context(), 14, {}).answer, "CANCEL_AND_CLOSE");
  EXPECT_EQ(ShowLookUpList(host_.Context(), -1, {}).answer, "CANCEL_AND_CLOSE");
  EXPECT_EQ(ShowLookUpList(host_.Context(), session::lulEmployee, {.skip_list_if_new = true}).answer, "NEW");
  EXPECT_EQ(host_.user.shown, 0);
}

TEST_F(LookUp, OpensTheKindsEditingScreen) {
  host_.screens.saves = "8";
  act_ = [](frmTGList& list) {
    list.ToolStrip["New"].DoClick();
    EXPECT_EQ(list.DotNetGrid.Row.get(), 1);
    list.ToolStrip["Edit"].DoClick();
    list.ToolStrip["Delete"].DoClick();
  };
  ShowLookUpList(host_.Context(), session::lulProvider, {});
  EXPECT_THAT(host_.screens.opened, ElementsAre("PTYPDOC NEW", "PTYPDOC 8"));
  EXPECT_THAT(host_.user.told, ElementsAre(testing::HasSubstr("Provider List is not part of this version yet")));
}

TEST_F(LookUp, GivesTheCodeAndTextOfAShortList) {
  host_.session.columns = {"Code", "Description", "ID Num"};
  host_.session.rows = {{"F", "Ms.", std::int64_t{1}}, {"M", "Mr.", std::int64_t{2}}};
  act_ = [](frmTGList& list) {
    list.DotNetGrid.DoRow(1);
    list.DotNetGrid.DoOpenRow();
  };
  const auto picked = lookup::ShowPickList(host_.Context(), session::PickList::SexTitle, "Sex and Title");
  ASSERT_TRUE(picked);
  EXPECT_EQ(picked->code, "M");
  EXPECT_EQ(picked->text, "Mr.");
  act_ = {};
  EXPECT_FALSE(lookup::ShowPickList(host_.Context(), session::PickList::SexTitle, ""));
}

}  // namespace
