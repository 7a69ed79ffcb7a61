#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "editing/Contacts.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "session/screens.h"

namespace people {

// The six contacts of each side of a saved person, and which of them each side shows.
class frmContacts : public forms::Form {
 public:
  explicit frmContacts(const session::ScreenContext& context);

  std::int32_t pID = 0;
  // Another user holds the person's row.
  bool ReadOnly = false;
  // What the caller's screen shows for a side, typed and not yet saved; it takes the place of the stored value.
  std::map<editing::Side, std::string> Typed;

  std::array<forms::OptionButton, 6> optHome;
  std::array<forms::OptionButton, 6> optWork;
  std::array<forms::TextBox, 6> txtHome;
  std::array<forms::TextBox, 6> txtWork;
  forms::DialogButtons DialogButtons1;

  // The contacts were written.
  bool Saved = false;

 protected:
  void OnLoad() override;
  bool QueryClose() override;

 private:
  bool Unsaved() const;
  bool Save();

  session::ScreenContext context_;
  editing::Contacts contacts_;
  forms::OptionGroup home_;
  forms::OptionGroup work_;
  std::array<int, 2> shown_at_first_{};
};

}  // namespace people
