#include "views/recall/eRmdrPersonalSetup_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/panel_binders.h"
#include "views/recall/ExcludedContact_view.h"
#include "views/rich_text_binder.h"
#include "views/tab_binders.h"
#include "views/text_binders.h"

namespace views {
namespace {

using recall::eRmdrPersonalSetup;

wxPanel* StagePanel(wxWindow* parent, eRmdrPersonalSetup& form) {
  wxPanel* panel = MakePanel(parent, form.pnlStage);
  const int gap = panel->FromDIP(8);
  auto* box = new wxStaticBoxSizer(wxVERTICAL, panel, "One recall alone, where its order is not empty");
  wxWindow* inside = box->GetStaticBox();
  inside->SetName("group One recall alone");
  auto* head = new wxBoxSizer(wxHORIZONTAL);
  head->Add(MakeCaption(inside, form.lblStage), wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
  head->Add(MakeComboBox(inside, form.cboStage, 40), wxSizerFlags(1).CenterVertical());
  box->Add(head, wxSizerFlags().Expand().Border(wxALL, gap));
  box->Add(MakeListChooser(inside, form.csStage, 18, 6),
           wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  panel->SetSizer(box);
  return panel;
}

wxNotebook* Pages(FormDialog& dialog, eRmdrPersonalSetup& form) {
  wxNotebook* book = MakeTabs(&dialog, form.tabKinds);
  const int gap = dialog.FromDIP(10);
  struct Page {
    forms::Panel& section;
    recall::ExcludedContact& kind;
  };
  for (const Page& page : {Page{form.stRecall, form.ecRecall}, Page{form.stReminder, form.ecReminder},
                           Page{form.stConfirm, form.ecConfirm}, Page{form.stBirthday, form.ecBirthday}}) {
    wxPanel* window = PageOf(book, page.section);
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(MakeExcludedContact(window, page.kind), wxSizerFlags().Expand().Border(wxALL, gap));
    if (&page.kind == &form.ecRecall) {
      column->Add(StagePanel(window, form), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
    }
    window->SetSizer(column);
  }
  return book;
}

wxSizer* Patient(FormDialog& dialog, eRmdrPersonalSetup& form) {
  const int gap = dialog.FromDIP(6);
  wxPanel* info = MakePanel(&dialog, form.stInfo);
  auto* reached = new wxStaticBoxSizer(wxVERTICAL, info, "Reached at");
  reached->GetStaticBox()->SetName("group Reached at");
  reached->Add(MakeLabel(reached->GetStaticBox(), form.lblInfo), wxSizerFlags().Expand().Border(wxALL, gap));
  reached->Add(MakeButton(reached->GetStaticBox(), form.cmdContact), wxSizerFlags().Border(wxALL, gap));
  info->SetSizer(reached);

  wxPanel* notes = MakePanel(&dialog, form.stNotes);
  auto* text = new wxBoxSizer(wxVERTICAL);
  text->Add(MakeCaption(notes, form.lblNotes), wxSizerFlags().Border(wxBOTTOM, gap));
  text->Add(MakeRichTextBox(notes, form.qe, 44, 10), wxSizerFlags(1).Expand());
  notes->SetSizer(text);

  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(info, wxSizerFlags().Expand());
  column->Add(notes, wxSizerFlags(1).Expand().Border(wxTOP, 2 * gap));
  return column;
}

}  // namespace

void LayOut_eRmdrPersonalSetup(FormDialog& dialog, eRmdrPersonalSetup& form) {
  const int gap = dialog.FromDIP(10);
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(Pages(dialog, form), wxSizerFlags().Expand());
  columns->Add(Patient(dialog, form), wxSizerFlags(1).Expand().Border(wxLEFT, gap));
  auto* end = new wxBoxSizer(wxHORIZONTAL);
  end->Add(MakeCheckBox(&dialog, form.chkApplyToFamily), wxSizerFlags().CenterVertical());
  end->Add(MakeDialogButtons(&dialog, form.db), wxSizerFlags(1).CenterVertical().Border(wxLEFT, gap));
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(columns, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  page->Add(end, wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(page);
}

}  // namespace views
