#include "people/login_rights.h"

#include <gtest/gtest.h>

#include "forms/form.h"
#include "support/practice_host.h"

namespace people {
namespace {

constexpr int kRights = 60;
constexpr int kLocations = 5;

class ManyRights : public test_support::HeardSession {
 public:
  using HeardSession::HeardSession;

  std::vector<session::Right> RightsCatalogue() const override {
    std::vector<session::Right> rights;
    rights.reserve(kRights);
    for (int i = 0; i < kRights; ++i) {
      rights.push_back({.keyword = "RIGHT-" + std::to_string(i), .label = "Right " + std::to_string(i)});
    }
    return rights;
  }
};

class LoginRightsTest : public testing::Test, public forms::Form {
 protected:
  LoginRightsTest() : Form("Sample") {
    for (int location = 2; location <= kLocations; ++location) {
      Write("INSERT INTO OffLocTable (OffLocID, OffLocNam) VALUES (" + std::to_string(location) + ", 'Side')");
    }
    Write("INSERT INTO PWMTable (PWMID, PWMUseNam, OffLocID) VALUES (7, 'rita', 1)");
    Add("Locations", locations_);
    Add("Rights", rights_);
    locations_.Read();
    rights_.Read({7, "rita"});
    session_.hear = [this](const std::string& sql) {
      const bool writes = !sql.starts_with("SELECT");
      writes_ += writes ? 1 : 0;
      if (writes && writes_ == refused_) {
        throw session::DatabaseError("refused", sql, 1);
      }
    };
  }

  void Write(const std::string& sql) { session_.Connection().Execute(sql); }
  // The screen's save, which renames the login too; how many statements wrote.
  int Save() {
    writes_ = 0;
    rights_.Save([this] {
      data::Statements(session_).Execute(data::Sql("UPDATE PWMTable SET PWMUseNam='margaret' WHERE PWMID=7"));
      return LoginRights::Login{7, "margaret"};
    });
    return writes_;
  }
  void Tick(int row, const char* column) {
    rights_.FGrd.DoRow(row);
    ASSERT_TRUE(rights_.FGrd.DoCell(rights_.FGrd.ColumnIndex(column), "1"));
  }
  std::string Stored() {
    std::string stored;
    for (const char* sql : {"SELECT PWMUseNam FROM PWMTable",
                            "SELECT group_concat(PWAUseNam || OffLocID || PWAAreOfPro || PWAReaFla || PWAWriFla) FROM "
                            "(SELECT * FROM PWATable ORDER BY PWAID)",
                            "SELECT group_concat(ealOffLocID || ':' || ealAccLoc) FROM ealTable"}) {
      stored += session::ToText(session_.Connection().Execute(sql)->Get(0)) + "\n";
    }
    return stored;
  }

  host::Practice practice_ = host::CreatePractice("sqlite::memory:");
  ManyRights session_{practice_, practice_.Office(), host::LoginRights("Ann", true), test_support::StandingStill()};
  test_support::FakeUser user_;
  test_support::FakeScreens screens_;
  session::ScreenContext context_{session_, user_, screens_};
  EmployeeLocations locations_{context_};
  LoginRights rights_{context_, locations_};
  int writes_ = 0;
  int refused_ = 0;  // the writing statement that is refused; 0 for none
};

TEST_F(LoginRightsTest, WhateverIsRefusedNothingIsWritten) {
  Tick(0, "View");
  Save();
  Write("UPDATE PWMTable SET PWMUseNam='rita'");
  Write("UPDATE PWATable SET PWAUseNam='rita'");
  rights_.Read({7, "rita"});
  Tick(0, "Add");
  Tick(1, "View");
  locations_.Choose(3);
  rights_.Show();
  Tick(2, "Delete");
  const std::string before = Stored();
  int refusals = 0;
  for (bool saved = false; !saved; refusals += saved ? 0 : 1) {
    refused_ = refusals + 1;
    try {
      Save();
      saved = true;
    } catch (const session::DatabaseError&) {
      EXPECT_EQ(Stored(), before) << "statement " << refused_;
      EXPECT_TRUE(rights_.Unsaved());
    }
  }
  EXPECT_EQ(refusals, 6) << "the login, its name in the rights, three rights, and the second location";
  EXPECT_FALSE(rights_.Unsaved());
  EXPECT_EQ(Stored(), "margaret\nmargaret1RIGHT-011,margaret1RIGHT-110,margaret3RIGHT-200\n1:1,3:1\n");
}

TEST_F(LoginRightsTest, OnlyWhatChangedIsWritten) {
  locations_.Choose(-1);
  rights_.Show();
  for (int row = 0; row < kRights; ++row) {
    Tick(row, "View");
  }
  EXPECT_EQ(Save(), 2 + kRights * kLocations + kLocations);
  EXPECT_EQ(Save(), 1);
  Tick(17, "View");
  EXPECT_FALSE(rights_.Unsaved());
  Tick(17, "Authorise");
  EXPECT_EQ(Save(), 1 + kLocations);
}

}  // namespace
}  // namespace people
