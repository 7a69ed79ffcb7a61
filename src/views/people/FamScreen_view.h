#pragma once

#include "people/FamScreen.h"
#include "views/form_dialog.h"

namespace views {

void LayOut_FamScreen(FormDialog& dialog, people::FamScreen& form);

}  // namespace views
