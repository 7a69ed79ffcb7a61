#include "lookup/frmTGList.h"
#include "lookup/look_up.h"
#include "practice/demo.h"
#include "support/practice_host.h"

namespace {

using lookup::frmTGList;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// The employee list of a practice of two offices, seen from the second, with what the host hears of it.
class Navigation : public testing::Test {
 protected:
  Navigation()
      : host_(host::MakeDemo("sqlite::memory:", {.patients = 20,
                                                 .practice = {.kind = 7, .office = 2, .offices = 2},
                                                 .password_cost = host::HashCost::Least})) {
    options_.show_patient_buttons = true;
    events_.ButtonClicked = [this](const std::string& key, std::int32_t id) {
      heard_.push_back(key + " " + std::to_string(id));
    };
    events_.CheckEvent = [this](bool& handled) { handled = handles_; };
    events_.SwapModuleCalled = [this](const std::string& where_to, const std::string& designation) {
      heard_.push_back("swap " + where_to + " " + designation);
    };
    StartOn("OfficeID = 2");
  }

  // On an employee who is no patient.
  void StartOn(const std::string& condition) {
    id_ = host_.Value("SELECT min(pID) FROM PATable WHERE pTypEmp = '1' AND " + condition);
    options_.selected = std::stoi(id_);
  }
  void Click(const std::string& key) {
    heard_.clear();
    host_.user.told.clear();
    host_.user.acts = [&](forms::Form& form) {
      auto& list = dynamic_cast<frmTGList&>(form);
      list.ToolStrip[key].DoClick();
      list.Timer1.DoElapse();
      heard_.emplace_back(list.Closed() ? "closed" : "open");
    };
    EXPECT_FALSE(ShowLookUpList(host_.Context(), session::lulEmployee, options_, events_).Chosen());
  }

  test_support::PracticeHost host_;
  session::ListOptions options_;
  lookup::ListEvents events_;
  std::string id_;
  bool handles_ = false;
  std::vector<std::string> heard_;
};

TEST_F(Navigation, TellsTheHostWhereToWhenTheListHasClosed) {
  Click("FamTab");
  EXPECT_EQ(host_.user.told.size(), 1U);
  EXPECT_THAT(heard_, ElementsAre("FamTab " + id_, "closed", "swap FamTab " + id_));
  Click("Image");
  EXPECT_THAT(host_.user.told, IsEmpty()) << "he is a patient now";
}

TEST_F(Navigation, LeavesACommandToTheHostThatHandlesIt) {
  handles_ = true;
  for (const std::string key : {"Aging", "New", "Edit"}) {
    Click(key);
    EXPECT_THAT(heard_, ElementsAre(key + " " + id_, "open"));
    EXPECT_THAT(host_.user.told, IsEmpty());
  }
  EXPECT_THAT(host_.screens.opened, IsEmpty());
}

TEST_F(Navigation, StaysWhenThePersonCannotBeMadeAPatient) {
  host_.session.hear = [](const std::string& sql) {
    if (sql.starts_with("UPDATE")) {
      throw session::DatabaseError("refused", sql, 1);
    }
  };
  Click("Patient");
  EXPECT_THAT(host_.user.told, ElementsAre(HasSubstr("is not a patient"), HasSubstr("refused")));
  EXPECT_EQ(heard_.back(), "open");
}

}  // namespace
