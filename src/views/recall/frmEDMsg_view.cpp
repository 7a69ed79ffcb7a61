#include "views/recall/frmEDMsg_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/recall/message_editor_view.h"
#include "views/text_binders.h"

namespace views {

void LayOut_frmEDMsg(FormDialog& dialog, recall::frmEDMsg& form) {
  const int space = dialog.FromDIP(8);
  const auto gap = wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10));
  auto* choice = new wxBoxSizer(wxHORIZONTAL);
  const auto beside = wxSizerFlags().CenterVertical().Border(wxRIGHT, space);
  choice->Add(MakeCaption(&dialog, form.lblKind), beside);
  choice->Add(MakeComboBox(&dialog, form.cboKind, 28), beside);
  choice->AddSpacer(space * 2);
  choice->Add(MakeCaption(&dialog, form.lblMethod), beside);
  choice->Add(MakeComboBox(&dialog, form.cboMethod, 18), beside);
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(choice, gap);
  page->Add(LayOut(&dialog, form.editor), wxSizerFlags(gap).Proportion(1));
  page->Add(MakeDialogButtons(&dialog, form.db), gap);
  dialog.SetSizer(page);
}

}  // namespace views
