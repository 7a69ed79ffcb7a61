#pragma once

#include <wx/button.h>
#include <wx/hyperlink.h>
#include <wx/menu.h>
#include <wx/panel.h>

#include <functional>
#include <vector>

#include "forms/button.h"
#include "forms/dialog_buttons.h"
#include "forms/tool_bar.h"

namespace views {

wxButton* MakeButton(wxWindow* parent, forms::Button& control);
// The small grey button behind a field that opens its list.
wxButton* MakePickButton(wxWindow* parent, forms::Button& control);
// No wider than its sign: an arrow, a letter.
wxButton* MakeArrow(wxWindow* parent, forms::Button& control);
// A button that looks like a link: it leads to what its caption says.
wxHyperlinkCtrl* MakeLink(wxWindow* parent, forms::Button& control);
wxButton* MakePicture(wxWindow* parent, forms::PictureBox& control);
wxPanel* MakeToolBar(wxWindow* parent, forms::ToolBar& control);
// Opens a menu of the commands that are seen, at a place in the window, and carries out what is chosen; `add` puts in
// what else stands there now.
using AddToMenu = std::function<void(wxMenu& menu)>;
void OpenMenu(wxWindow& window, const std::vector<forms::Button*>& commands, wxPoint at, const AddToMenu& add = {});
// A button that opens such a menu.
wxButton* MakeMenuButton(wxWindow* parent, const wxString& caption, std::vector<forms::Button*> commands,
                         AddToMenu add = {});
// OK, the screen's own button, Cancel, Delete and Help, at the right.
wxPanel* MakeDialogButtons(wxWindow* parent, forms::DialogButtons& control);

}  // namespace views
