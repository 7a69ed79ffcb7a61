// The tasks that a receptionist has most often, key by key: on the home and the screens that it opens, without their
// windows. docs/receptionist.md tells how many keys each takes.
#include <gmock/gmock.h>

#include "entry/form_catalog.h"
#include "forms/label.h"
#include "forms/text.h"
#include "home/frmHome.h"
#include "support/practice_host.h"

namespace {

// Presses keys where the focus is: "reed" is four, "<Enter>" and "<Alt+M>" one each. What is left when a window opens
// goes to that window.
class Keyboard {
 public:
  int pressed = 0;

  void Take(const std::string& keys) { left_ = keys; }
  void Press(forms::Form& form) {
    while (!left_.empty() && !form.Closed()) {
      PressNext(form);
      while (!form.Closed() && form.DoIdle()) {
      }
    }
  }
  // Enter answers a question as it proposes.
  forms::Answer Answer(const forms::Message& message) {
    EXPECT_EQ(Next(), "<Enter>") << message.text;
    return message.Default();
  }

 private:
  std::string Next() {
    ++pressed;
    const std::size_t size = left_.front() == '<' ? left_.find('>') + 1 : 1;
    std::string key = left_.substr(0, size);
    left_.erase(0, size);
    return key;
  }

  void PressNext(forms::Form& form) {
    const std::string key = Next();
    forms::Control* const focus = form.ActiveControl();
    if (key.size() == 1) {
      auto& box = dynamic_cast<forms::TextBox&>(*focus);
      // The Tab key and a mnemonic select what stands there.
      if (std::exchange(came_to_, nullptr) == focus) {
        box.DoType(key);
      } else {
        box.DoAppend(key);
      }
    } else if (key.starts_with("<Alt+")) {
      PressMnemonic(form, forms::ToLower(key.substr(5, 1)).front());
    } else if (key.starts_with("<Ctrl+")) {
      const std::string chord = key.substr(1, key.size() - 2);
      const auto commands = host::DeskCommands();
      const auto command = std::ranges::find(commands, chord, &host::DeskCommand::key);
      dynamic_cast<host::frmHome&>(form).Do(*command);
    } else if (key == "<Down>") {
      focus->DoKey(forms::Key::Down);
    } else if (key == "<Esc>") {
      focus->DoKey(forms::Key::Esc);
    } else {
      const bool tab = key == "<Tab>";
      if (!focus->DoKey(tab ? forms::Key::Tab : forms::Key::Enter)) {
        GoTo(form, tab ? form.NextStop(focus) : form.NextField(focus));
      }
    }
  }

  void PressMnemonic(forms::Form& form, char letter) {
    for (forms::Control* control : form.Controls()) {
      const forms::Control* caption = control->Heading != nullptr ? control->Heading : control;
      if (caption->Mnemonic() != letter || !control->Usable() || !control->TakesFocus()) {
        continue;
      }
      if (auto* button = dynamic_cast<forms::Button*>(control)) {
        button->DoClick();
      } else {
        GoTo(form, control);
      }
      return;
    }
    ADD_FAILURE() << "Alt+" << letter << " leads nowhere";
  }

  void GoTo(forms::Form& form, forms::Control* control) {
    form.DoFocus(*control);
    came_to_ = form.ActiveControl();
  }

  std::string left_;
  const forms::Control* came_to_ = nullptr;
};

class Receptionist : public testing::Test {
 protected:
  Receptionist() {
    host_.session.Connection().Execute(
        "INSERT INTO PATable (pID, pTypPat, pLASNAM, pFIRNAM, pBIRDAT, pHOMPHO) VALUES "
        "(1, '1', 'Reed', 'Paul', '1976-05-06', '(512) 555-0142'), "
        "(2, '1', 'Reed', 'Rita', '1980-01-02', '(512) 555-0177'), "
        "(3, '1', 'Moss', 'Ida', '1991-03-04', '(512) 555-0199')");
    host_.session.OnHandOff = [this](const host::HandOff& record) { home_.PatientSaved(record.id); };
    host_.user.acts = [this](forms::Form& form) { keyboard_.Press(form); };
    host_.user.answers = [this](const forms::Message& message) { return keyboard_.Answer(message); };
    home_.Load();
  }
  // How many keys were pressed.
  int Press(const std::string& keys) {
    keyboard_.pressed = 0;
    keyboard_.Take(keys);
    keyboard_.Press(home_);
    return keyboard_.pressed;
  }

  test_support::PracticeHost host_{host::CreatePractice("sqlite::memory:")};
  std::unique_ptr<session::Screens> screens_ = entry::MakeScreens(host_.session, host_.user);
  host::frmHome home_{{host_.session, host_.user, *screens_}, "Main Office"};
  Keyboard keyboard_;
};

TEST_F(Receptionist, SeesThePatientWhoStandsAtTheDesk) {
  EXPECT_EQ(Press("rita"), 4);
  EXPECT_EQ(home_.lblName.Caption.get(), "Reed, Rita");
}

TEST_F(Receptionist, OpensTheCallerByHisNumber) {
  EXPECT_EQ(Press("5550199<Enter><Esc>"), 9) << "with the one that leaves the screen";
  EXPECT_EQ(home_.cmdStatus.Caption.get(), "Closed Moss, Ida");
}

TEST_F(Receptionist, AddsANewPatient) {
  EXPECT_EQ(Press("Reed, Rosa<Ctrl+N><Enter><Enter>f<Enter><Enter>01021980<Alt+M>5125550123<Alt+O><Enter>"), 37);
  EXPECT_EQ(home_.cmdStatus.Caption.get(), "Added Reed, Rosa");
  EXPECT_EQ(host_.Value("SELECT pSEX + ' ' + pHOMPHO FROM PATable WHERE pFIRNAM='Rosa'"), "F (512) 555-0123");
}

TEST_F(Receptionist, ChangesAPhoneNumber) {
  EXPECT_EQ(Press("rita<Enter><Alt+M>5125550188<Alt+O><Enter>"), 18);
  EXPECT_EQ(home_.cmdStatus.Caption.get(), "Saved Reed, Rita");
  EXPECT_EQ(host_.Value("SELECT pHOMPHO FROM PATable WHERE pID=2"), "(512) 555-0188");
  EXPECT_EQ(home_.lblPhones.Caption.get(), "Home  (512) 555-0188");
}

TEST_F(Receptionist, ComesBackToThePatientBefore) {
  Press("rita<Enter><Esc><Esc>ida<Enter><Esc><Esc>");
  EXPECT_EQ(Press("<Down><Down><Enter><Esc>"), 4) << "with the one that leaves the screen";
  EXPECT_EQ(home_.cmdStatus.Caption.get(), "Closed Reed, Rita");
}

}  // namespace
