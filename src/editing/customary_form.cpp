#include "editing/customary_form.h"

#include "forms/text.h"

namespace editing {

bool UsesUsForms(const session::Settings& settings) {
  return !forms::IsOn(settings.OfficeSetting("DEFAULT_OFFICE_SETUP", "NON_US_ZIP_CODE"));
}

void TakeCustomaryForm(const session::Settings& settings, const data::RecordBinding& record, forms::TextBox& box,
                       std::string (*format)(std::string_view)) {
  if (box.Text.get() == record.Stored(box)) {
    return;
  }
  const std::string text = format(box.Text.get());
  if (text != box.Text.get() && UsesUsForms(settings) && forms::Fitting(text, box.MaxLength) == text) {
    box.Text = text;
  }
}

}  // namespace editing
