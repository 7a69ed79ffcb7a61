#include "views/insurance/ucPlanDetails_view.h"

#include "views/button_binders.h"
#include "views/grid_binder.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {

wxSizer* LayOut(FormDialog& dialog, wxWindow* parent, insurance::ucPlanDetails& details) {
  constexpr int kLines = 18;
  const int gap = dialog.FromDIP(8);
  const auto line = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT, gap);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(MakeToolBar(parent, details.TB), wxSizerFlags().Expand().Border(wxALL, gap / 2));
  for (forms::Label& text : details.lblPlan) {
    column->Add(MakeLabel(parent, text), line);
  }
  column->Add(MakeLabel(parent, details.lblReadOnly), wxSizerFlags(line).Border(wxALL, gap));
  column->Add(MakeCaption(parent, details.lblCodes), wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  column->Add(MakeGrid(parent, details.TDBG, kLines), wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  column->Add(MakeLabel(parent, details.SB), wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.OverPage([&dialog, &details] {
    constexpr int kTextWidth = 480;
    wxPanel* help = MakeDropPanel(&dialog, details.PictureBox1);
    auto* inside = new wxBoxSizer(wxVERTICAL);
    inside->Add(MakeWrapped(help, details.PictureBox1.Label3, dialog.FromDIP(kTextWidth)),
                wxSizerFlags().Border(wxALL, dialog.FromDIP(8)));
    help->SetSizerAndFit(inside);
  });
  return column;
}

}  // namespace views
