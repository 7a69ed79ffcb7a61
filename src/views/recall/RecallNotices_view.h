#pragma once

#include <wx/sizer.h>

#include "recall/RecallNotices.h"

namespace views {

// The send methods of a recall's stage, on a page of its screen: choices at the left, what is sent at the right.
wxSizer* MakeRecallNotices(wxWindow* page, recall::RecallNotices& control);

}  // namespace views
