// Whatever a person does in the coverage editor: orders stay dense, what ended stays as it ended, nothing is deleted,
// each change of who covers the patient has one entry in the log, and nobody else is touched.
#include "insurance/frmEditCoverage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <span>

#include "practice/demo_random.h"
#include "support/insurance_practice.h"
#include "support/practice_host.h"

namespace {

using forms::Answer;
using test_support::Coverage;
using test_support::Holding;
using test_support::InsurancePicture;
using test_support::TableRows;

constexpr std::int32_t kOffice = 2;

// A link of an employer is chosen at once.
struct ChoosingScreens : test_support::FakeScreens {
  std::int32_t employer = 0;
  std::int32_t link = 0;
  session::SearchOutcome Search(const session::SearchRequest&) override {
    return {.end = session::SearchOutcome::End::Chosen, .id = employer};
  }
  std::int32_t SelectCoverage(const session::CoverageChoice& choice) override {
    EXPECT_EQ(choice.employer, employer);
    return link;
  }
};

class AnyCoverages : public testing::Test {
 protected:
  AnyCoverages()
      : host_(host::CreatePractice(
            "sqlite::memory:", {.kind = session::kOfficeScoped, .office = kOffice, .offices = 2, .row_guids = true})) {
    host_.user.answers = [this](const forms::Message& message) {
      const bool question = message.buttons == forms::kYesNo;
      asked_ += question ? 1 : 0;
      told_ += question ? 0 : 1;
      return question ? agrees_ ? Answer::Yes : Answer::No : Answer::OK;
    };
  }

  std::vector<Coverage>& Own() { return model_.coverages[patient_]; }
  bool Covers(std::int32_t subscriber, std::int32_t link) {
    return std::ranges::any_of(Own(),
                               [&](const Coverage& one) { return one.subscriber == subscriber && one.link == link; });
  }
  int Below(std::size_t count) { return chance_->Below(count); }

  // What the family holds of plans, but for one coverage's own.
  std::vector<std::pair<std::int32_t, Holding>> Offered(const Coverage* own) {
    std::vector<std::pair<std::int32_t, Holding>> offered;
    for (const std::int32_t member : family_) {
      for (const Holding& held : model_.holdings[member]) {
        if (held.offer.plan != 0 && (own == nullptr || member != own->subscriber || held.link != own->link)) {
          offered.emplace_back(member, held);
        }
      }
    }
    return offered;
  }

  void Append(std::int32_t subscriber, std::int32_t link, std::int32_t relationship) {
    Own().push_back({.order = static_cast<std::int32_t>(Own().size()) + 1,
                     .subscriber = subscriber,
                     .link = link,
                     .offer = model_.links.at(link),
                     .details = std::to_string(relationship) + "||||||"});
    word_ = "added";
  }
  void Count() {
    std::int32_t order = 0;
    for (Coverage& one : Own()) {
      one.order = ++order;
    }
  }

  // The holder and the relationship to him that are chosen for a further plan.
  std::int32_t StartLink(insurance::ucEditCoverage& editor, std::int32_t holder) {
    editor.TB["LINK"].DoClick();
    EXPECT_TRUE(editor.Link.cboHolder.DoPick(editor.Link.cboHolder.IndexOfData(holder)));
    if (holder != patient_) {
      EXPECT_TRUE(editor.Link.cboRel.DoPick(1 + Below(insurance::Relationships().size() - 1)));
    }
    return editor.Link.cboRel.Current()->data;
  }

  void Add(insurance::ucEditCoverage& editor) {
    const auto offered = Offered(nullptr);
    if (offered.empty()) {
      return;
    }
    const auto& [holder, held] = offered[static_cast<std::size_t>(Below(offered.size()))];
    const std::int32_t relationship = StartLink(editor, holder);
    EXPECT_TRUE(editor.Link.cboPlan.DoPick(editor.Link.cboPlan.IndexOfData(held.row)));
    editor.Link.cmdAdd.DoClick();
    if (!Covers(holder, held.link)) {
      Append(holder, held.link, relationship);
    }
  }

  void AddNew(insurance::ucEditCoverage& editor) {
    const auto link = std::next(model_.links.begin(), Below(model_.links.size()));
    if (link->second.plan == 0) {
      return;
    }
    const std::int32_t holder = family_[static_cast<std::size_t>(Below(family_.size()))];
    screens_.employer = link->second.employer;
    screens_.link = link->first;
    const std::int32_t relationship = StartLink(editor, holder);
    editor.Link.cmdNew.DoClick();
    auto& held = model_.holdings[holder];
    if (std::ranges::find(held, link->first, &Holding::link) == held.end()) {
      held.push_back({0, static_cast<std::int32_t>(held.size()) + 1, link->first, link->second});
    }
    if (!Covers(holder, link->first)) {
      Append(holder, link->first, relationship);
    }
  }

  void Change(insurance::ucEditCoverage& editor, std::size_t row) {
    const int column = editor.TDBG.ColumnIndex("Covered by");
    const auto offered = Offered(&Own()[row]);
    const auto choices = editor.TDBG.ChoicesOf(static_cast<int>(row), column);
    ASSERT_EQ(choices.size(), offered.size() + 2) << "its own, the others, and none";
    const auto chosen = static_cast<std::size_t>(Below(offered.size() + 1));
    editor.TDBG.DoCell(column, choices[chosen + 1]);
    if (chosen == offered.size()) {
      Removed(row);
    } else if (const auto& [subscriber, held] = offered[chosen]; !Covers(subscriber, held.link) && agrees_) {
      Coverage& changed = Own()[row];
      changed.subscriber = subscriber;
      changed.link = held.link;
      changed.offer = held.offer;
      changed.details = changed.details.substr(0, changed.details.find('|')) + "||||||";
      word_ = "changed";
    }
  }

  void Removed(std::size_t row) {
    if (agrees_) {
      Own().erase(Own().begin() + static_cast<std::ptrdiff_t>(row));
      Count();
      word_ = "removed";
    }
  }

  void Exchange(insurance::ucEditCoverage& editor, std::size_t row) {
    const auto other = static_cast<std::size_t>(Below(Own().size()));
    editor.TDBG.DoMoveRow(static_cast<int>(row), static_cast<int>(other));
    if (agrees_ && row != other) {
      std::swap(Own()[row], Own()[other]);
      Count();
      word_ = "changed";
    }
  }

  void SetDetail(insurance::ucEditCoverage& editor, std::size_t row, const char* column) {
    std::string& details = Own()[row].details;
    const auto rest = details.find('|');
    if (std::string_view(column) == "Rel") {
      const auto& chosen =
          insurance::Relationships()[static_cast<std::size_t>(Below(insurance::Relationships().size()))];
      editor.TDBG.DoCell(editor.TDBG.ColumnIndex(column), chosen.text);
      if ((chosen.data == insurance::kSelf) == (Own()[row].subscriber == patient_)) {
        details = std::to_string(chosen.data) + details.substr(rest);
      }
      return;
    }
    const std::string id = chance_->Percent(30) ? "" : "'" + std::to_string(Below(1000)) + " %";
    editor.TDBG.DoCell(editor.TDBG.ColumnIndex(column), id);
    const std::string before = details.substr(rest + 1, details.find('|', rest + 1) - rest - 1);
    if (agrees_ && id != before) {
      details = details.substr(0, rest + 1) + id + details.substr(details.find('|', rest + 1));
    }
  }

  void DoAnything(insurance::ucEditCoverage& editor) {
    agrees_ = chance_->Percent(80);
    const int what = Below(8);
    if (Own().empty() || what < 2) {
      what % 2 == 0 ? Add(editor) : AddNew(editor);
      editor.Link.Stop();
      return;
    }
    const auto row = static_cast<std::size_t>(Below(Own().size()));
    editor.TDBG.DoRow(static_cast<int>(row));
    switch (what) {
      case 2:
      case 3:
        return Change(editor, row);
      case 4:
        editor.TB["DELETE"].DoClick();
        return Removed(row);
      case 5:
        return Exchange(editor, row);
      default:
        SetDetail(editor, row, what == 6 ? "Rel" : "Patient ID");
    }
  }

  void ExpectRows(const TableRows& before, const TableRows& after) {
    constexpr std::size_t kFlag = 13;
    for (const auto& [row, was] : before) {
      ASSERT_TRUE(after.contains(row)) << "coverage " << row << " is gone";
      if (was[kFlag] != "0") {
        EXPECT_EQ(after.at(row), was) << "coverage " << row << " had ended";
      }
      const std::string& flag = after.at(row)[kFlag];
      EXPECT_TRUE(flag == "0" || flag == "1") << flag;
    }
  }

  void Run(std::uint64_t seed) {
    test_support::FillWithInsurance(host_.practice, seed);
    host::demo::Random chance(seed);
    chance_ = &chance;
    model_ = test_support::ReadInsurance(host_.practice, kOffice);
    const auto persons = test_support::ReadRows(host_.practice, "PATable", kOffice);
    patient_ = std::next(persons.begin(), Below(persons.size()))->first;
    const std::string head =
        host_.Value("SELECT pFAMHEAIND FROM PATable WHERE OfficeID=2 AND pID=" + std::to_string(patient_));
    family_.clear();
    for (const auto& [member, row] : test_support::ReadRows(host_.practice, "FamTable", kOffice)) {
      if (row[2] == head) {
        family_.push_back(session::ToId(session::Value(row[1])));
      }
    }
    const auto others = OtherOffice();
    insurance::frmEditCoverage screen({host_.session, host_.user, screens_});
    screen.PatientID = patient_;
    screen.Load();
    for (int i = 0; i < 20 && !HasFailure(); ++i) {
      SCOPED_TRACE(testing::Message() << "step " << i << " for " << patient_);
      const auto before = test_support::ReadRows(host_.practice, "CovTable", kOffice);
      const auto logs = test_support::ReadRows(host_.practice, "LogTable", kOffice).size();
      word_.clear();
      asked_ = told_ = 0;
      DoAnything(screen.ucEditCoverage1);
      EXPECT_LE(asked_ + told_, 1);
      const InsurancePicture now = test_support::ReadInsurance(host_.practice, kOffice);
      EXPECT_EQ(now.Text(), model_.Text());
      model_ = now;  // with the IDs of what is new
      ExpectRows(before, test_support::ReadRows(host_.practice, "CovTable", kOffice));
      const auto told = test_support::ReadRows(host_.practice, "LogTable", kOffice);
      ASSERT_EQ(told.size(), logs + (word_.empty() ? 0 : 1));
      if (!word_.empty()) {
        EXPECT_NE(told.rbegin()->second[4].find("insurance plan was " + word_ + " by user Ann"), std::string::npos);
        EXPECT_EQ(told.rbegin()->second[2], "LogInsCov");
      }
      EXPECT_EQ(screen.ucEditCoverage1.TDBG.RowCount(), static_cast<int>(Own().size()));
    }
    screen.DoClose();
    EXPECT_EQ(OtherOffice(), others);
  }

  std::map<std::string, TableRows> OtherOffice() const {
    std::map<std::string, TableRows> all;
    for (const std::string table : test_support::kInsuranceTables) {
      all[table] = test_support::ReadRows(host_.practice, table, 1);
    }
    return all;
  }

  test_support::PracticeHost host_;
  ChoosingScreens screens_;
  host::demo::Random* chance_ = nullptr;
  InsurancePicture model_;
  std::int32_t patient_ = 0;
  std::vector<std::int32_t> family_;
  std::string word_;  // that the log has of one step
  bool agrees_ = true;
  int asked_ = 0;
  int told_ = 0;
};

TEST_F(AnyCoverages, StayInOrderWhateverIsDone) {
  for (std::uint64_t seed = 1; seed <= 60 && !HasFailure(); ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Run(seed);
  }
}

}  // namespace
