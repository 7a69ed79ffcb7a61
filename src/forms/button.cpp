#include "forms/button.h"

namespace forms {

void Button::DoClick() {
  if (DoFocus()) {
    Fire(Click);
  }
}

}  // namespace forms
