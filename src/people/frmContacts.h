#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "data/record_binding.h"
#include "editing/Contacts.h"
#include "editing/editing_form.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/text_box.h"

namespace people {

// The six contacts of each side of a saved person, and which of them each side shows.
class frmContacts : public editing::EditingForm {
 public:
  explicit frmContacts(const session::ScreenContext& context);

  std::int32_t pID = 0;
  // The screen that opens it holds the person's row only to look at.
  bool OnlyLook = false;
  // What the caller's screen shows for a side, typed and not yet saved; it takes the place of the stored value.
  struct TypedContact {
    std::size_t contact = 0;
    std::string read;  // what it took the place of there
    std::string text;
  };
  std::map<editing::Side, TypedContact> Typed;

  std::array<forms::OptionButton, 6> optHome;
  std::array<forms::OptionButton, 6> optWork;
  std::array<forms::TextBox, 6> txtHome;
  std::array<forms::TextBox, 6> txtWork;
  forms::DialogButtons DialogButtons1;

 protected:
  void Read() override;
  bool Differs() const override { return record_.Changed(); }
  void OnTaken() override;

 private:
  struct SideControls {
    editing::Side side;
    std::array<forms::OptionButton, 6>& options;
    std::array<forms::TextBox, 6>& boxes;
    forms::Label& selected;
    forms::Label& visible;
  };
  std::array<SideControls, 2> Sides() {
    return {SideControls{editing::Side::Home, optHome, txtHome, home_selected_, home_visible_},
            SideControls{editing::Side::Work, optWork, txtWork, work_selected_, work_visible_}};
  }
  void Wire();
  // The columns that nobody sees follow what is chosen and typed.
  void Follow();
  void ShowSelected();
  void Mirror();

  editing::Contacts contacts_;
  data::RecordBinding record_;
  forms::Label home_selected_, work_selected_;
  forms::Label home_visible_, work_visible_;
  forms::OptionGroup home_;
  forms::OptionGroup work_;
};

}  // namespace people
