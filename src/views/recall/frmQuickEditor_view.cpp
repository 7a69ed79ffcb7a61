#include "views/recall/frmQuickEditor_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/recall/message_editor_view.h"
#include "views/text_binders.h"

namespace views {

void LayOut_frmQuickEditor(FormDialog& dialog, recall::frmQuickEditor& form) {
  constexpr int kTextWidth = 840;
  const auto gap = wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10));
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(MakeWrapped(&dialog, form.lblHelp, dialog.FromDIP(kTextWidth)), gap);
  page->Add(LayOut(&dialog, form.editor), wxSizerFlags(gap).Proportion(1));
  page->Add(MakeDialogButtons(&dialog, form.db), gap);
  dialog.SetSizer(page);
}

}  // namespace views
