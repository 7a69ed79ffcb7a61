#pragma once

#include "home/frmHome.h"
#include "views/form_window.h"

namespace host {

void LayOut_frmHome(views::FormWindow& window, frmHome& form);

}  // namespace host
