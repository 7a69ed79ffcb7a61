#include "editing/birth_date_field.h"

#include "editing/editing_form.h"
#include "forms/text.h"

namespace editing {

BirthDateField::BirthDateField(const session::ScreenContext& context, const Parts& parts)
    : Rules(context), parts_(parts) {
  for (forms::Control* part : {static_cast<forms::Control*>(&parts_.box), static_cast<forms::Control*>(&parts_.age),
                               static_cast<forms::Control*>(&parts_.calendar)}) {
    Adopt(*part);
  }
  parts_.day.Told = ToldDay;
  parts_.box.KeyPress = [this](char32_t character) { return Filter(character); };
  parts_.box.Leave = [this] { Take(); };
  parts_.calendar.Click = [this] { Pick(); };
}

void BirthDateField::Show() {
  const auto birth = forms::ParseIso(parts_.day.Caption.get());
  parts_.box.Text = birth ? forms::FormatDashed(forms::DateOf(*birth)) : std::string();
  shown_ = parts_.box.Text;
  const auto age = birth ? forms::AgeAt(forms::DateOf(*birth), context_.session.Today()) : std::nullopt;
  parts_.age.Caption =
      age ? (parts_.dated ? " Date : " + shown_ : std::string()) + " Age : " + forms::FormatAge(*age) : std::string();
}

bool BirthDateField::Take() {
  const std::string typed(forms::Trim(parts_.box.Text.get()));
  if (typed == shown_) {
    Show();
    return true;
  }
  const forms::Date today = context_.session.Today();
  const auto birth = forms::ParseBirthDate(typed, today);
  if (!typed.empty() && (!birth || *birth > today)) {
    Tell(ToldBack(typed) + " is not a birth date. Please type month, day and year.");
    parts_.box.SetFocus();
    return false;
  }
  parts_.day.Caption = birth ? forms::FormatIso(*birth) : std::string();
  Show();
  return true;
}

char32_t BirthDateField::Filter(char32_t character) const {
  constexpr std::u32string_view kTaken = U"0123456789/-";
  if (kTaken.find(character) != std::u32string_view::npos) {
    return character;
  }
  Tell("Date field only accept 0 to 9, / and - characters");
  return 0;
}

bool BirthDateField::OnKey(forms::Key key) {
  if (key == forms::Key::F9) {
    Pick();
  }
  return key == forms::Key::F9;
}

void BirthDateField::Pick() {
  if (PickFromCalendar()) {
    parts_.box.FocusNext();
  } else {
    parts_.box.SetFocus();
  }
}

bool BirthDateField::PickFromCalendar() {
  if (!EditingForm::MayModify(*this)) {
    return false;
  }
  const auto current = forms::ParseIso(parts_.day.Caption.get());
  const forms::Date start = current ? forms::DateOf(*current) : context_.session.Today();
  const auto picked = context_.user.PickDate("Calendar", start);
  if (picked) {
    parts_.box.Text = forms::FormatDashed(*picked);
  }
  return picked && Take();
}

}  // namespace editing
