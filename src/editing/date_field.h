#pragma once

#include <functional>
#include <string>

#include "data/format.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/text_box.h"
#include "forms/user_control.h"

namespace editing {

// A date as it is typed, with its calendar. The screen binds the box to its column with the same format.
class DateField : public forms::UserControl, private Rules {
 public:
  // The screen's own controls.
  struct Parts {
    forms::TextBox& box;
    forms::Button& calendar;
  };

  DateField(const session::ScreenContext& context, const Parts& parts, const data::Format& format = data::kDate);

  // The box holds a date, typed or picked, or none.
  std::function<void()> Taken;
  // A rule of the screen that must agree before a day is picked, and says why not.
  std::function<bool()> MayChange;
  // A rule of the screen that must agree to another day from the calendar.
  std::function<bool(const std::string& date)> AgreesToPick;

  const Parts& Fields() const { return parts_; }
  // Takes what was typed, as "MM-DD-YYYY"; false when it is no date: the person is told, and the focus is there.
  bool Take();

 protected:
  bool OnKey(forms::Key key) override;

 private:
  // The focus then goes on, or stays where nothing was picked.
  void Pick();
  bool PickFromCalendar();
  void Put(std::string date);

  Parts parts_;
  const data::Format& format_;
};

}  // namespace editing
