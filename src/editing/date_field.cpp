#include "editing/date_field.h"

#include "editing/editing_form.h"
#include "forms/text.h"

namespace editing {

DateField::DateField(const session::ScreenContext& context, const Parts& parts) : Rules(context), parts_(parts) {
  Adopt(parts_.box);
  Adopt(parts_.calendar);
  parts_.box.Leave = [this] { Take(); };
  parts_.calendar.Click = [this] { Pick(); };
}

bool DateField::Take() {
  const std::string_view typed = forms::Trim(parts_.box.Text.get());
  const auto date = forms::ParseDate(typed, context_.session.Today());
  if (!typed.empty() && !date) {
    Tell(ToldBack(typed) + " is not a date. Please type month, day and year.");
    parts_.box.SetFocus();
    return false;
  }
  parts_.box.Text = date ? forms::FormatDashed(*date) : std::string();
  return true;
}

bool DateField::OnKey(forms::Key key) {
  if (key == forms::Key::F9) {
    Pick();
  }
  return key == forms::Key::F9;
}

void DateField::Pick() {
  if (PickFromCalendar()) {
    parts_.box.FocusNext();
  } else {
    parts_.box.SetFocus();
  }
}

bool DateField::PickFromCalendar() {
  if (!EditingForm::MayModify(*this)) {
    return false;
  }
  const forms::Date today = context_.session.Today();
  const auto picked =
      context_.user.PickDate("Calendar", forms::ParseDate(parts_.box.Text.get(), today).value_or(today));
  if (picked) {
    parts_.box.Text = forms::FormatDashed(*picked);
  }
  return picked.has_value();
}

}  // namespace editing
