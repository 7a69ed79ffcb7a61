#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/grid_binder.h"
#include "views/people/frmDatabaseSearch_view.h"
#include "views/text_binders.h"

namespace views {

void LayOut_frmDatabaseSearch(FormDialog& dialog, people::frmDatabaseSearch& form) {
  const int gap = dialog.FromDIP(8);
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(MakeGrid(&dialog, form.Name_List, 12), wxSizerFlags(1).Expand().Border(wxALL, gap));
  page->Add(MakeLabel(&dialog, form.RowLabel), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1),
            wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  dialog.SetSizer(page);
}

}  // namespace views
