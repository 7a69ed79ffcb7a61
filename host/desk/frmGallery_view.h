#pragma once

#include "gallery/frmGallery.h"
#include "views/form_dialog.h"

namespace host {

void LayOut_frmGallery(views::FormDialog& dialog, frmGallery& form);

}  // namespace host
