#include "views/report_printing.h"

#include <wx/dcgraph.h>
#include <wx/print.h>
#include <wx/printdlg.h>

#include <memory>

#include "editing/file_to_write.h"
#include "editing/rules.h"
#include "views/binding.h"
#include "views/report_drawing.h"

#ifdef __WXGTK__
// Of the library that the toolkit stands on; it brings no headers of its own.
extern "C" {
cairo_surface_t* cairo_pdf_surface_create_for_stream(int (*write)(void*, const unsigned char*, unsigned), void* closure,
                                                     double width, double height);
cairo_t* cairo_create(cairo_surface_t* target);
void cairo_surface_show_page(cairo_surface_t* surface);
void cairo_surface_finish(cairo_surface_t* surface);
void cairo_surface_destroy(cairo_surface_t* surface);
}
#endif

namespace views {
namespace {

constexpr double kPointsAnInch = 72;
constexpr double kMillimetresAnInch = 25.4;

class ReportPrintout : public wxPrintout {
 public:
  ReportPrintout(const forms::Report& report, const forms::TextMeasure& measure)
      : wxPrintout(ToWx(report.title)),
        report_(report),
        measure_(measure),
        pages_(std::make_unique<forms::ReportPages>(report, measure)) {}

  void OnPreparePrinting() override {
    int width = 0;
    int height = 0;
    GetPageSizeMM(&width, &height);
    const double points = kPointsAnInch / kMillimetresAnInch;
    // What lies across is told so; the pages turn upright paper by themselves.
    pages_ = std::make_unique<forms::ReportPages>(
        report_, measure_, forms::Paper{std::min(width, height) * points, std::max(width, height) * points});
  }
  bool HasPage(int page) override { return page >= 1 && page <= pages_->Count(); }
  void GetPageInfo(int* first, int* last, int* from, int* to) override {
    *first = *from = 1;
    *last = *to = pages_->Count();
  }
  bool OnPrintPage(int page) override {
    wxDC* paper = GetDC();
    if (paper == nullptr) {
      return false;
    }
    int width = 0;
    int height = 0;
    GetPageSizePixels(&width, &height);
    DrawPage(*paper, pages_->Page(page - 1), width / pages_->Size().width);
    return true;
  }

 private:
  const forms::Report& report_;
  const forms::TextMeasure& measure_;
  std::unique_ptr<forms::ReportPages> pages_;
};

}  // namespace

bool PrintOnPaper(wxWindow& parent, const forms::Report& report, const forms::TextMeasure& measure, bool across) {
  wxPrintData data;
  data.SetPaperId(wxPAPER_LETTER);
  data.SetOrientation(across ? wxLANDSCAPE : wxPORTRAIT);
  if (!report.printer.empty()) {
    data.SetPrinterName(ToWx(report.printer));
  }
  wxPrintDialogData choices(data);
  wxPrinter printer(&choices);
  ReportPrintout printout(report, measure);
  return printer.Print(&parent, &printout, true);
}

#ifdef __WXGTK__

bool WritesPdf() {
  return true;
}

void WritePdf(std::string_view path, const forms::ReportPages& pages) {
  editing::FileToWrite file(path);
  std::exception_ptr refused;  // must not pass through the library
  struct Target {
    editing::FileToWrite& file;
    std::exception_ptr& refused;
  } target{file, refused};
  const auto write = [](void* closure, const unsigned char* bytes, unsigned length) {
    auto& [to, refusal] = *static_cast<Target*>(closure);
    try {
      if (refusal == nullptr) {
        to.Write({reinterpret_cast<const char*>(bytes), length});
      }
      return 0;
    } catch (const editing::Refusal&) {
      refusal = std::current_exception();
      constexpr int kWriteError = 11;
      return kWriteError;
    }
  };
  const forms::Paper size = pages.Size();
  cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(write, &target, size.width, size.height);
  for (int number = 0; number < pages.Count() && refused == nullptr; ++number) {
    {
      wxGCDC page(wxGraphicsRenderer::GetCairoRenderer()->CreateContextFromNativeContext(cairo_create(surface)));
      DrawPage(page, pages.Page(number), 1);
    }
    cairo_surface_show_page(surface);
  }
  cairo_surface_finish(surface);
  cairo_surface_destroy(surface);
  if (refused != nullptr) {
    std::rethrow_exception(refused);
  }
  file.Finish();
}

#else

bool WritesPdf() {
  return false;
}

void WritePdf(std::string_view /*path*/, const forms::ReportPages& /*pages*/) {}

#endif

}  // namespace views
