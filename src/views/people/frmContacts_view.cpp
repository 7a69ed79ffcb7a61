#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/people/frmContacts_view.h"
#include "views/text_binders.h"

namespace views {

void LayOut_frmContacts(FormDialog& dialog, people::frmContacts& form) {
  const int gap = dialog.FromDIP(8);
  auto* sides = new wxBoxSizer(wxHORIZONTAL);
  const auto add_side = [&](const wxString& title, auto& options, auto& boxes) {
    FieldGroup side(&dialog, title);
    for (std::size_t i = 0; i < options.size(); ++i) {
      wxWindow* option = MakeOption(side.Box(), options[i], i == 0);
      side.Row(option, {MakeTextBox(side.Box(), boxes[i], 32)});
    }
    sides->Add(side.Sizer(), wxSizerFlags(1).Expand().Border(wxALL, gap));
  };
  add_side("Home", form.optHome, form.txtHome);
  add_side("Work", form.optWork, form.txtWork);

  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(sides, wxSizerFlags(1).Expand());
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(page);
}

}  // namespace views
