#include "entry/form_catalog.h"

#include "forms/button.h"
#include "forms/label.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "support/practice_host.h"

namespace {

// Every registered form, as it stands when it has opened on a practice.
class EveryForm : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    host_.session.Connection().Execute("INSERT INTO PATable (pID) VALUES (5)");
    host_.session.Connection().Execute("INSERT INTO EmpTable (EmpInd) VALUES (5)");
    host_.session.Connection().Execute("INSERT INTO GroPlaTable (GroPlaInd) VALUES (5)");
    form_ = entry::MakeForm(GetParam(), host_.Context());
    for (const auto& [property, value] :
         std::map<std::string, std::string>{{"Mode", "NEW"},
                                            {"PatientID", "5"},
                                            {"EmployerID", "5"},
                                            {"GroupID", "5"},
                                            {"ShowSaveNBookAppt", "True"},
                                            {"SQL", "SELECT pID AS [ID Num] FROM PATable"}}) {
      if (const auto found = form_->Properties.find(property); found != form_->Properties.end()) {
        found->second.set(value);
      }
    }
    form_->Load();
    ASSERT_FALSE(form_->Closed());
  }

  test_support::PracticeHost host_{host::CreatePractice("sqlite::memory:")};
  std::unique_ptr<forms::Form> form_;
};

// On two pages of one strip, of which one is seen.
bool NeverSeenTogether(const forms::Control& one, const forms::Control& other) {
  for (const forms::Control* page = one.Container; page != nullptr; page = page->Container) {
    if (dynamic_cast<const forms::TabStrip*>(page->Container) != nullptr && other.LiesOn(*page->Container) &&
        !other.LiesOn(*page)) {
      return true;
    }
  }
  return false;
}

bool InAMenu(const forms::Control& control) {
  return dynamic_cast<const forms::MenuItem*>(&control) != nullptr;
}

// What is hidden, or drops over the page, may be seen with all the rest.
TEST_P(EveryForm, HasAMnemonicOnce) {
  const auto& controls = form_->Controls();
  for (auto one = controls.begin(); one != controls.end(); ++one) {
    for (auto other = one + 1; (*one)->Mnemonic() != '\0' && other != controls.end(); ++other) {
      EXPECT_FALSE((*one)->Mnemonic() == (*other)->Mnemonic() && InAMenu(**one) == InAMenu(**other) &&
                   !NeverSeenTogether(**one, **other))
          << (*one)->Name() << " and " << (*other)->Name() << " share Alt+" << (*one)->Mnemonic();
    }
  }
}

TEST_P(EveryForm, LeadsToFieldsAndPicturesByLetters) {
  for (const forms::Control* control : form_->Controls()) {
    const bool field = dynamic_cast<const forms::TextBox*>(control) != nullptr && control->Heading != nullptr;
    if ((field || dynamic_cast<const forms::PictureBox*>(control) != nullptr) && control->Visible) {
      EXPECT_NE((field ? control->Heading : control)->Mnemonic(), '\0') << control->Name();
    }
  }
}

// Also what another state of the form lets a person reach.
TEST_P(EveryForm, SaysWhatEveryControlIsCalled) {
  for (const forms::Control* control : form_->Controls()) {
    const bool reached = control->TakesFocus() || dynamic_cast<const forms::Button*>(control) != nullptr;
    if (reached && control->Visible) {
      EXPECT_NE(control->SpokenName(), "") << control->Name();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Forms, EveryForm, testing::ValuesIn(entry::FormNames()),
                         [](const auto& form) { return form.param; });

}  // namespace
