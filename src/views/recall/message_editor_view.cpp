#include "views/recall/message_editor_view.h"

#include "views/choice_binders.h"
#include "views/framed.h"
#include "views/menu_list_binder.h"
#include "views/panel_binders.h"
#include "views/rich_text_binder.h"
#include "views/text_binders.h"

namespace views {
namespace {

constexpr int kTextWidth = 440;

wxPanel* TemplateRows(wxWindow* on, recall::MessageEditor& editor) {
  wxPanel* parent = MakePanel(on, editor.picTemplates);
  const int gap = parent->FromDIP(8);
  auto* options = new wxBoxSizer(wxHORIZONTAL);
  options->Add(MakeOption(parent, editor.optPredefined, true), wxSizerFlags().Border(wxRIGHT, gap * 2));
  options->Add(MakeOption(parent, editor.optCustom, false));
  auto* rows = new wxBoxSizer(wxVERTICAL);
  rows->Add(options, wxSizerFlags().Border(wxBOTTOM, gap));
  rows->Add(MakeCaption(parent, editor.lblTemplates));
  rows->Add(Framed(parent, [&](wxWindow* frame) { return MakeListBox(frame, editor.lstTemplates, {48}, 4); }),
            wxSizerFlags().Expand().Border(wxBOTTOM, gap));
  parent->SetSizer(rows);
  return parent;
}

wxPanel* TextColumn(wxWindow* on, recall::MessageEditor& editor) {
  wxPanel* parent = MakePanel(on, editor.picText);
  const int gap = parent->FromDIP(8);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(TemplateRows(parent, editor), wxSizerFlags().Expand());
  wxWindow* insert = MakeCaption(parent, editor.lblPop);
  wxWindow* menu = MakeMenuList(parent, editor.pop, "Choose");
  auto* head = new wxBoxSizer(wxHORIZONTAL);
  head->Add(MakeCaption(parent, editor.lblText), wxSizerFlags().Align(wxALIGN_BOTTOM));
  head->AddStretchSpacer();
  head->Add(insert, wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
  head->Add(menu, wxSizerFlags().CenterVertical());
  column->Add(head, wxSizerFlags().Expand().Border(wxBOTTOM, gap / 2));
  column->Add(MakeRichTextBox(parent, editor.qe, 52, 11), wxSizerFlags(1).Expand());
  column->Add(MakeWrapped(parent, editor.lblUnknown, parent->FromDIP(kTextWidth)),
              wxSizerFlags().Border(wxTOP, gap / 2));
  column->Add(MakeLabel(parent, editor.lblLength), wxSizerFlags().Border(wxTOP, gap / 2));
  column->Add(MakeCheckBox(parent, editor.chkAutoApply), wxSizerFlags().Border(wxTOP, gap));
  parent->SetSizer(column);
  return parent;
}

wxPanel* SampleColumn(wxWindow* on, recall::MessageEditor& editor) {
  wxPanel* parent = MakePanel(on, editor.picSample);
  const int gap = parent->FromDIP(8);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(MakeCaption(parent, editor.lblSample), wxSizerFlags().Border(wxBOTTOM, gap / 2));
  column->Add(MakeRichTextBox(parent, editor.txSample, 44, 11, false), wxSizerFlags(1).Expand());
  parent->SetSizer(column);
  return parent;
}

}  // namespace

wxSizer* LayOut(wxWindow* parent, recall::MessageEditor& editor) {
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(TextColumn(parent, editor), wxSizerFlags(1).Expand().Border(wxRIGHT, parent->FromDIP(16)));
  columns->Add(SampleColumn(parent, editor), wxSizerFlags(1).Expand());
  return columns;
}

}  // namespace views
