#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/rules.h"
#include "forms/button.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

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

// The city, state and ZIP boxes of a screen, and the panel (`ZipCode_Panel`) that drops below them and fills them from
// the table of known places.
class ZIPCODE : public forms::DropPanel, private Rules {
 public:
  // The screen's own controls.
  struct Parts {
    forms::TextBox& city;
    forms::TextBox& state;
    forms::TextBox& zip;
    forms::Button& drop;  // drops the list below the city, as F9 does in a box
  };
  enum class Opener { City, Zip };
  enum Command { kAdd, kEdit, kDelete };

  ZIPCODE(const session::ScreenContext& context, const Parts& parts);

  forms::ListBox ZIPCode_Combo;  // its tag ends in "STOP" while it is being filled
  forms::Panel ZipCode_Cmd_Panel;
  std::array<forms::Button, 3> ZipCode_Cmd;  // by `Command`

  // A rule of the screen that must agree before the Delete key deletes an entry.
  std::function<bool()> BeforeDeleteKey;

  const Parts& Fields() const { return parts_; }
  // None when the table has no such place.
  std::optional<std::int32_t> Find(const Place& place) const;

  // Drops the panel below the box that opens it, with the places at or after the box's text.
  void Show(Opener opener);
  void Fill(std::string_view typed);

  // Asks first; false when declined or failed.
  bool AddPlace();
  bool EditPlace();
  bool DeletePlace();

 protected:
  std::string Scope() const override { return {}; }
  void OnFocus(forms::Control* control) override;

 private:
  struct Entry {
    std::int32_t id = 0;
    Place place;
  };

  std::optional<Entry> ConfirmCurrent(std::string_view verb);
  data::Assignments ValuesOf(const Place& place) const;
  Place OnScreen() const;
  void PutOnScreen(const Place& place);
  std::optional<Place> Read(std::int32_t id) const;
  std::vector<Place> PlacesOf(std::string_view zip) const;
  void Typed(Opener opener);
  void TakeTyped();
  void TakeZipForm();
  void SplitTyped();
  void Hide();
  void Pick();
  void Leave();
  void LeaveTyped();
  void BackToList();
  // Says so when there is none.
  bool HasCity(const Place& place) const;
  bool OnBoxKey(Opener opener, forms::Key key);
  bool OnListKey(forms::Key key);
  void OnListCharacter(char32_t character);
  forms::TextBox& BoxOf(Opener opener) const { return opener == Opener::City ? parts_.city : parts_.zip; }
  forms::TextBox& OpenerBox() const { return Below == &parts_.zip ? parts_.zip : parts_.city; }
  void ReadOfficeSetting();

  Parts parts_;
  std::optional<Opener> typed_;  // the box with something typed that is not taken yet
  std::optional<bool> non_us_;   // the office's setting, once it is read
  bool unread_ = false;          // the list could not be read, since the focus came to its box
};

}  // namespace editing
