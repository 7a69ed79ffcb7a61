#include "desk/frmGallery_view.h"

#include <wx/sizer.h>

#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/field_group.h"
#include "views/framed.h"
#include "views/grid_binder.h"
#include "views/ladder_picture.h"
#include "views/panel_binders.h"
#include "views/rich_text_binder.h"
#include "views/tab_binders.h"
#include "views/text_binders.h"

namespace host {
namespace {

// Gives the page a sizer with a margin around what is in it.
void Fill(wxPanel* page, wxSizer* content) {
  auto* margin = new wxBoxSizer(wxVERTICAL);
  margin->Add(content, wxSizerFlags(1).Expand().Border(wxALL, page->FromDIP(10)));
  page->SetSizerAndFit(margin);
}

void LayOutFields(wxPanel* page, frmGallery& form) {
  views::FieldGroup group(page, "One of each");
  wxWindow* box = group.Box();
  const auto row = [&](forms::Label& caption, auto make) {
    wxWindow* label = views::MakeCaption(box, caption);
    group.Row(label, {make()});
  };
  row(form.lblName, [&] { return views::MakeTextBox(box, form.txtName, 30); });
  row(form.lblPassword, [&] { return views::MakeTextBox(box, form.txtPassword, 30); });
  row(form.lblDate, [&] { return views::MakeTextBox(box, form.txtDate, 12); });
  row(form.lblRemarks, [&] { return views::MakeTextBox(box, form.txtRemarks, 30, 3); });
  wxWindow* kind_caption = views::MakeCaption(box, form.lblKind);
  wxWindow* kind = views::MakeComboBox(box, form.cboKind, 16);
  wxWindow* place_caption = views::MakeCaption(box, form.lblPlace);
  group.Row(kind_caption, {kind, place_caption, views::MakeComboBox(box, form.cboPlace, 20)});
  wxWindow* active = views::MakeCheckBox(box, form.chkActive);
  group.Row(nullptr, {active, views::MakeCheckBox(box, form.chkExtra)});
  wxWindow* left = views::MakeOption(box, form.optLeft, true);
  wxWindow* right = views::MakeOption(box, form.optRight, false);
  group.Row(nullptr, {left, right}, views::MakePicture(box, form.picSwap));
  row(form.lblSize, [&] { return views::MakeSlider(box, form.sldSize); });
  group.Below(views::MakeButton(box, form.cmdPick));
  group.Below(views::MakeButton(box, form.cmdCheck));
  Fill(page, group.Sizer());
}

void LayOutLists(wxPanel* page, frmGallery& form) {
  const int gap = page->FromDIP(10);
  const auto captioned = [page](forms::Label& caption, auto make) {
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(views::MakeCaption(page, caption), wxSizerFlags().Border(wxBOTTOM, page->FromDIP(3)));
    column->Add(make(), wxSizerFlags(1).Expand());
    return column;
  };
  const auto framed = [page](forms::ListBox& list, const std::vector<int>& columns) {
    constexpr int kLines = 5;
    return views::Framed(page, [&](wxWindow* frame) { return views::MakeListBox(frame, list, columns, kLines); });
  };
  auto* above = new wxBoxSizer(wxHORIZONTAL);
  above->Add(captioned(form.lblList,
                       [&] {
                         return framed(form.lstPlaces, {20, 4});
                       }),
             wxSizerFlags(1).Expand().Border(wxRIGHT, gap));
  above->Add(captioned(form.lblChecks, [&] { return framed(form.lstChecks, {20}); }), wxSizerFlags(1).Expand());
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(above, wxSizerFlags(1).Expand().Border(wxBOTTOM, gap));
  content->Add(captioned(form.lblChooser, [&] { return views::MakeListChooser(page, form.chsColumns, 16, 7); }),
               wxSizerFlags(1).Expand());
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(content, wxSizerFlags(1).Expand().Border(wxRIGHT, gap));
  columns->Add(views::MakeLadder(page, form.picLadder, static_cast<int>(form.picLadder.Rungs->size())));
  Fill(page, columns);
}

void LayOutWhole(wxPanel* page, wxWindow* widget) {
  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(widget, wxSizerFlags(1).Expand());
  Fill(page, content);
}

}  // namespace

void LayOut_frmGallery(views::FormDialog& dialog, frmGallery& form) {
  const int gap = dialog.FromDIP(10);
  auto* commands = new wxBoxSizer(wxHORIZONTAL);
  commands->Add(views::MakeMenuButton(&dialog, "&File", {&form.MnuFileFirst, &form.MnuFileSecond}),
                wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
  commands->Add(views::MakeToolBar(&dialog, form.ToolStrip), wxSizerFlags(1).CenterVertical());

  wxNotebook* book = views::MakeTabs(&dialog, form.Tabs);
  const auto page = [&](const forms::Panel& panel) { return views::PageOf(book, panel); };
  LayOutFields(page(form.pnlFields), form);
  LayOutLists(page(form.pnlLists), form);
  LayOutWhole(page(form.pnlGrid), views::MakeGrid(page(form.pnlGrid), form.grdRows, 8));
  LayOutWhole(page(form.pnlNotes), views::MakeRichTextBox(page(form.pnlNotes), form.rtfNote, 50, 10));
  views::FieldGroup extra(page(form.pnlExtra), "Comes and goes");
  wxWindow* caption = views::MakeCaption(extra.Box(), form.lblExtra);
  extra.Row(caption, {views::MakeTextBox(extra.Box(), form.txtExtra, 30)});
  Fill(page(form.pnlExtra), extra.Sizer());

  auto* content = new wxBoxSizer(wxVERTICAL);
  content->Add(commands, wxSizerFlags().Expand().Border(wxALL, gap));
  content->Add(book, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, gap));
  content->Add(views::MakeLabel(&dialog, form.lblStatus),
               wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxTOP, gap));
  content->Add(views::MakeDialogButtons(&dialog, form.DialogButtons1), wxSizerFlags().Expand().Border(wxALL, gap));
  dialog.SetSizer(content);
  views::RunTimer(dialog, form.Timer1);
}

}  // namespace host
