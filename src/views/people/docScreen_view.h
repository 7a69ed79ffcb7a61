#pragma once

#include "people/docScreen.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_docScreen(FormDialog& dialog, people::docScreen& form);

}  // namespace views
