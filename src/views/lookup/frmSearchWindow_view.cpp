#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/grid_binder.h"
#include "views/lookup/frmSearchWindow_view.h"
#include "views/text_binders.h"

namespace views {

void LayOut_frmSearchWindow(FormDialog& dialog, lookup::frmSearchWindow& form) {
  constexpr int kPromptLines = 3;
  constexpr int kPromptWidth = 80;  // characters
  const int gap = dialog.FromDIP(8);
  const auto row = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap);
  auto* page = new wxBoxSizer(wxVERTICAL);
  wxWindow* prompt = MakeWrapped(&dialog, form.Label1, kPromptWidth * dialog.GetCharWidth());
  prompt->SetMinSize(wxSize(-1, prompt->GetCharHeight() * kPromptLines));
  page->Add(prompt, wxSizerFlags().Expand().Border(wxALL, gap));
  page->Add(MakeTextBox(&dialog, form.Text1, 40), row);
  page->Add(MakeGrid(&dialog, form.TDBG, 10), wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  page->Add(MakeLabel(&dialog, form.RowLabel), row);
  page->Add(MakeDialogButtons(&dialog, form.DialogButtons1), row);
  dialog.SetSizer(page);
}

}  // namespace views
