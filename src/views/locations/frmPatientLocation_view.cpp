#include "views/locations/frmPatientLocation_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/grid_binder.h"
#include "views/text_binders.h"

namespace views {

void LayOut_frmPatientLocation(FormDialog& dialog, locations::frmPatientLocation& form) {
  constexpr int kTextWidth = 460;
  const int gap = dialog.FromDIP(8);
  auto* page = new wxBoxSizer(wxVERTICAL);
  auto* head = new wxFlexGridSizer(2, gap, gap);
  head->Add(MakeCaption(&dialog, form.lblName), wxSizerFlags().CenterVertical());
  head->Add(MakeLabel(&dialog, form.lblPatName), wxSizerFlags().CenterVertical());
  head->Add(MakeCaption(&dialog, form.lblPriLoc), wxSizerFlags().CenterVertical());
  head->Add(MakeComboBox(&dialog, form.cboPriLoc, 32), wxSizerFlags().Expand());
  head->AddGrowableCol(1);
  page->Add(head, wxSizerFlags().Expand().Border(wxALL, gap));
  for (forms::Label& text : form.lblExplain) {
    page->Add(MakeWrapped(&dialog, text, dialog.FromDIP(kTextWidth)),
              wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  }
  page->Add(MakeCaption(&dialog, form.lblLocations), wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  page->Add(MakeGrid(&dialog, form.TDBG, 8), wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));

  auto* end = new wxBoxSizer(wxHORIZONTAL);
  end->Add(MakeCheckBox(&dialog, form.chkFam), wxSizerFlags().CenterVertical());
  end->AddStretchSpacer();
  end->Add(MakeButton(&dialog, form.cmdOK), wxSizerFlags().Border(wxLEFT, gap));
  end->Add(MakeButton(&dialog, form.cmdCancel), wxSizerFlags().Border(wxLEFT, gap));
  page->Add(end, wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(page);
}

}  // namespace views
