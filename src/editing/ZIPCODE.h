#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "data/statements.h"
#include "forms/button.h"
#include "forms/form.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "session/screens.h"

namespace editing {

struct Place {
  std::string city;
  std::string state = {};
  std::string zip = {};

  // "Springfield IL, 62701"
  std::string Text() const { return city + " " + state + ", " + zip; }
  // What `Text` writes, as a person may have changed it: the ZIP stands behind the last comma, or is a US one at the
  // end; the state is the two letters before it.
  static Place Parse(std::string_view text);
  friend bool operator==(const Place&, const Place&) = default;
};

// City, state and ZIP of a text typed as a whole. `non_us` is the office's "NON_US_ZIP_CODE".
Place SplitPlace(std::string_view text, bool non_us);

// The table of known places, and the panel with which a screen fills its city, state and ZIP boxes from it.
class ZIPCODE {
 public:
  // The screen's three boxes.
  struct Boxes {
    forms::TextBox& city;
    forms::TextBox& state;
    forms::TextBox& zip;
  };
  enum class Opener { City, Zip };
  enum Command { kAdd, kEdit, kDelete };

  explicit ZIPCODE(const session::ScreenContext& context) : context_(context), statements_(context.session) {}

  forms::Panel ZipCode_Panel;
  forms::ListBox ZIPCode_Combo;  // its tag ends in "STOP" while it is being filled
  forms::Panel ZipCode_Cmd_Panel;
  std::array<forms::Button, 3> ZipCode_Cmd;  // by `Command`

  // A rule of the screen that must agree before the Delete key deletes an entry.
  std::function<bool()> BeforeDeleteKey;
  // Where the focus goes after a pick.
  forms::Control* AfterPick = nullptr;

  // Registers the controls with the screen and wires them to its boxes.
  void Attach(forms::Form& form, const Boxes& boxes);

  // None when the table has no such place.
  std::optional<std::int32_t> Find(const Place& place) const;

  // Drops the panel below the box that opens it, with the places at or after the box's text.
  void Show(Opener opener);
  void Fill(std::string_view typed);
  void Hide();
  // The focus has left for elsewhere on the screen: a whole place typed into the city box is split into its boxes.
  void FocusLeft();

  // Asks first; false when declined or failed.
  bool Add();
  bool Edit();
  bool Delete();

 private:
  struct Entry {
    std::int32_t id = 0;
    Place place;
  };

  bool Confirm(std::string question, std::string_view title);
  std::optional<Entry> ConfirmCurrent(std::string_view verb);
  data::Assignments ValuesOf(const Place& place) const;
  Place OnScreen() const;
  void PutOnScreen(const Place& place);
  std::optional<Place> Read(std::int32_t id) const;
  void Pick();
  void Leave();
  void LeaveTyped();
  void SplitTyped();
  // Says so when there is none.
  bool HasCity(const Place& place);
  bool OnListKey(forms::Key key);
  void OnListCharacter(char32_t character);
  forms::TextBox& OpenerBox() const { return opener_ == Opener::City ? boxes_->city : boxes_->zip; }
  bool NonUs() const;

  session::ScreenContext context_;
  data::Statements statements_;
  std::optional<Boxes> boxes_;
  Opener opener_ = Opener::City;
};

}  // namespace editing
