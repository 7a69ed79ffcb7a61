#include "people/sex_title_field.h"

#include "editing/editing_form.h"
#include "forms/text.h"

namespace people {

SexTitleField::SexTitleField(const session::ScreenContext& context, const Parts& parts, std::string_view whose,
                             std::string_view list_title)
    : Rules(context), parts_(parts), whose_(whose), list_title_(list_title) {
  Adopt(parts_.sex);
  Adopt(parts_.title);
  Adopt(parts_.list);
  parts_.sex.KeyPress = [](char32_t character) {
    return forms::ToUtf32(forms::ToUpper(forms::ToUtf8({&character, 1}))).front();
  };
  parts_.sex.Leave = [this] { Take(); };
  parts_.list.Click = [this] { Pick(); };
}

bool SexTitleField::Take() {
  const std::string& sex = parts_.sex.Text;
  if (sex == shown_ || sex.empty() || sex == "F" || sex == "M") {
    return true;
  }
  Tell("Only letters F or M are allowed.");
  parts_.sex.SetFocus();
  return false;
}

bool SexTitleField::OnKey(forms::Key key) {
  if (key == forms::Key::F9) {
    Pick();
  }
  return key == forms::Key::F9;
}

void SexTitleField::Pick() {
  if (PickFromList()) {
    parts_.title.FocusNext();
  } else if (parts_.list.HasFocus()) {
    parts_.sex.SetFocus();
  }
}

bool SexTitleField::PickFromList() {
  if (!editing::EditingForm::MayModify(*this)) {
    return false;
  }
  const auto picked = context_.screens.ShowPickList(session::PickList::SexTitle, list_title_);
  if (!picked || (parts_.sex.Text == picked->code && parts_.title.Text == picked->text) ||
      !Confirm("Change " + std::string(whose_) + (whose_.empty() ? "" : " ") + "Sex/Title to [ " + picked->code + "/" +
               picked->text + " ] ?")) {
    return false;
  }
  parts_.sex.Text = picked->code;
  parts_.title.Text = picked->text;
  return true;
}

}  // namespace people
