#include "forms/button.h"

#include "forms/form.h"

namespace forms {

void Button::DoClick() {
  if (!Usable()) {
    return;
  }
  if (TakesFocus() && Owner() != nullptr && !Owner()->DoFocus(*this)) {
    return;
  }
  Fire(Click);
}

}  // namespace forms
