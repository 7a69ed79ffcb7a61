#include "views/recall/SelectionList_view.h"

#include <wx/sizer.h>

#include "views/choice_binders.h"
#include "views/framed.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {

wxPanel* MakeSelectionList(wxWindow* parent, recall::SelectionList& control, int characters, int lines) {
  wxPanel* panel = MakePanel(parent, control);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(MakeCaption(panel, control.lblText), wxSizerFlags().Border(wxBOTTOM, panel->FromDIP(4)));
  column->Add(Framed(panel, [&](wxWindow* frame) { return MakeListBox(frame, control.lstItems, {characters}, lines); }),
              wxSizerFlags(1).Expand());
  panel->SetSizer(column);
  return panel;
}

}  // namespace views
