#include "views/insurance/ucSelCoverage_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/grid_binder.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {

wxPanel* MakeSelCoverage(wxWindow* parent, insurance::ucSelCoverage& control, int lines) {
  using Alignment = insurance::ucSelCoverage::Alignment;
  wxPanel* panel = MakePanel(parent, control);
  const int gap = panel->FromDIP(4);
  auto* column = new wxBoxSizer(wxVERTICAL);
  wxPanel* bar = MakeToolBar(panel, control.TB);
  if (control.ToolBarAlignment == Alignment::Top) {
    column->Add(bar, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
  }
  column->Add(MakeCaption(panel, control.lblPlans), wxSizerFlags().Border(wxBOTTOM, gap));
  column->Add(MakeGrid(panel, control.TDBG, lines), wxSizerFlags(1).Expand());
  if (control.ToolBarAlignment == Alignment::Bottom) {
    column->Add(bar, wxSizerFlags().Expand().Border(wxTOP, gap));
  }
  column->Add(MakeLabel(panel, control.SB), wxSizerFlags().Expand().Border(wxTOP, gap));
  panel->SetSizer(column);
  return panel;
}

}  // namespace views
