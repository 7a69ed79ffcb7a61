#include "data/plan_details.h"

#include <gmock/gmock.h>

#include <random>

#include "data/global_plan.h"
#include "insurance/InsPln_Frm.h"
#include "support/practice_host.h"

namespace insurance {
namespace {

// Two offices, each with the global plan and the plan of carrier 5 and number 'A''1', a row for each code.
struct PlanDetailsTest : testing::Test, test_support::PracticeHost {
  PlanDetailsTest()
      : PracticeHost(
            host::CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .office = 2, .offices = 2})) {
    session.Connection().Execute("DELETE FROM IPTable");
    for (const char* office : {"1", "2"}) {
      session.Connection().Execute(
          "INSERT INTO GroPlaTable (GroPlaInd, GroPlaInsID, GroPlaGroNum, OfficeID) VALUES (9, 5, 'A''1', " +
          std::string(office) + ")");
    }
  }

  void Add(std::int32_t carrier, const std::string& number, const std::string& code, const std::string& category = {},
           int coverage = 80) {
    for (const char* office : {"1", "2"}) {
      session.Connection().Execute(
          "INSERT INTO IPTable (IPInsCoID, IPGroNum, IPCod, IPCodCat, IPPCov, OfficeID) VALUES (" +
          std::to_string(carrier) + ", '" + number + "', '" + code + "', '" + category + "', " +
          std::to_string(coverage) + ", " + office + ")");
    }
  }
  std::string Count(const std::string& condition) { return Value("SELECT COUNT(*) FROM IPTable WHERE " + condition); }
  void Open(std::int32_t plan, const std::function<void(ucPlanDetails&)>& act) {
    InsPln_Frm form(Context());
    form.ucPlanDetails1.GroupID = plan;
    user.acts = [&](forms::Form&) { act(form.ucPlanDetails1); };
    user.Show(form);
  }
  static void Type(ucPlanDetails& details, const char* column, const std::string& text) {
    details.TDBG.DoCell(details.TDBG.ColumnIndex(column), text);
  }
};

TEST_F(PlanDetailsTest, ACodeIsCoveredAsTheNearestGlobalRowBelowIt) {
  const data::GlobalPlan global(session);
  EXPECT_FALSE(global.CoverageOf("D1"));
  for (const auto& [code, coverage] : {std::pair("D0100", 10), {"D2000", 20}, {"D2700", 27}}) {
    Add(0, "GLOBAL", code, {}, coverage);
  }
  Add(5, "GLOBAL", "D2050", {}, 99);
  for (const auto& [code, coverage] :
       {std::pair("D2000", 20.0), {"d2699", 20.0}, {"D2700", 27.0}, {"Z", 27.0}, {"A", 10.0}, {"D1'--", 10.0}}) {
    EXPECT_EQ(global.CoverageOf(code)->primary, session::Value(coverage)) << code;
  }
}

TEST_F(PlanDetailsTest, AResetThatBreaksOffLeavesNothingAndComesAgain) {
  int inserts = 0;
  session.hear = [&](const std::string& sql) {
    if (sql.starts_with("INSERT INTO IPTable") && ++inserts == 9) {
      throw session::DatabaseError("refused", sql, 1);
    }
  };
  Open(9, [](ucPlanDetails& details) { EXPECT_EQ(details.TDBG.RowCount(), 0); });
  EXPECT_EQ(Count("1=1"), "0");
  Open(9, [](ucPlanDetails&) {});
  EXPECT_EQ(Count("IPInsCoID=0 AND IPGroNum='GLOBAL' AND OfficeID=2"), "15");
  EXPECT_EQ(Count("1=1"), "15");
  user.told.clear();
  Open(9, [](ucPlanDetails&) {});
  EXPECT_THAT(user.told, testing::IsEmpty());
}

TEST_F(PlanDetailsTest, ThePlanOfACarrierCanBeDeletedWholeAndTheGlobalOneCannot) {
  for (const char* code : {"D1", "D2", "D3"}) {
    Add(0, "GLOBAL", code);
    Add(5, "A''1", code);
  }
  user.answers = [](const forms::Message& message) { return message.buttons.front(); };
  const auto delete_all = [](ucPlanDetails& details) {
    details.TDBG.DoSelectAll();
    details.TDBG.DoKey(forms::Key::Delete);
  };
  Open(0, delete_all);
  EXPECT_THAT(user.told, testing::ElementsAre("Global plan cannot be deleted."));
  EXPECT_EQ(Count("IPInsCoID=0 AND OfficeID=2"), "3");

  int deletions = 0;
  session.hear = [&](const std::string& sql) {
    if (sql.starts_with("DELETE") && ++deletions == 2) {
      throw session::DatabaseError("refused", sql, 1);
    }
  };
  Open(9, [&](ucPlanDetails& details) {
    delete_all(details);
    EXPECT_EQ(details.TDBG.RowCount(), 3);
    EXPECT_EQ(Count("IPInsCoID=5 AND OfficeID=2"), "3");
    delete_all(details);
    EXPECT_EQ(details.TDBG.RowCount(), 0);
  });
  EXPECT_EQ(Count("IPInsCoID=5"), "3");
  EXPECT_EQ(Count("IPInsCoID=5 AND OfficeID=1"), "3");
}

// Whatever is answered, and however categories are written, rows of the same category change together and no other.
TEST_F(PlanDetailsTest, ACategoryChangesInAllOfThePlanAndNowhereElse) {
  const std::vector<std::string> categories = {"", "Crowns", "crowns", "X''; --", "100%", "Fillings"};
  std::mt19937 random(12);
  Add(0, "GLOBAL", "D1");
  for (int i = 0; i < 30; ++i) {
    Add(5, "A''1", "D" + std::to_string(100 + i), categories[random() % categories.size()]);
    Add(i % 2 == 0 ? 5 : 6, "B", "D" + std::to_string(100 + i), categories[random() % categories.size()]);
  }
  Open(9, [&](ucPlanDetails& details) {
    for (int step = 1; step <= 40; ++step) {
      const int row = static_cast<int>(random() % 30);
      details.TDBG.DoRow(row);
      const std::string code(details.TDBG.Cell(row, details.TDBG.ColumnIndex("Code")));
      const std::string mine = " FROM IPTable WHERE IPInsCoID=5 AND IPGroNum='A''1' AND OfficeID=2";
      const std::string category = "(SELECT IPCodCat" + mine + " AND IPCod='" + code + "')";
      const bool all = step % 2 == 0 && !Value("SELECT IPCodCat" + mine + " AND IPCod='" + code + "'").empty();
      user.answers = [&](const forms::Message& message) { return message.buttons[all ? 0 : 1]; };
      const auto others = "NOT (IPInsCoID=5 AND IPGroNum='A''1' AND OfficeID=2)";
      const std::string changed = all ? " AND IPCodCat=" + category : " AND IPCod='" + code + "'";
      const std::string count = Value("SELECT COUNT(*)" + mine + changed);
      const std::string percent = std::to_string(step);
      Type(details, "P.Cov %", percent);
      details.SaveEdit();
      EXPECT_EQ(Value("SELECT COUNT(*)" + mine + " AND IPPCov=" + percent), count) << step;
      EXPECT_EQ(Count(std::string(others) + " AND IPPCov<>80"), "0") << step;
      for (int shown = 0; shown < 30; ++shown) {
        const std::string of(details.TDBG.Cell(shown, details.TDBG.ColumnIndex("Code")));
        EXPECT_EQ(details.TDBG.Cell(shown, details.TDBG.ColumnIndex("P.Cov %")),
                  Value("SELECT IPPCov" + mine + " AND IPCod='" + of + "'"));
      }
    }
  });
}

TEST_F(PlanDetailsTest, ARowThatCannotBeWrittenIsNotLeft) {
  Add(0, "GLOBAL", "D1");
  Add(5, "A''1", "D1");
  Add(5, "A''1", "D2");
  const std::string hostile = "\u00c4'; DROP TABLE IPTable; -- %_[\"\u20ac";
  Open(9, [&](ucPlanDetails& details) {
    details.TDBG.DoRow(0);
    Type(details, "Description", std::string(10000, '\''));
    EXPECT_THAT(user.told.back(), testing::HasSubstr("is too long for Description: there is room for 80 characters."));
    Type(details, "Description", hostile);
    session.hear = [](const std::string& sql) {
      if (sql.starts_with("UPDATE")) {
        throw session::DatabaseError("refused", sql, 1);
      }
    };
    details.TDBG.DoRow(1);
    EXPECT_EQ(details.TDBG.Row, 0);
    EXPECT_TRUE(details.EditMode());
    session.hear = nullptr;
    details.TDBG.DoRow(1);
    EXPECT_EQ(details.TDBG.Row, 1);
    EXPECT_FALSE(details.EditMode());
  });
  EXPECT_EQ(Value("SELECT IPDes FROM IPTable WHERE IPCod='D1' AND IPInsCoID=5 AND OfficeID=2"), hostile);
  EXPECT_EQ(Count("OfficeID=1 AND IPDes IS NULL"), "3");
}

}  // namespace
}  // namespace insurance
