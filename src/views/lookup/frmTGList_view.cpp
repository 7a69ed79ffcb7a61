#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/grid_binder.h"
#include "views/grid_head_menu.h"
#include "views/lookup/frmTGList_view.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace views {

void LayOut_frmTGList(FormDialog& dialog, lookup::frmTGList& form) {
  const int gap = dialog.FromDIP(8);
  const auto beside = wxSizerFlags().CenterVertical().Border(wxRIGHT, 2 * gap);
  auto* page = new wxBoxSizer(wxVERTICAL);

  // The keyboard comes to the tool bar's commands through the menu.
  std::vector<forms::Button*> menu = {&form.MnuFileSel, &form.MnuFileSort, &form.MnuFilterCell, &form.MnuFileExport,
                                      &form.MnuFileResDef};
  for (forms::ToolBar::Item& item : form.ToolStrip.Items()) {
    if (!item.separator) {
      menu.push_back(&item.button);
    }
  }
  menu.push_back(&form.MnuFileExit);
  auto* commands = new wxBoxSizer(wxHORIZONTAL);
  commands->AddSpacer(gap / 2);
  const auto add_columns = [&dialog, &form](wxMenu& list) {
    AppendColumnMenu(list, form.DotNetGrid, dynamic_cast<wxGrid&>(dialog.Find(form.DotNetGrid)->Widget()));
  };
  commands->Add(MakeMenuButton(&dialog, "L&ist", std::move(menu), add_columns),
                wxSizerFlags().CenterVertical().Border(wxRIGHT, gap / 2));
  commands->Add(MakeToolBar(&dialog, form.ToolStrip), wxSizerFlags(1).Expand());
  page->Add(commands, wxSizerFlags().Expand().Border(wxALL, gap / 2));
  wxPanel* facility = MakePanel(&dialog, form.pnlFacility);
  auto* locations = new wxBoxSizer(wxHORIZONTAL);
  locations->Add(MakeCaption(facility, form.lblFacility), wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
  locations->Add(MakeComboBox(facility, form.cboFacility, 24), wxSizerFlags().CenterVertical());
  facility->SetSizer(locations);
  page->Add(facility, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  page->Add(MakeGrid(&dialog, form.DotNetGrid, 16), wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));

  auto* options = new wxBoxSizer(wxHORIZONTAL);
  options->Add(MakeOption(&dialog, form.optFiltLeft, true), beside);
  options->Add(MakeOption(&dialog, form.optFiltMid, false), beside);
  options->Add(MakeCheckBox(&dialog, form.chkAutoClearFilter), beside);
  page->Add(options, wxSizerFlags().Expand().Border(wxALL, gap));
  auto* end = new wxBoxSizer(wxHORIZONTAL);
  end->Add(MakeLabel(&dialog, form.RowLabel), wxSizerFlags().CenterVertical());
  end->Add(MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags(1));
  page->Add(end, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  RunTimer(dialog, form.Timer1);
  dialog.SetSizer(page);
}

}  // namespace views
