#include "editing/date_field.h"

#include "editing/editing_form.h"
#include "forms/text.h"

namespace editing {

DateField::DateField(const session::ScreenContext& context, const Parts& parts, const data::Format& format)
    : Rules(context), parts_(parts), format_(format) {
  Adopt(parts_.box);
  Adopt(parts_.calendar);
  parts_.box.Leave = [this] { Take(); };
  parts_.calendar.Click = [this] { Pick(); };
}

bool DateField::Take() {
  const std::string_view typed = forms::Trim(parts_.box.Text.get());
  const auto date = format_.take(typed, context_.session.Today());
  if (!typed.empty() && !date) {
    Tell(ToldBack(typed) + " is not a date. Please type month, day and year.");
    parts_.box.SetFocus();
    return false;
  }
  Put(date ? format_.show(*date) : std::string());
  return true;
}

void DateField::Put(std::string date) {
  parts_.box.Text = std::move(date);
  if (Taken) {
    Taken();
  }
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
  if (!EditingForm::MayModify(*this) || (MayChange && !MayChange()) || parts_.box.ReadOnly) {
    return false;
  }
  const forms::Date today = context_.session.Today();
  const auto typed = format_.take(forms::Trim(parts_.box.Text.get()), today);
  const auto shown = typed ? session::ToDateTime(*typed) : std::nullopt;
  const auto picked = context_.user.PickDate("Calendar", shown ? forms::DateOf(*shown) : today);
  if (!picked) {
    return false;
  }
  const std::string date = forms::FormatDashed(*picked);
  if (date != parts_.box.Text.get() && AgreesToPick && !AgreesToPick(date)) {
    return false;
  }
  Put(date);
  return true;
}

}  // namespace editing
