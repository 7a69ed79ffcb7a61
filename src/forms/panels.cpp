#include "forms/panels.h"

#include "forms/form.h"

namespace forms {

void Panel::Changed(Aspect aspect) {
  Control::Changed(aspect);
  if (aspect != Aspect::State || Owner() == nullptr) {
    return;
  }
  for (Control* control : Owner()->Controls()) {
    if (control->LiesOn(*this)) {
      control->Control::Changed(Aspect::State);
    }
  }
}

}  // namespace forms
