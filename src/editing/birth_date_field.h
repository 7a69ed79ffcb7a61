#pragma once

#include <string>

#include "editing/rules.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

namespace editing {

// A birth date as it is typed, with its calendar and the age beside it. The screen's hidden label holds the day for the
// record, in the ISO form.
class BirthDateField : public forms::UserControl, private Rules {
 public:
  // The screen's own controls.
  struct Parts {
    forms::TextBox& box;
    forms::Button& calendar;
    forms::Label& day;  // hidden
    forms::Label& age;  // " Date : 01-02-1980 Age : 46 years 10 months"
    bool dated = true;  // the age stands behind the date
  };

  BirthDateField(const session::ScreenContext& context, const Parts& parts);

  const Parts& Fields() const { return parts_; }
  // Shows the day that the label holds.
  void Show();
  // Takes what was typed; false when it is no date of the past: the person is told, and the focus is there.
  bool Take();
  // What stands in the box was typed and not taken yet.
  bool Pending() const { return parts_.box.Text.get() != shown_; }

 protected:
  bool OnKey(forms::Key key) override;

 private:
  char32_t Filter(char32_t character) const;
  // The focus then goes on, or stays where nothing was picked.
  void Pick();
  bool PickFromCalendar();

  Parts parts_;
  std::string shown_;
};

}  // namespace editing
