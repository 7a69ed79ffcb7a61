#include "views/recall/RecallNotices_view.h"

#include <wx/statbox.h>

#include "views/binding.h"
#include "views/button_binders.h"
#include "views/choice_binders.h"
#include "views/rich_text_binder.h"
#include "views/text_binders.h"

namespace views {
namespace {

using recall::RecallNotices;

wxStaticBoxSizer* Group(wxWindow* page, const wxString& title) {
  auto* group = new wxStaticBoxSizer(wxVERTICAL, page, title);
  group->GetStaticBox()->SetName("group " + title);
  return group;
}

wxSizer* AddressGroup(wxWindow* page, RecallNotices& control) {
  constexpr int kTextWidth = 230;
  wxStaticBoxSizer* group = Group(page, "Post Cards");
  wxWindow* box = group->GetStaticBox();
  const auto inside = wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, page->FromDIP(4));
  group->Add(MakeCheckBox(box, control.chkReturnAddress), inside);
  bool first = true;
  for (forms::OptionButton* option :
       {&control.optReturnAddressPractice, &control.optReturnAddressLocation, &control.optReturnAddressProvider}) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->AddSpacer(page->FromDIP(20));
    row->Add(MakeOption(box, *option, first));
    group->Add(row, inside);
    first = false;
  }
  group->Add(MakeWrapped(box, control.lblReturnAddress, page->FromDIP(kTextWidth)), inside);
  return group;
}

wxSizer* LabelGroup(wxWindow* page, RecallNotices& control) {
  wxStaticBoxSizer* group = Group(page, "Address Labels of Letters and Cards");
  auto* grid = new wxFlexGridSizer(2, page->FromDIP(wxSize(12, 4)));
  for (forms::OptionButton& option : control.optLabelFormat) {
    grid->Add(MakeOption(group->GetStaticBox(), option, &option == &control.optLabelFormat.front()));
  }
  group->Add(grid, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxBOTTOM, page->FromDIP(4)));
  return group;
}

wxSizer* Choices(wxWindow* page, RecallNotices& control) {
  constexpr int kMethod = 22;  // characters
  constexpr int kState = 18;
  const auto below = wxSizerFlags().Expand().Border(wxTOP, page->FromDIP(8));
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(MakeCaption(page, control.lblSendMethod), wxSizerFlags().Border(wxBOTTOM, page->FromDIP(3)));
  column->Add(MakeListBox(page, control.picSendMethod, {kMethod, kState}, static_cast<int>(recall::kNotices.size())),
              wxSizerFlags().Expand());
  column->Add(AddressGroup(page, control), below);
  column->Add(LabelGroup(page, control), below);
  return column;
}

constexpr int kCharacters = 56;

// One of them is seen, with its caption. How high the highest of them is.
int AddFields(wxWindow* page, RecallNotices& control, wxSizer& column) {
  constexpr int kLines = 6;
  std::size_t captions = 0;
  const auto caption = [&] {
    column.Add(MakeCaption(page, control.lblNotice.at(captions++)),
               wxSizerFlags().Expand().Border(wxBOTTOM, page->FromDIP(3)));
  };
  const auto add = [&column](wxWindow* field, int share) {
    column.Add(field, wxSizerFlags(share).Expand());
    return field->GetBestSize().y;
  };
  caption();
  add(MakeTextBox(page, control.txtLetter, kCharacters), 0);
  caption();
  const int highest = add(MakeRichTextBox(page, control.txtPostCard, kCharacters, kLines), 1);
  caption();
  add(MakeTextBox(page, control.txtMessage, kCharacters, kLines), 1);
  caption();
  add(MakeRichTextBox(page, control.txtEMail, kCharacters, kLines), 1);
  caption();
  add(MakeTextBox(page, control.txtVoice, kCharacters, kLines), 1);
  caption();
  add(MakeTextBox(page, control.txtVoiceSpanish, kCharacters, kLines), 1);
  return highest;
}

// What is sent stands there in the letters of a printed card.
wxWindow* MakePreview(wxWindow* page, forms::RichTextBox& preview) {
  constexpr int kLines = 7;
  auto* panel = new wxPanel(page);
  panel->SetName("panel " + ToWx(preview.Name()));
  wxFont font = panel->GetFont();
  font.SetFaceName("Verdana");
  panel->SetFont(font);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(MakeRichTextBox(panel, preview, kCharacters, kLines, false), wxSizerFlags(1).Expand());
  panel->SetSizer(whole);
  return panel;
}

wxSizer* Sent(wxWindow* page, RecallNotices& control) {
  const int gap = page->FromDIP(8);
  auto* column = new wxBoxSizer(wxVERTICAL);
  const auto heading = wxSizerFlags().Expand().Border(wxBOTTOM, page->FromDIP(3));
  const int field = AddFields(page, control, *column);
  auto* buttons = new wxBoxSizer(wxHORIZONTAL);
  for (forms::Button* button : {&control.picWPEdit, &control.picWPPreview, &control.picWPOpen}) {
    buttons->Add(MakeButton(page, *button), wxSizerFlags().Border(wxRIGHT, gap));
  }
  column->Add(buttons, wxSizerFlags().Border(wxTOP | wxBOTTOM, gap));
  column->Add(MakeCaption(page, control.lblWPPreview), heading);
  wxWindow* preview = MakePreview(page, control.txWPPreview);
  column->Add(preview, wxSizerFlags(1).Expand());
  // As high for every method, so that the window does not jump.
  const int edges = page->FromDIP(16);
  const int captions = 2 * (page->GetCharHeight() + page->FromDIP(3));
  column->SetMinSize(-1, captions + field + buttons->CalcMin().y + 2 * gap + preview->GetBestSize().y + edges);
  return column;
}

}  // namespace

wxSizer* MakeRecallNotices(wxWindow* page, RecallNotices& control) {
  const int gap = page->FromDIP(8);
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(Choices(page, control), wxSizerFlags().Expand());
  columns->Add(Sent(page, control), wxSizerFlags(1).Expand().Border(wxLEFT, gap));
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(MakeLabel(page, control.lblSendExplain), wxSizerFlags().Expand().Border(wxALL, gap));
  whole->Add(columns, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  return whole;
}

}  // namespace views
