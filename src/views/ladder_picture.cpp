#include "views/ladder_picture.h"

#include <wx/dcbuffer.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "views/binding.h"
#include "views/form_window.h"

namespace views {
namespace {

using Rung = forms::Ladder::Rung;

constexpr int kHeadings = 3;
constexpr int kBar = 5;  // high
constexpr int kGap = 4;
constexpr int kRoom = 10;  // around the picture

// A rung is its name and span over a bar, whose length grows with the root of the days: so short ones can still be told
// apart beside years.
class LadderBinding : public Binding {
 public:
  LadderBinding(forms::Ladder& control, wxPanel& panel) : Binding(control, panel), ladder_(control), panel_(panel) {
    panel_.Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
    panel_.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
      panel_.Refresh();
      event.Skip();
    });
  }

  static int RungHeight(const wxWindow& window) { return window.GetCharHeight() + window.FromDIP(kBar + 2 * kGap); }
  static int HeadingHeight(const wxWindow& window) { return window.GetCharHeight() + window.FromDIP(2 * kGap); }

 protected:
  void Refresh(forms::Aspect aspect) override {
    if (aspect == forms::Aspect::Items) {
      ShowName();
      panel_.Refresh();
    }
  }

 private:
  void Paint() {
    wxAutoBufferedPaintDC dc(&panel_);
    dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    dc.Clear();
    const std::vector<Rung>& rungs = ladder_.Rungs;
    std::int32_t most = 1;
    for (const Rung& rung : rungs) {
      most = std::max(most, rung.days);
    }
    int y = panel_.FromDIP(kGap);
    std::optional<forms::Ladder::From> section;
    for (const Rung& rung : rungs) {
      if (section != rung.from) {
        section = rung.from;
        dc.SetFont(panel_.GetFont().Bold());
        dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
        dc.DrawText(ToWx(forms::Ladder::HeadingOf(rung.from)), panel_.FromDIP(kRoom), y + panel_.FromDIP(kGap));
        y += HeadingHeight(panel_);
      }
      DrawRung(dc, rung, y, std::sqrt(static_cast<double>(std::max(rung.days, 0)) / most));
      y += RungHeight(panel_);
    }
  }

  void DrawRung(wxDC& dc, const Rung& rung, int y, double share) const {
    const int left = panel_.FromDIP(kRoom);
    const int width = panel_.GetClientSize().x - 2 * left;
    const wxColour words =
        wxSystemSettings::GetColour(rung.current ? wxSYS_COLOUR_HIGHLIGHTTEXT : wxSYS_COLOUR_WINDOWTEXT);
    if (rung.current) {
      dc.SetPen(*wxTRANSPARENT_PEN);
      dc.SetBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
      dc.DrawRectangle(left / 2, y, width + left, RungHeight(panel_));
    }
    dc.SetFont(rung.out_of_order ? panel_.GetFont().Bold() : panel_.GetFont());
    dc.SetTextForeground(words);
    const int text_y = y + panel_.FromDIP(kGap) / 2;
    dc.DrawText(ToWx(rung.Title()), left, text_y);
    const wxString span = ToWx(rung.Span());
    dc.DrawText(span, left + width - dc.GetTextExtent(span).x, text_y);
    const int bar_y = text_y + panel_.GetCharHeight() + panel_.FromDIP(kGap) / 2;
    const int height = panel_.FromDIP(kBar);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(rung.out_of_order ? wxColour(0xC0, 0x20, 0x20) : words);
    dc.DrawRectangle(left, bar_y, std::max(panel_.FromDIP(2), static_cast<int>(share * width)), height);
  }

  forms::Ladder& ladder_;
  wxPanel& panel_;
};

}  // namespace

wxPanel* MakeLadder(wxWindow* parent, forms::Ladder& control, int rungs) {
  constexpr int kWidth = 30;  // letters
  auto* panel = new wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_THEME);
  panel->SetBackgroundStyle(wxBG_STYLE_PAINT);
  panel->SetInitialSize({panel->GetCharWidth() * kWidth, rungs * LadderBinding::RungHeight(*panel) +
                                                             kHeadings * LadderBinding::HeadingHeight(*panel) +
                                                             panel->FromDIP(2 * kGap)});
  FormWindow::Of(*parent).Attach<LadderBinding>(control, *panel);
  return panel;
}

}  // namespace views
