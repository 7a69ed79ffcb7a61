#pragma once

#include <wx/window.h>

#include <string_view>

#include "forms/report_pages.h"

namespace views {

// Lets the person choose pages and printer, the report's own first, and prints; the pages are laid out anew for the
// printer's paper. Says so where there is no printer. False when nothing was printed.
bool PrintOnPaper(wxWindow& parent, const forms::Report& report, const forms::TextMeasure& measure, bool across);

// Whether `WritePdf` is there: elsewhere a printer of the system does it.
bool WritesPdf();
// Throws editing::Refusal.
void WritePdf(std::string_view path, const forms::ReportPages& pages);

}  // namespace views
