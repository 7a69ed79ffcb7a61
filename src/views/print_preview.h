#pragma once

#include <wx/scrolwin.h>

#include "forms/report.h"
#include "forms/report_pages.h"
#include "forms/user.h"
#include "views/dialog.h"
#include "views/report_drawing.h"

class wxButton;
class wxStaticText;

namespace views {

// The pages of a report, to look through, to print, and to save as a PDF file where the platform writes one by itself.
class PrintPreview : public Dialog {
 public:
  PrintPreview(wxWindow* parent, forms::User& user, const forms::Report& report);

  // Whether the report went to a printer or to a file.
  bool Printed() const { return printed_; }

 private:
  wxSizer* MakeCommands();
  void GoTo(int page);
  void Zoom();
  void ShowPaper();
  void Paint();
  double PixelsAPoint() const;
  void OnKey(wxKeyEvent& event);
  void Print();
  void SaveAsPdf();

  forms::User& user_;
  const forms::Report& report_;
  ReportMeasure measure_;
  forms::ReportPages pages_;
  int page_ = 0;
  bool whole_page_ = true;  // or the page's width
  bool printed_ = false;
  wxScrolledCanvas* paper_ = nullptr;
  wxStaticText* place_ = nullptr;
  wxButton* back_ = nullptr;
  wxButton* on_ = nullptr;
  wxButton* zoom_ = nullptr;
};

}  // namespace views
