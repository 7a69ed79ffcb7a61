#include "views/recall/ExcludedContact_view.h"

#include <wx/sizer.h>

#include "views/choice_binders.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {

wxPanel* MakeExcludedContact(wxWindow* parent, recall::ExcludedContact& control) {
  wxPanel* panel = MakePanel(parent, control);
  const int gap = panel->FromDIP(8);
  auto* never = new wxStaticBoxSizer(wxVERTICAL, panel, "Never by");
  never->GetStaticBox()->SetName("group Never by");
  for (forms::CheckBox* box : {&control.ExcludeMessage, &control.ExcludeEmail, &control.ExcludeLetter,
                               &control.ExcludeCard, &control.ExcludeVoice}) {
    never->Add(MakeCheckBox(never->GetStaticBox(), *box), wxSizerFlags().Border(wxALL, panel->FromDIP(4)));
  }
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(never, wxSizerFlags().Expand());
  row->Add(MakeListChooser(panel, control.Contacts, 18, 6), wxSizerFlags(1).Expand().Border(wxLEFT, 2 * gap));
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(MakeLabel(panel, control.lblState), wxSizerFlags().Border(wxBOTTOM, gap));
  page->Add(row, wxSizerFlags(1).Expand());
  panel->SetSizer(page);
  return panel;
}

}  // namespace views
