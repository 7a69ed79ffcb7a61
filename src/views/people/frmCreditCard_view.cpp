#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/field_group.h"
#include "views/people/frmCreditCard_view.h"
#include "views/text_binders.h"

namespace views {

void LayOut_frmCreditCard(FormDialog& dialog, people::frmCreditCard& form) {
  FieldGroup group(&dialog, "Credit Card");
  group.Row({{form.txtType, 16}});
  group.Row({{form.txtNumber, 28}});
  group.Row(nullptr, {MakeLabel(group.Box(), form.lblStored)});
  group.Below(MakeButton(group.Box(), form.cmdRemove));
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(group.Sizer(), wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(10)));
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, dialog.FromDIP(10)));
  dialog.SetSizer(page);
}

}  // namespace views
