#include "insurance/plan_copy.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "database/schema.h"
#include "insurance/frmCopyPlanOpts.h"
#include "support/practice_host.h"

namespace {

using insurance::frmCopyPlanOpts;
using insurance::PlanCopy;

constexpr const char* kCopied = "The plan has been copied succesfully.";
constexpr std::string_view kSource = "IPInsCoID=6 AND IPGroNum='S' AND OfficeID=2";
constexpr std::string_view kTarget = "IPInsCoID=5 AND IPGroNum='T''1' AND OfficeID=2";

// Every list is left with the link to the source plan.
struct ChoosingScreens : test_support::FakeScreens {
  session::ListOutcome ShowList(session::LookUpListTypes, const session::ListOptions&) override {
    return {.end = session::ListOutcome::End::Chosen, .id = 1};
  }
};

// Two offices with the same plans and, but for the amounts, the same details; somebody in the second fills the target
// from the source.
struct PlanCopyTest : testing::Test, test_support::PracticeHost {
  PlanCopyTest()
      : PracticeHost(host::CreatePractice(
            "sqlite::memory:", {.kind = session::kOfficeScoped, .office = 2, .offices = 2, .row_guids = true})) {
    InBothOffices(
        "INSERT INTO EmpTable (EmpInd, EmpNam, OfficeID) VALUES (1, 'Mill', $);"
        "INSERT INTO InsCoTable (InsCoInd, InsCoNam, OfficeID) VALUES (5, 'Delta', $), (6, 'Acme', $);"
        "INSERT INTO GroPlaTable (GroPlaInd, GroPlaInsID, GroPlaGroNum, GroPlaNam, OfficeID) VALUES (11, 5, 'T''1', "
        "'Gold''s', $), (12, 6, 'S', 'Basic', $);"
        "INSERT INTO ELTable (elID, elEmpID, elInsID, elGroID, elFla, OfficeID) VALUES (1, 1, 6, 12, 0, $)");
    user.answers = [](const forms::Message& message) { return message.buttons.front(); };
  }

  // "$" stands for the office.
  void InBothOffices(const std::string& sql) {
    for (const char office : {'1', '2'}) {
      std::string text = sql;
      std::ranges::replace(text, '$', office);
      session.Connection().Execute(text);
    }
  }
  // A row of the source or the target, with values in all columns that tell the row, the column and the office.
  void WriteWhole(bool source, int row, int office) {
    std::string columns = "IPInsCoID, IPGroNum, OfficeID";
    std::string values = (source ? "6, 'S', " : "5, 'T''1', ") + std::to_string(office);
    int number = (source ? 200 : 100) + 10 * row + office;
    for (const std::string& column : Others()) {
      number += 1000;
      columns += ", " + column;
      values += ", " + (column == "IPStaDat" ? "'2026-01-0" + std::to_string(row) + "'" : std::to_string(number));
    }
    session.Connection().Execute("INSERT INTO IPTable (" + columns + ") VALUES (" + values + ")");
  }
  // All columns but those that a copy keeps, which stand first.
  static std::vector<std::string> Others() {
    std::vector<std::string> others;
    for (const host::Column& column : host::FindTable("IPTable")->columns) {
      others.emplace_back(column.name);
    }
    EXPECT_EQ(others.at(3), "IPPlaNam");
    others.erase(others.begin(), others.begin() + 4);
    return others;
  }
  std::string Rows(std::string_view condition, const std::string& columns) {
    return session::ToText(session.Connection()
                               .Execute("SELECT group_concat(" + columns + ", ' ') FROM (SELECT * FROM IPTable WHERE " +
                                        std::string(condition) + " ORDER BY IPCod, IPCodMod, IPPFee)")
                               ->Get(0));
  }
  std::string Copied(std::string_view condition) {
    std::string columns = "''";
    for (const std::string& column : Others()) {
      columns += " || quote(" + column + ")";
    }
    return Rows(condition, columns);
  }
  std::string Everything() {
    return Rows("1=1", "quote(IPRecNum) || quote(IPGroNum) || quote(IPPFee) || quote(IPPCov)");
  }

  using Choice = std::function<void(frmCopyPlanOpts&)>;
  bool Copy(const Choice& choice = {}, const std::function<void()>& hold = {}) {
    user.told.clear();
    user.acts = [&](forms::Form& form) {
      auto& dialog = dynamic_cast<frmCopyPlanOpts&>(form);
      dialog.cmdSource.DoClick();
      if (choice) {
        choice(dialog);
      }
      dialog.DialogButtons1.OK.DoClick();
    };
    PlanCopy copy({session, user, choosing});
    copy.RequireHold = hold;
    const bool done = copy.Run({.carrier = 5, .group_number = "T'1", .plan = 11, .text = "Mill / Delta / T'1"});
    EXPECT_TRUE(user.waits.empty() || user.waits.back().empty());
    return done;
  }
  static Choice Chosen(std::initializer_list<std::size_t> infos) {
    return [infos = std::vector(infos)](frmCopyPlanOpts& dialog) {
      dialog.optCopyType[frmCopyPlanOpts::kChosen].DoChoose();
      for (const std::size_t info : infos) {
        dialog.chkInfo.at(info).DoCheck(forms::CheckState::On);
      }
    };
  }

  ChoosingScreens choosing;
};

TEST_F(PlanCopyTest, PutsEveryColumnOfTheSourceInPlaceOfTheTargetsRows) {
  for (const int office : {1, 2}) {
    for (const int row : {1, 2, 3}) {
      WriteWhole(true, row, office);
    }
    for (const int row : {4, 5}) {
      WriteWhole(false, row, office);
    }
  }
  session.Connection().Execute("INSERT INTO IPTable (IPInsCoID, IPGroNum, IPCod, OfficeID) VALUES (5, 'T2', '9', 2)");
  const std::string source = Copied(kSource);
  const std::string others = Rows("NOT (" + std::string(kTarget) + ")", "IPRecNum || quote(IPPFee)");

  EXPECT_TRUE(Copy());
  EXPECT_EQ(user.told.back(), kCopied);
  EXPECT_THAT(user.waits, testing::Contains("  Copying Insurance Plan - Please Wait  "));
  EXPECT_EQ(Copied(kTarget), source);
  EXPECT_EQ(Copied(kSource), source);
  EXPECT_EQ(Rows(kTarget, "IPPlaNam"), "Gold's Gold's Gold's");
  EXPECT_EQ(Rows("NOT (" + std::string(kTarget) + ")", "IPRecNum || quote(IPPFee)"), others);
  EXPECT_EQ(Value("SELECT Count(*) - Count(DISTINCT UniqueID) FROM IPTable"), "0");
  EXPECT_EQ(Value("SELECT Count(*) - Count(DISTINCT IPRecNum) FROM IPTable"), "0");

  session.Connection().Execute("UPDATE GroPlaTable SET GroPlaNam='' WHERE GroPlaInd=11");
  EXPECT_TRUE(Copy());  // once more, over what was copied
  EXPECT_EQ(Copied(kTarget), source);
  EXPECT_EQ(Rows(kTarget, "quote(IPPlaNam)"), "NULL NULL NULL");
}

TEST_F(PlanCopyTest, CarriesTheChosenValuesOverByCodeAndModifier) {
  InBothOffices(
      "INSERT INTO IPTable (IPCod, IPCodMod, IPPFee, IPSFee, IPPMax, IPSMax, IPPCov, IPSCov, IPInsCoID, IPGroNum, "
      "OfficeID) VALUES ('A', '', 10, 11, 12, 13, 14, 15, 6, 'S', $), ('A', '2', 20, 21, 22, 23, 24, 25, 6, 'S', $), "
      "('b', NULL, 30, NULL, 32, 33, 34, 35, 6, 'S', $), ('C', '1', 40, 41, 42, 43, 44, 45, 6, 'S', $)");
  for (const char* code : {"'A', NULL", "'A', '1'", "'B', ''", "'C', '1'", "'D', ''"}) {
    InBothOffices(
        "INSERT INTO IPTable (IPPFee, IPSFee, IPPMax, IPSMax, IPPCov, IPSCov, IPInsCoID, IPGroNum, OfficeID, IPCod, "
        "IPCodMod) VALUES (1, 2, 3, 4, 5, 6, 5, 'T''1', $, " +
        std::string(code) + ")");
  }
  session.Connection().Execute(
      "INSERT INTO IPTable (IPCod, IPPFee, IPInsCoID, IPGroNum, OfficeID) VALUES ('D', 500, 6, 'S', 1)");
  const std::string foreign = Rows("OfficeID=1", "IPCod || IPPFee || quote(IPPMax) || quote(IPPCov)");
  const auto target = [&](const std::string& columns) { return Rows(kTarget, columns); };

  EXPECT_TRUE(Copy(Chosen({frmCopyPlanOpts::kFees})));
  EXPECT_EQ(target("IPCod || IPPFee || '/' || quote(IPSFee)"), "A10/11 A1/2 B30/NULL C40/41 D1/2");
  EXPECT_EQ(target("IPPMax || IPSMax || IPPCov || IPSCov"), "345.06.0 345.06.0 345.06.0 345.06.0 345.06.0");
  EXPECT_TRUE(Copy(Chosen({frmCopyPlanOpts::kMaximums, frmCopyPlanOpts::kPercents})));
  EXPECT_EQ(target("IPPMax || '/' || IPSMax"), "12/13 3/4 32/33 42/43 3/4");
  EXPECT_EQ(target("IPPCov || '/' || IPSCov"), "14.0/15.0 5.0/6.0 34.0/35.0 44.0/45.0 5.0/6.0");
  EXPECT_EQ(Rows("OfficeID=1", "IPCod || IPPFee || quote(IPPMax) || quote(IPPCov)"), foreign);

  session.Connection().Execute("UPDATE IPTable SET IPCodMod='9' WHERE IPInsCoID=6");
  EXPECT_FALSE(Copy(Chosen({frmCopyPlanOpts::kFees})));
  EXPECT_EQ(user.told.back(), "The two insurance plans have no codes in common. Nothing was changed.");
}

TEST_F(PlanCopyTest, LeavesThePlanAsItIsWhereItMayNotOrCannotBeCopied) {
  WriteWhole(true, 1, 1);
  WriteWhole(false, 1, 2);
  const std::string before = Everything();
  EXPECT_FALSE(Copy());
  EXPECT_EQ(user.told.front(),
            "The selected insurance plan has no coverage details. Please select a different plan to copy into this "
            "one.");
  WriteWhole(true, 1, 2);
  const std::string with_source = Everything();
  session.without_rights = true;
  EXPECT_FALSE(Copy());
  EXPECT_EQ(user.told.back(), "User [Ann] does not have the rights to modify insurance plan details.");
  session.without_rights = false;
  EXPECT_FALSE(Copy({}, [] { throw editing::Refusal("taken over"); }));
  EXPECT_EQ(user.told.back(), "taken over");
  EXPECT_EQ(Everything(), with_source);
  // Its details go while the questions are open.
  EXPECT_FALSE(Copy(
      [&](frmCopyPlanOpts&) { session.Connection().Execute("DELETE FROM IPTable WHERE " + std::string(kSource)); }));
  EXPECT_EQ(Everything(), before);
}

TEST_F(PlanCopyTest, CopiesWholeOrNotAtAllWhateverIsRefused) {
  for (const bool all : {true, false}) {
    session.Connection().Execute("DELETE FROM IPTable");
    for (const int row : {1, 2}) {
      WriteWhole(true, row, 2);
      WriteWhole(false, row, 2);
    }
    session.Connection().Execute("UPDATE IPTable SET IPCod='D' || substr(IPStaDat, 9), IPCodMod=''");
    const std::string before = Everything();
    bool refused = true;
    int last = 0;
    while (refused && !HasFailure()) {
      SCOPED_TRACE("refused: " + std::to_string(++last));
      int heard = 0;
      refused = false;
      session.hear = [&](const std::string& sql) {
        if (++heard == last) {
          refused = true;
          throw session::DatabaseError("was refused", sql, 1);
        }
      };
      const bool copied = Copy(all ? Choice() : Chosen({frmCopyPlanOpts::kFees, frmCopyPlanOpts::kPercents}));
      session.hear = nullptr;
      EXPECT_EQ(copied, !refused);
      EXPECT_EQ(Everything() == before, refused);
      EXPECT_EQ(user.told.back() == kCopied, copied);
    }
    EXPECT_GT(last, 9);
  }
}

}  // namespace
