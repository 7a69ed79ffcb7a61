#include "views/insurance/frmSelectCoverage_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/insurance/ucSelCoverage_view.h"
#include "views/text_binders.h"

namespace views {

void LayOut_frmSelectCoverage(FormDialog& dialog, insurance::frmSelectCoverage& form) {
  constexpr int kLines = 12;
  const auto part = wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(8));
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(MakeLabel(&dialog, form.lblEmployer), part);
  page->Add(MakeSelCoverage(&dialog, form.ucSelCoverage1, kLines),
            wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, dialog.FromDIP(8)));
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), part);
  dialog.SetSizer(page);
}

}  // namespace views
