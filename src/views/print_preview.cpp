#include "views/print_preview.h"

#include <wx/button.h>
#include <wx/dcbuffer.h>
#include <wx/dcgraph.h>
#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

#include "editing/file_to_write.h"
#include "editing/rules.h"
#include "views/accessible_name.h"
#include "views/binding.h"
#include "views/placing.h"
#include "views/report_printing.h"

namespace views {
namespace {

constexpr int kAround = 12;  // DIPs about the paper

}  // namespace

PrintPreview::PrintPreview(wxWindow* parent, forms::User& user, const forms::Report& report)
    : Dialog(parent, "Print - " + ToWx(report.title), wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      user_(user),
      report_(report),
      pages_(report, measure_) {
  SetName("print preview");
  paper_ = new wxScrolledCanvas(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(300, 200)),
                                wxBORDER_NONE | wxHSCROLL | wxVSCROLL);
  paper_->SetName("page");
  SetAccessibleName(*paper_, "Page");
  paper_->SetBackgroundStyle(wxBG_STYLE_PAINT);
  paper_->SetScrollRate(FromDIP(10), FromDIP(10));
  paper_->Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
  paper_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    ShowPaper();
  });
  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(paper_, wxSizerFlags(1).Expand());
  all->Add(MakeCommands(), wxSizerFlags().Expand().Border(wxALL, FromDIP(8)));
  Bind(wxEVT_CHAR_HOOK, &PrintPreview::OnKey, this);
  SetSizerAndFit(all);
  SetClientSize(FromDIP(wxSize(860, 620)));
  PlaceInMiddle(*this);
  GoTo(0);
}

wxSizer* PrintPreview::MakeCommands() {
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  const auto add = [&](const wxString& caption, const wxString& name, auto act, long style = 0) {
    auto* button = new wxButton(this, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize, style);
    button->SetName(name);
    button->Bind(wxEVT_BUTTON, [act](wxCommandEvent&) { act(); });
    row->Add(button, wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(8)));
    return button;
  };
  back_ = add(
      ToWx("\u25C0"), "previous page", [this] { GoTo(page_ - 1); }, wxBU_EXACTFIT);
  back_->SetToolTip("Previous page (Page Up)");
  SetAccessibleName(*back_, "Previous page");
  place_ = new wxStaticText(this, wxID_ANY, {});
  place_->SetName("place");
  row->Add(place_, wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(8)));
  on_ = add(
      ToWx("\u25B6"), "next page", [this] { GoTo(page_ + 1); }, wxBU_EXACTFIT);
  on_->SetToolTip("Next page (Page Down)");
  SetAccessibleName(*on_, "Next page");
  zoom_ = add("Page &Width", "zoom", [this] { Zoom(); });
  row->AddStretchSpacer();
  if (WritesPdf()) {
    add("Save as P&DF ...", "save as PDF", [this] { SaveAsPdf(); });
  }
  wxButton* print = add("&Print ...", "print", [this] { Print(); });
  auto* close = new wxButton(this, wxID_CANCEL, "Close");
  close->SetName("close");
  row->Add(close, wxSizerFlags().CenterVertical());
  print->SetDefault();
  print->SetFocus();
  return row;
}

void PrintPreview::GoTo(int page) {
  page_ = std::clamp(page, 0, pages_.Count() - 1);
  place_->SetLabel(wxString::Format("page %d of %d", page_ + 1, pages_.Count()));
  back_->Enable(page_ > 0);
  on_->Enable(page_ + 1 < pages_.Count());
  paper_->Scroll(0, 0);
  Layout();
  ShowPaper();
}

void PrintPreview::Zoom() {
  whole_page_ = !whole_page_;
  zoom_->SetLabel(whole_page_ ? "Page &Width" : "&Whole Page");
  ShowPaper();
}

double PrintPreview::PixelsAPoint() const {
  const int around = 2 * FromDIP(kAround);
  const wxSize room = paper_->GetSize();
  const forms::Paper size = pages_.Size();
  const double by_width = (room.x - around - wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this)) / size.width;
  return std::max(0.1, whole_page_ ? std::min(by_width, (room.y - around) / size.height) : by_width);
}

void PrintPreview::ShowPaper() {
  const forms::Paper size = pages_.Size();
  const double scale = PixelsAPoint();
  paper_->SetVirtualSize(0, whole_page_ ? 0 : static_cast<int>(size.height * scale) + 2 * FromDIP(kAround));
  paper_->Refresh();
}

void PrintPreview::Paint() {
  wxAutoBufferedPaintDC window(paper_);
  window.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE).ChangeLightness(80));
  window.Clear();
  const forms::Paper size = pages_.Size();
  const double scale = PixelsAPoint();
  const wxSize sheet(static_cast<int>(size.width * scale), static_cast<int>(size.height * scale));
  const wxSize room = paper_->GetClientSize();
  const wxPoint corner = paper_->CalcScrolledPosition(wxPoint(
      std::max(0, (room.x - sheet.x) / 2), std::max(FromDIP(kAround), whole_page_ ? (room.y - sheet.y) / 2 : 0)));
  wxGCDC page(window);
  page.SetPen(*wxGREY_PEN);
  page.SetBrush(*wxWHITE_BRUSH);
  page.DrawRectangle(corner, sheet);
  page.SetDeviceOrigin(corner.x, corner.y);
  DrawPage(page, pages_.Page(page_), scale);
}

void PrintPreview::OnKey(wxKeyEvent& event) {
  switch (event.GetKeyCode()) {
    case WXK_PAGEDOWN:
      GoTo(page_ + 1);
      break;
    case WXK_PAGEUP:
      GoTo(page_ - 1);
      break;
    case WXK_HOME:
      GoTo(0);
      break;
    case WXK_END:
      GoTo(pages_.Count() - 1);
      break;
    default:
      event.Skip();
  }
}

void PrintPreview::Print() {
  if (PrintOnPaper(*this, report_, measure_, pages_.Across())) {
    printed_ = true;
    EndModal(wxID_OK);
  }
}

void PrintPreview::SaveAsPdf() {
  const auto file =
      editing::PickFileToWrite(user_, {.title = "Save as PDF", .name = report_.title, .pattern = "*.pdf"}, ".pdf");
  if (!file) {
    return;
  }
  try {
    WritePdf(*file, pages_);
    printed_ = true;
    EndModal(wxID_OK);
  } catch (const editing::Refusal& refusal) {
    user_.Tell(refusal.what(), "Save as PDF", forms::Icon::Exclamation);
  }
}

}  // namespace views
