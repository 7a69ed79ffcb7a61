#include "views/lookup/frmExport_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"

namespace views {

void LayOut_frmExport(FormDialog& dialog, lookup::frmExport& form) {
  const int gap = dialog.FromDIP(8);
  auto* page = new wxBoxSizer(wxVERTICAL);
  const auto add_group = [&](const wxString& title, const std::vector<forms::OptionButton*>& options) {
    auto* group = new wxStaticBoxSizer(wxHORIZONTAL, &dialog, title);
    group->GetStaticBox()->SetName(title);
    for (forms::OptionButton* option : options) {
      group->Add(MakeOption(group->GetStaticBox(), *option, option == options.front()),
                 wxSizerFlags().Border(wxALL, gap));
    }
    page->Add(group, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  };
  add_group("Columns", {&form.optColumnsShown, &form.optColumnsAll});
  add_group("Rows", {&form.optRowsShown, &form.optRowsAll});
  add_group("Between the columns", {&form.optComma, &form.optSemicolon, &form.optTab});
  page->Add(MakeCheckBox(&dialog, form.chkHeadings), wxSizerFlags().Border(wxALL, 2 * gap));
  page->AddStretchSpacer();
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(page);
}

}  // namespace views
