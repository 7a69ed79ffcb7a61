#include "lookup/frmTGList.h"

#include "lookup/name_filter.h"
#include "support/fake_host.h"

namespace {

using forms::Key;
using lookup::frmTGList;
using testing::ElementsAre;
using testing::HasSubstr;

class ListWindow : public testing::Test {
 protected:
  ListWindow() {
    host_.session.columns = {"Name", "Last Name", "First Name", "ID Num"};
    list_.SetSQL(
        data::Words("SELECT DISTINCTROW P.L+', '+P.F AS Name, P.L AS [Last Name], P.F AS [First Name], P.I AS [ID Num] "
                    "FROM P WHERE P.T='1'"));
    list_.SortBy = data::Words("Name");
    list_.Caption = "Employee List";
    list_.IDFld.Caption = "ID Num";
    list_.NamFld.Caption = "Name";
  }

  void Fill(int rows) {
    for (std::int64_t id = 1; id <= rows; ++id) {
      host_.session.rows.push_back({"Smith, J", "Smith", "J", id});
    }
  }
  void Filter(const std::string& caption, const std::string& text) {
    ASSERT_TRUE(list_.DotNetGrid.DoFilter(list_.DotNetGrid.ColumnIndex(caption), text));
  }
  static std::string Named(const frmTGList& list, const char* property) { return list.Properties.at(property).get(); }
  const std::string& LastStatement() const { return host_.session.statements.back(); }

  test_support::FakeHost host_;
  frmTGList list_{host_.Context()};
};

TEST_F(ListWindow, KeepsDistinctRowForAFileDatabaseAlone) {
  EXPECT_THAT(list_.SQL().Text(), HasSubstr("DISTINCTROW"));
  host_.session.kind = 7;
  list_.SetSQL(data::Words("select DistinctRow A, 'DISTINCTROW' from T"));
  EXPECT_EQ(list_.SQL(), "select DISTINCT A, 'DISTINCT' from T");
}

TEST_F(ListWindow, ShowsAPageAtOnceAndTheRestWhileIdle) {
  Fill(1300);
  list_.Options.selected = 700;
  list_.Load();
  EXPECT_EQ(LastStatement(), list_.SQL() + " ORDER BY Name");
  EXPECT_THAT(host_.user.waits, ElementsAre("  Loading Employee List - Please Wait  ", ""));
  EXPECT_EQ(list_.DotNetGrid.RowCount(), 100);
  EXPECT_EQ(list_.RowLabel.Caption.get(), "100 rows so far ...");
  EXPECT_EQ(list_.DotNetGrid.Row.get(), -1) << "the starting record has not arrived";
  EXPECT_FALSE(list_.DialogButtons1.OK.Enabled);
  while (list_.DoIdle()) {
  }
  EXPECT_EQ(list_.RowLabel.Caption.get(), "1,300 rows");
  EXPECT_EQ(list_.DotNetGrid.Row.get(), 699);
  EXPECT_EQ(list_.DotNetGrid.Cell(1299, 3), "1300");
}

TEST_F(ListWindow, LeavesThePersonWhereHeWentBeforeTheStartingRecordCame) {
  Fill(1300);
  list_.Options.selected = 700;
  list_.Load();
  list_.DotNetGrid.DoRow(5);
  while (list_.DoIdle()) {
  }
  EXPECT_EQ(list_.DotNetGrid.Row.get(), 5);
}

TEST_F(ListWindow, ChoosesByButtonEnterMenuAndDoubleClick) {
  Fill(3);
  const std::vector<std::function<void(frmTGList&)>> ways = {
      [](frmTGList& list) { list.DialogButtons1.OK.DoClick(); },
      [](frmTGList& list) { list.DotNetGrid.DoKey(Key::Enter); },
      [](frmTGList& list) { list.MnuFileSel.DoClick(); },
      [](frmTGList& list) { list.DotNetGrid.DoOpenRow(); },
  };
  for (const auto& choose : ways) {
    frmTGList list(host_.Context());
    list.SetSQL(list_.SQL());
    list.IDFld.Caption = "ID Num";
    list.NamFld.Caption = "Name";
    list.Load();
    list.DotNetGrid.DoKey(Key::Down);
    choose(list);
    EXPECT_TRUE(list.Closed());
    EXPECT_EQ(list.Result.id, 2);
    EXPECT_EQ(list.Result.text, "Smith, J");
    EXPECT_EQ(Named(list, "Result"), "2");
  }
}

TEST_F(ListWindow, AnswersNothingChosenAndNew) {
  Fill(1);
  list_.Options.no_double_click = true;
  list_.Load();
  list_.DotNetGrid.DoOpenRow();
  EXPECT_FALSE(list_.Closed());
  list_.DoKey(Key::Esc);
  EXPECT_TRUE(list_.Closed());
  EXPECT_EQ(Named(list_, "Result"), "CANCEL_AND_CLOSE");

  frmTGList adds(host_.Context());
  adds.SetSQL(list_.SQL());
  adds.Load();
  EXPECT_FALSE(adds.ToolStrip["Edit"].Visible) << "there is nothing to edit with";
  adds.ToolStrip["New"].DoClick();
  EXPECT_EQ(Named(adds, "Result"), "NEW");

  frmTGList skipped(host_.Context());
  skipped.Properties.at("Request").set("SKIP LIST IF NEW");
  EXPECT_EQ(skipped.ShowList().end, session::ListOutcome::End::New);
  EXPECT_EQ(host_.user.shown, 0);
}

TEST_F(ListWindow, FiltersFromTheStartOrAnywhereAndRemembers) {
  Fill(1);
  list_.Load();
  Filter("Name", "Smi, J");
  EXPECT_EQ(LastStatement(),
            "SELECT DISTINCTROW P.L+', '+P.F AS Name, P.L AS [Last Name], P.F AS [First Name], P.I AS [ID Num] "
            "FROM P WHERE (P.T='1') AND ((((P.L) like 'Smi%') AND ((P.F) like 'J%'))) ORDER BY Name");
  Filter("ID Num", "12");
  EXPECT_THAT(LastStatement(), HasSubstr("(P.F) like 'J%')) AND (P.I = 12 OR P.I BETWEEN 120 AND 129 OR "));
  list_.optFiltMid.DoChoose();
  EXPECT_THAT(LastStatement(), HasSubstr("like '%12%'"));
  EXPECT_EQ(host_.session.UserOption("SESC_LUL", "FILTER_SRCH_ANY"), "1");
  list_.ToolStrip["RemFilt"].DoClick();
  EXPECT_EQ(LastStatement(), list_.SQL() + " ORDER BY Name");

  list_.chkAutoClearFilter.DoCheck(forms::CheckState::On);
  Filter("Last Name", "Smi");
  EXPECT_THAT(LastStatement(), HasSubstr("like '%Smi%'"));
  EXPECT_EQ(list_.DotNetGrid.Columns.get()[1].filter, "") << "the rows stay filtered, the cell is free again";
  frmTGList again(host_.Context());
  again.Load();
  EXPECT_TRUE(again.optFiltMid.Value);
  EXPECT_EQ(again.chkAutoClearFilter.Value.get(), forms::CheckState::On);
}

TEST_F(ListWindow, FiltersAnIdByRangesThatAnIndexAnswers) {
  Fill(3);
  list_.Load();
  Filter("ID Num", "21474");
  EXPECT_THAT(LastStatement(), HasSubstr("((P.I = 21474 OR P.I BETWEEN 214740 AND 214749 OR "));
  EXPECT_THAT(LastStatement(), HasSubstr(" OR P.I BETWEEN 2147400000 AND 2147483647))"));
  for (const char* none : {"012", "1a", "-1", "99999999999"}) {
    Filter("ID Num", none);
    EXPECT_THAT(LastStatement(), HasSubstr("((P.I) like '" + std::string(none) + "%')"));
  }
}

TEST_F(ListWindow, RefusesNamesFilteredInTwoWays) {
  Fill(1);
  list_.Load();
  Filter("First Name", "J");
  Filter("Name", "Smi");
  EXPECT_THAT(host_.user.told, ElementsAre(std::string(lookup::kDifferentNames)));
  for (const forms::GridColumn& column : list_.DotNetGrid.Columns.get()) {
    EXPECT_EQ(column.filter, "");
  }
  EXPECT_EQ(LastStatement(), list_.SQL() + " ORDER BY Name");
}

TEST_F(ListWindow, SortsByHeaderAndKeepsTheCurrentRecord) {
  Fill(3);
  list_.Load();
  list_.DotNetGrid.DoRow(2);
  list_.DotNetGrid.DoSort(1);
  EXPECT_THAT(LastStatement(), testing::EndsWith(" ORDER BY [Last Name]"));
  list_.DotNetGrid.DoSort(1);
  EXPECT_THAT(LastStatement(), testing::EndsWith(" ORDER BY [Last Name] DESC"));
  EXPECT_EQ(list_.DotNetGrid.Row.get(), 2);
}

TEST_F(ListWindow, KeepsWhatItShowedWhenTheDatabaseRefuses) {
  Fill(3);
  list_.Load();
  host_.session.refuses = true;
  list_.DotNetGrid.DoSort(1);
  EXPECT_EQ(list_.DotNetGrid.SortColumn.get(), 0);
  Filter("Last Name", "S");
  EXPECT_EQ(host_.user.told.size(), 2U);
  EXPECT_EQ(list_.DotNetGrid.RowCount(), 3);
  EXPECT_EQ(list_.DotNetGrid.Row.get(), 0);
  EXPECT_EQ(list_.SQLLabel.Caption.get(), list_.SQL() + " ORDER BY Name");
}

TEST_F(ListWindow, ReportsABrokenFetchOnceAndKeepsTheRowsThatCame) {
  Fill(1300);
  host_.session.breaks_at = 200;
  list_.Load();
  while (list_.DoIdle()) {
  }
  EXPECT_EQ(host_.user.told.size(), 1U);
  EXPECT_EQ(list_.DotNetGrid.RowCount(), 200);
}

class TypedOn : public ListWindow {
 protected:
  TypedOn() {
    list_.DotNetGrid.TypingAhead = [this] { return typing_; };
    Fill(1300);
    list_.Load();
  }

  // Another key comes while the statement of the filter runs, which is given up for it.
  void FilterAndTypeOn(const std::string& text) {
    host_.session.meanwhile = [this] { typing_ = true; };
    Filter("Last Name", text);
    host_.session.meanwhile = nullptr;
    EXPECT_EQ(list_.DotNetGrid.RowCount(), 100) << "what it showed before";
    EXPECT_FALSE(list_.DoIdle()) << "nothing runs while the person types";
    typing_ = false;
  }

  bool typing_ = false;
};

TEST_F(TypedOn, EndsTheSearchAndShowsTheNextAlone) {
  FilterAndTypeOn("S");
  host_.session.rows.resize(7);
  Filter("Last Name", "Sm");
  while (list_.DoIdle()) {
  }
  EXPECT_EQ(list_.DotNetGrid.RowCount(), 7);
  EXPECT_THAT(list_.SQLLabel.Caption.get(), HasSubstr("'Sm%'"));
  EXPECT_EQ(host_.session.statements.size(), 3U);
  EXPECT_TRUE(host_.user.told.empty());
  EXPECT_FALSE(host_.session.WhileBusy) << "what the connection called before";
}

TEST_F(TypedOn, SearchesInThePauseWhenTheFilterStays) {
  FilterAndTypeOn("S");
  host_.session.rows.resize(7);
  while (list_.DoIdle()) {
  }
  EXPECT_EQ(list_.DotNetGrid.RowCount(), 7);
  EXPECT_TRUE(list_.ToolStrip["RemFilt"].Enabled);
}

TEST_F(TypedOn, FetchesAnewWhatItEndedInThePause) {
  host_.session.breaks_at = 200;
  Filter("Last Name", "S");
  list_.DotNetGrid.DoRow(50);
  typing_ = true;
  list_.DotNetGrid.FetchMore();
  EXPECT_THAT(list_.RowLabel.Caption.get(), HasSubstr(" so far ..."));
  typing_ = false;
  host_.session.breaks_at = 0;
  while (list_.DoIdle()) {
  }
  EXPECT_EQ(list_.DotNetGrid.RowCount(), 1300);
  EXPECT_EQ(list_.DotNetGrid.Row.get(), 50) << "the person stays where he was";
  EXPECT_TRUE(host_.user.told.empty());
}

TEST_F(ListWindow, OpensTheEditingScreenAndFindsItsRecord) {
  Fill(3);
  host_.screens.saves = 3;
  list_.Edits = session::Opening{.kind = session::RecordKind::GroupPlan, .carrier = 12};
  list_.Load();
  Filter("Last Name", "S");
  list_.ToolStrip["New"].DoClick();
  EXPECT_EQ(LastStatement(), list_.SQL() + " ORDER BY Name") << "no filter hides the new record";
  EXPECT_EQ(list_.DotNetGrid.Row.get(), 2);
  list_.ToolStrip["Edit"].DoClick();
  ASSERT_EQ(host_.screens.opened.size(), 2U);
  EXPECT_TRUE(host_.screens.opened[0].IsNew());
  EXPECT_EQ(host_.screens.opened[0].carrier, 12);
  EXPECT_FALSE(host_.screens.opened[1].IsNew());
  EXPECT_EQ(host_.screens.opened[1].id, 3);
  EXPECT_FALSE(list_.Closed());
}

TEST_F(ListWindow, StaysNearARowThatWentOrNoLongerFits) {
  const auto fill = [this](std::int64_t rows) {
    host_.session.rows.clear();
    for (std::int64_t id = 1; id <= rows; ++id) {
      host_.session.rows.push_back({"Smith, J", "Smith", "J", id});
    }
  };
  fill(5);
  list_.Options.allow_delete = true;
  list_.Commands.deletes = [](const session::ScreenContext& context, const session::ListOptions&,
                              const lookup::DeletedRow& row) {
    auto& rows = dynamic_cast<test_support::FakeSession&>(context.session).rows;
    std::erase_if(rows,
                  [&](const test_support::Row& there) { return there[3] == session::Value(std::int64_t{row.id}); });
    return true;
  };
  list_.Load();
  Filter("Last Name", "S");
  list_.DotNetGrid.DoRow(2);
  list_.ToolStrip["Delete"].DoClick();
  EXPECT_EQ(list_.Chosen("ID Num"), "4") << "what stood behind it";
  list_.DotNetGrid.DoRow(3);
  list_.ToolStrip["Delete"].DoClick();
  EXPECT_EQ(list_.Chosen("ID Num"), "4") << "the last that is left";
  EXPECT_EQ(list_.RowLabel.Caption.get(), "3 rows") << "how many there are without the filter is not known";
  host_.screens.saves = 99;
  list_.Edits = session::Opening::New(session::RecordKind::Pharmacy);
  list_.DotNetGrid.DoRow(1);
  list_.ToolStrip["Edit"].DoClick();
  EXPECT_EQ(list_.DotNetGrid.Row.get(), 1) << "the edited record is filtered away";
}

TEST_F(ListWindow, SaysHowManyThereAreOnlyWhenItKnows) {
  Fill(300);
  list_.Load();
  Filter("Last Name", "S");
  EXPECT_EQ(list_.RowLabel.Caption.get(), "100 of more than 100 so far ...");
  list_.ToolStrip["RemFilt"].DoClick();
  while (list_.DoIdle()) {
  }
  Filter("Last Name", "Sm");
  EXPECT_EQ(list_.RowLabel.Caption.get(), "100 of 300 so far ...");
}

TEST_F(ListWindow, RunsADeferredCommandOnlyWhenItsTagSaysSo) {
  list_.Load();
  list_.Timer1.Tag = "goto,Patient";
  list_.Timer1.Enabled = true;
  list_.Timer1.DoElapse();
  EXPECT_FALSE(list_.Timer1.Enabled);
  EXPECT_FALSE(list_.Closed());
  list_.Timer1.Tag = "GOTO,Patient";
  list_.Timer1.Enabled = true;
  list_.Timer1.DoElapse();
  EXPECT_TRUE(list_.Closed());
  EXPECT_EQ(list_.Whereto, "Patient");
}

}  // namespace
