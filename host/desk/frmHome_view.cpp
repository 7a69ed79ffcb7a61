#include "desk/frmHome_view.h"

#include <wx/grid.h>
#include <wx/scrolwin.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statline.h>

#include "views/button_binders.h"
#include "views/framed.h"
#include "views/grid_binder.h"
#include "views/panel_binders.h"
#include "views/text_binders.h"

namespace host {
namespace {

constexpr float kText = 1.1F;  // of the toolkit's own size
constexpr float kName = 1.5F;
constexpr float kSearch = 1.6F;

template <typename Widget>
Widget* Styled(Widget* widget, const wxFont& font) {
  widget->SetFont(font);
  return widget;
}

// Less than the other texts, and still easily read; the theme's own grey is for what cannot be used.
void Grey(wxWindow& text) {
  constexpr double kOfText = 0.7;
  const wxColour front = text.GetForegroundColour();
  const wxColour back = text.GetBackgroundColour();
  const auto mix = [](unsigned char over, unsigned char under) { return wxColour::AlphaBlend(over, under, kOfText); };
  text.SetForegroundColour(
      wxColour(mix(front.Red(), back.Red()), mix(front.Green(), back.Green()), mix(front.Blue(), back.Blue())));
}

wxSizer* SearchColumn(wxWindow* page, frmHome& form) {
  const int gap = page->FromDIP(8);
  const wxFont font = page->GetFont();
  const auto row = wxSizerFlags().Expand().Border(wxBOTTOM, gap);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(Styled(views::MakeCaption(page, form.lblSearch), font.Bold()), row);
  wxTextCtrl* search = Styled(views::MakeTextBox(page, form.txtSearch, 30), font.Scaled(kSearch / kText));
  views::SizeField(*search, 30);
  column->Add(search, wxSizerFlags().Expand().Border(wxBOTTOM, gap / 2));
  wxWindow* hint = views::MakeLabel(page, form.lblHint);
  Grey(*hint);
  column->Add(hint, wxSizerFlags().Expand().Border(wxBOTTOM, 2 * gap));

  // The rows are of the toolkit's own size: as much of a patient as fits beside the card.
  wxPanel* list = views::MakePanel(page, form.pnlList);
  list->SetFont(font.Scaled(1 / kText));
  wxWindow* results = Styled(views::MakeWrapped(list, form.lblResults, page->FromDIP(560)), font.Bold());
  wxGrid* grid = views::MakeGrid(list, form.grdPatients, 6);
  grid->SetMinSize(page->FromDIP(wxSize(560, 200)));
  grid->EnableGridLines(false);
  auto* rows = new wxBoxSizer(wxVERTICAL);
  rows->Add(results, row);
  rows->Add(grid, wxSizerFlags(1).Expand());
  list->SetSizer(rows);
  column->Add(list, wxSizerFlags(1).Expand());

  wxPanel* first = views::MakePanel(page, form.pnlFirst);
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->AddStretchSpacer();
  inside->Add(Styled(views::MakeLabel(first, form.lblFirst), font.Scaled(kName / kText)),
              wxSizerFlags().CenterHorizontal().Border(wxBOTTOM, 2 * gap));
  wxButton* add = views::MakeButton(first, form.cmdFirst);
  add->SetMinSize(add->GetBestSize() + page->FromDIP(wxSize(40, 12)));
  inside->Add(add, wxSizerFlags().CenterHorizontal());
  inside->AddStretchSpacer(2);
  first->SetSizer(inside);
  column->Add(first, wxSizerFlags(1).Expand());
  return column;
}

wxPanel* Alert(wxWindow* parent, frmHome& form, int width) {
  wxPanel* alert = views::MakePanel(parent, form.pnlAlert);
  const int gap = parent->FromDIP(8);
  auto* inside = new wxBoxSizer(wxVERTICAL);
  inside->Add(Styled(views::MakeWrapped(alert, form.lblAlert, width - 2 * gap), alert->GetFont().Bold()),
              wxSizerFlags().Expand().Border(wxALL, gap));
  alert->SetSizer(inside);
  return alert;
}

// What is known of the patient scrolls where there is much of it; the buttons stay below.
void FillCard(wxPanel* card, frmHome& form) {
  const int gap = card->FromDIP(8);
  const int width = card->FromDIP(316);
  const wxFont font = card->GetFont();
  auto* facts = new wxScrolledWindow(card, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL);
  facts->SetName("facts");
  facts->SetScrollRate(0, card->FromDIP(10));
  facts->DisableFocusFromKeyboard();
  auto* lines = new wxBoxSizer(wxVERTICAL);
  lines->Add(Styled(views::MakeWrapped(facts, form.lblName, width), font.Bold().Scaled(kName / kText)));
  lines->Add(views::MakeWrapped(facts, form.lblFacts, width), wxSizerFlags().Border(wxTOP, gap / 2));
  lines->Add(Alert(facts, form, width), wxSizerFlags().Expand().Border(wxTOP, gap));
  const std::initializer_list<std::pair<const char*, forms::Label*>> sections = {{"Phones", &form.lblPhones},
                                                                                 {"Address", &form.lblAddress},
                                                                                 {"Insurance", &form.lblCoverage},
                                                                                 {"Family", &form.lblFamily}};
  for (const auto& [title, label] : sections) {
    auto* heading = Styled(new wxStaticText(facts, wxID_ANY, title), font.Bold());
    heading->SetName(wxString("heading ") + title);
    lines->Add(heading, wxSizerFlags().Border(wxTOP, 3 * gap / 2));
    lines->Add(views::MakeWrapped(facts, *label, width), wxSizerFlags().Border(wxTOP, gap / 4));
  }
  facts->SetSizer(lines);
  // It is not seen before a patient is chosen, and has a size by then.
  facts->SetInitialSize(wxSize(width + gap, card->FromDIP(160)));

  auto* buttons = new wxGridSizer(2, card->FromDIP(wxSize(6, 6)));
  for (frmHome::CardButton& command : form.CardButtons) {
    buttons->Add(views::MakeButton(card, command.button), wxSizerFlags().Expand());
  }
  auto* page = new wxBoxSizer(wxVERTICAL);
  page->Add(facts, wxSizerFlags(1).Expand().Border(wxALL, 2 * gap));
  page->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, 2 * gap));
  page->Add(views::MakeWrapped(card, form.lblComing, width),
            wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, 2 * gap));
  card->SetSizer(page);
}

wxSizer* CardColumn(wxWindow* page, frmHome& form) {
  auto* frame = views::Framed(page, [&form](wxWindow* parent) {
    auto* paper = new wxPanel(parent);
    paper->SetName("paper");
    paper->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    wxPanel* card = views::MakePanel(paper, form.pnlCard);
    FillCard(card, form);
    auto* inside = new wxBoxSizer(wxVERTICAL);
    inside->Add(card, wxSizerFlags(1).Expand());
    const wxSize least = card->GetBestSize();
    const int gap = paper->FromDIP(16);
    inside->Add(views::MakeWrapped(paper, form.lblNoCard, least.x - 2 * gap), wxSizerFlags().Border(wxALL, gap));
    paper->SetSizer(inside);
    paper->SetMinSize(least);
    return paper;
  });
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(frame, wxSizerFlags(1).Expand());
  return column;
}

wxSizer* StatusRow(wxWindow* page, frmHome& form) {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(views::MakeLabel(page, form.lblStatus), wxSizerFlags().CenterVertical());
  row->Add(views::MakeLink(page, form.cmdStatus), wxSizerFlags().CenterVertical());
  row->AddStretchSpacer();
  wxWindow* who = views::MakeLabel(page, form.lblWho);
  Grey(*who);
  row->Add(who, wxSizerFlags().CenterVertical());
  return row;
}

}  // namespace

void LayOut_frmHome(views::FormWindow& window, frmHome& form) {
  auto* page = new wxPanel(&window.Window());
  page->SetName("page");
  page->SetFont(page->GetFont().Scaled(kText));
  const int gap = page->FromDIP(12);
  auto* columns = new wxBoxSizer(wxHORIZONTAL);
  columns->Add(SearchColumn(page, form), wxSizerFlags(1).Expand().Border(wxRIGHT, gap));
  columns->Add(CardColumn(page, form), wxSizerFlags().Expand());
  auto* rows = new wxBoxSizer(wxVERTICAL);
  rows->Add(columns, wxSizerFlags(1).Expand().Border(wxALL, gap));
  rows->Add(StatusRow(page, form), wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));
  page->SetSizer(rows);
  auto* whole = new wxBoxSizer(wxVERTICAL);
  whole->Add(page, wxSizerFlags(1).Expand());
  window.Window().SetSizer(whole);
}

}  // namespace host
