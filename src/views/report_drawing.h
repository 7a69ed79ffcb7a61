#pragma once

#include <wx/dcmemory.h>

#include "forms/report_pages.h"

namespace views {

// Measures text as `DrawPage` draws it.
class ReportMeasure : public forms::TextMeasure {
 public:
  ReportMeasure();

  double Width(std::string_view text, const forms::Lettering& lettering) const override;

 private:
  mutable wxBitmap sheet_;
  mutable wxMemoryDC on_;
};

// Black and grey, on whatever the paper is; a point is so many pixels of the device.
void DrawPage(wxDC& on, const forms::ReportPage& page, double pixels_a_point);

}  // namespace views
