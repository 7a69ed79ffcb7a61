#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "editing/Contacts.h"
#include "editing/editing_form.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
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
  std::map<editing::Side, std::string> Typed;

  std::array<forms::OptionButton, 6> optHome;
  std::array<forms::OptionButton, 6> optWork;
  std::array<forms::TextBox, 6> txtHome;
  std::array<forms::TextBox, 6> txtWork;
  forms::DialogButtons DialogButtons1;

 protected:
  void Read() override;
  bool Differs() const override;

 private:
  struct SideControls {
    editing::Side side;
    std::array<forms::OptionButton, 6>& options;
    std::array<forms::TextBox, 6>& boxes;
  };
  std::array<SideControls, 2> Sides() {
    return {SideControls{editing::Side::Home, optHome, txtHome}, SideControls{editing::Side::Work, optWork, txtWork}};
  }
  std::string Shown() const;
  void Write();

  editing::Contacts contacts_;
  forms::OptionGroup home_;
  forms::OptionGroup work_;
  std::string shown_at_first_;
};

}  // namespace people
