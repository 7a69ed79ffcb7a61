#include "views/recall/frmEreminderContact_view.h"

#include <wx/sizer.h>

#include <initializer_list>

#include "views/button_binders.h"
#include "views/field_group.h"
#include "views/recall/SelectionList_view.h"
#include "views/text_binders.h"

namespace views {

using recall::frmEreminderContact;

void LayOut_frmEreminderContact(FormDialog& dialog, frmEreminderContact& form) {
  constexpr int kCharacters = 32;
  const int gap = dialog.FromDIP(8);
  const auto around = wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap);
  auto* sides = new wxBoxSizer(wxHORIZONTAL);
  const auto add_side = [&](const wxString& title, std::initializer_list<frmEreminderContact::Field> fields) {
    FieldGroup side(&dialog, title);
    for (const auto field : fields) {
      side.Row({{form.txtContact[field], kCharacters}});
    }
    sides->Add(side.Sizer(), wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap / 2));
  };
  add_side("Home", {form.kHomeCell, form.kHomeEmail, form.kHomePhone, form.kHomePhone2});
  add_side("Work", {form.kWorkCell, form.kWorkEmail, form.kWorkPhone, form.kWorkPhone2});

  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(MakeLabel(&dialog, form.lblHeader), around);
  page->Add(sides, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap / 2));
  page->Add(MakeSelectionList(&dialog, form.ContactSelection, kCharacters, 6),
            wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  page->Add(MakeDialogButtons(&dialog, form.db), wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(page);
}

}  // namespace views
