#include "lookup/look_up.h"

#include "lookup/frmTGList.h"
#include "lookup/list_catalogue.h"
#include "practice/demo.h"
#include "support/fake_host.h"
#include "support/practice_host.h"

namespace {

using lookup::frmTGList;
using lookup::ShowLookUpList;
using End = session::ListOutcome::End;
using testing::ElementsAre;
using testing::IsEmpty;

class LookUp : public testing::Test {
 protected:
  LookUp() {
    host_.session.columns = {"ID Num", "Name", "Last Name", "First Name"};
    host_.session.rows = {{std::int64_t{7}, "Wolf, ", "Wolf", ""}, {std::int64_t{8}, "Smith, J", "Smith", "J"}};
    host_.user.acts = [this](forms::Form& form) {
      caption_ = form.Caption;
      if (act_) {
        act_(dynamic_cast<frmTGList&>(form));
      }
    };
  }

  test_support::FakeHost host_;
  std::string caption_;
  std::function<void(frmTGList&)> act_;
};

TEST_F(LookUp, TellsTheHostThePersonTypeAndTheChoice) {
  act_ = [](frmTGList& list) { list.DialogButtons1.OK.DoClick(); };
  const auto result = ShowLookUpList(host_.Context(), session::lulReferral, {});
  EXPECT_EQ(result.id, 7);
  EXPECT_EQ(result.text, "Wolf");
  EXPECT_EQ(caption_, "Referred By List");
  EXPECT_THAT(host_.session.person_types, ElementsAre("pTypRef"));
  EXPECT_THAT(host_.session.handed, ElementsAre("pID PaTable 7"));
}

TEST_F(LookUp, KeepsTheChoiceThatTheHostDoesNotTake) {
  act_ = [](frmTGList& list) { list.DialogButtons1.OK.DoClick(); };
  host_.session.takes_hand_offs = false;
  EXPECT_EQ(ShowLookUpList(host_.Context(), session::lulReferral, {}).id, 7);
  EXPECT_THAT(host_.user.told, ElementsAre(testing::HasSubstr("not taken")));
}

TEST_F(LookUp, TellsTheHostNothingWhenNothingIsChosen) {
  const auto result = ShowLookUpList(host_.Context(), session::lulInsuranceCo, {.title = "Select Replacement"});
  EXPECT_EQ(result.end, End::Cancelled);
  EXPECT_EQ(caption_, "Select Replacement");
  EXPECT_THAT(host_.session.person_types, IsEmpty());
  EXPECT_THAT(host_.session.handed, IsEmpty());
}

TEST_F(LookUp, SkipsAListForANewEmployee) {
  EXPECT_EQ(ShowLookUpList(host_.Context(), session::lulEmployee, {.skip_if_new = true}).end, End::New);
  EXPECT_EQ(host_.user.shown, 0);
}

TEST_F(LookUp, OpensTheKindsEditingScreen) {
  host_.screens.saves = 8;
  act_ = [](frmTGList& list) {
    list.ToolStrip["New"].DoClick();
    EXPECT_EQ(list.DotNetGrid.Row.get(), 1);
    list.ToolStrip["Edit"].DoClick();
  };
  ShowLookUpList(host_.Context(), session::lulProvider, {});
  ASSERT_EQ(host_.screens.opened.size(), 2U);
  EXPECT_TRUE(host_.screens.opened[0].IsNew());
  EXPECT_EQ(host_.screens.opened[1].kind, session::RecordKind::Provider);
  EXPECT_EQ(host_.screens.opened[1].id, 8);
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

// A real practice of two offices, seen from the second, on each kind of database.
class PracticeLists : public testing::TestWithParam<std::int32_t> {
 protected:
  PracticeLists()
      : host_(host::MakeDemo("sqlite::memory:", {.patients = 150,
                                                 .practice = {.kind = GetParam(), .office = 2, .offices = 2},
                                                 .password_cost = host::HashCost::Least})) {}

  void Show(int type, std::function<void(frmTGList&)> acts) {
    host_.user.acts = [&](forms::Form& form) { acts(dynamic_cast<frmTGList&>(form)); };
    ShowLookUpList(host_.Context(), static_cast<session::LookUpListTypes>(type), {});
    EXPECT_THAT(host_.user.told, IsEmpty());
  }
  static void FetchAll(frmTGList& list) {
    while (list.DoIdle()) {
    }
  }

  test_support::PracticeHost host_;
};

TEST_P(PracticeLists, FilterAndSortByEveryColumn) {
  for (std::int32_t type = 0; type < lookup::kListKinds; ++type) {
    Show(type, [&](frmTGList& list) {
      SCOPED_TRACE(list.Caption.get());
      FetchAll(list);
      ASSERT_GT(list.DotNetGrid.RowCount(), 0);
      ASSERT_GE(list.DotNetGrid.ColumnIndex(list.IDFld.Caption.get()), 0);
      ASSERT_GE(list.DotNetGrid.ColumnIndex(list.NamFld.Caption.get()), 0);
      const int rows = list.DotNetGrid.RowCount();
      for (int column = 0; column < static_cast<int>(list.DotNetGrid.Columns->size()); ++column) {
        SCOPED_TRACE(list.DotNetGrid.Columns.get()[static_cast<std::size_t>(column)].caption);
        list.DotNetGrid.DoSort(column);
        FetchAll(list);
        EXPECT_EQ(list.DotNetGrid.RowCount(), rows);
        const std::string cell(list.DotNetGrid.Cell(rows - 1, column));
        list.DotNetGrid.DoFilter(column, cell);
        FetchAll(list);
        ASSERT_GT(list.DotNetGrid.RowCount(), 0);
        EXPECT_TRUE(list.DotNetGrid.Cell(0, column).starts_with(cell));
        list.ToolStrip["RemFilt"].DoClick();
      }
    });
  }
}

TEST_P(PracticeLists, HoldOneOfficesRows) {
  const std::map<std::int32_t, std::string> counts = {
      {session::lulProvider, "PATable WHERE pTypDoc>='1'"},
      {session::lulReferInOut, "PATable WHERE (pTypPhy>='1' or pTypRef>='1')"},
      {session::lulFamilyHead,
       "PATable WHERE (pFAMHEAIND = pID or pFAMHEAIND is Null or pFAMHEAIND = 0) and pTypPat >= '1'"},
      {session::lulEmployer, "EmpTable WHERE EmpInd<>0"},
      {session::lulGroupPlan, "GroPlaTable WHERE GroPlaInd<>0"},
      {session::lulRecallMaster, "RSTable WHERE RCRecNum<>0"},
  };
  for (const auto& [type, rows] : counts) {
    const std::string count =
        host_.Value("SELECT Count(*) FROM " + rows + (GetParam() == 7 ? " and (OfficeID = 2) " : ""));
    Show(type, [&](frmTGList& list) {
      FetchAll(list);
      EXPECT_EQ(std::to_string(list.DotNetGrid.RowCount()), count) << list.Caption.get();
    });
  }
}

TEST_P(PracticeLists, TakeHostileFiltersForText) {
  const std::string hostile = "O'B%_[r]\"; DROP TABLE PATable; -- \xC3\xA9\xF0\x9F\xA6\xB7";
  host_.session.Connection().Execute(
      "UPDATE PATable SET pLASNAM = 'O''B%_[r]\"; DROP TABLE PATable; -- "
      "\xC3\xA9\xF0\x9F\xA6\xB7' WHERE pID = (SELECT min(pID) FROM PATable WHERE "
      "pTypDoc = '1' AND OfficeID = 2)");
  Show(session::lulProvider, [&](frmTGList& list) {
    for (const char* caption : {"Name", "Last Name"}) {
      list.DotNetGrid.DoFilter(list.DotNetGrid.ColumnIndex(caption), hostile);
      EXPECT_EQ(list.DotNetGrid.RowCount(), 1) << caption;
      list.ToolStrip["RemFilt"].DoClick();
    }
    list.DotNetGrid.DoFilter(0, std::string(10000, '%'));
    EXPECT_THAT(list.RowLabel.Caption.get(), testing::StartsWith("0 of "));
    EXPECT_THAT(list.DotNetGrid.EmptyText.get(), testing::HasSubstr("Remove Filter shows all"));
  });
}

INSTANTIATE_TEST_SUITE_P(Kinds, PracticeLists, testing::Values(1, 7));

}  // namespace
