#include "views/report_drawing.h"

#include <cmath>

#include "views/binding.h"

namespace views {
namespace {

constexpr int kTenths = 10;  // of a point: the unit that pages are drawn in

wxFont FontOf(const forms::Lettering& lettering) {
  return {wxFontInfo(wxSize(0, lettering.tenths)).Family(wxFONTFAMILY_SWISS).Bold(lettering.bold)};
}

int Tenths(double points) {
  return static_cast<int>(std::lround(points * kTenths));
}

}  // namespace

ReportMeasure::ReportMeasure() : sheet_(1, 1), on_(sheet_) {}

double ReportMeasure::Width(std::string_view text, const forms::Lettering& lettering) const {
  on_.SetFont(FontOf(lettering));
  return static_cast<double>(on_.GetTextExtent(ToWx(text)).x) / kTenths;
}

void DrawPage(wxDC& on, const forms::ReportPage& page, double pixels_a_point) {
  on.SetUserScale(pixels_a_point / kTenths, pixels_a_point / kTenths);
  on.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
  on.SetPen(*wxTRANSPARENT_PEN);
  for (const forms::PrintedLine& line : page.lines) {
    const int thick = line.strong ? 9 : 4;
    on.SetBrush(line.strong ? *wxBLACK : wxColour(200, 200, 200));
    on.DrawRectangle(Tenths(line.x), Tenths(line.y), Tenths(line.width), thick);
  }
  for (const forms::PrintedText& text : page.texts) {
    on.SetFont(FontOf(text.lettering));
    on.SetTextForeground(text.faint ? wxColour(85, 85, 85) : *wxBLACK);
    on.DrawText(ToWx(text.text), Tenths(text.x), Tenths(text.y));
  }
}

}  // namespace views
