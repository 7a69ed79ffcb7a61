// A library with the toolkit and nothing else: what the component is measured against.
#include <windows.h>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/init.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <memory>

namespace {

class BareApp : public wxApp {
 public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    return true;
  }
};

}  // namespace

// NOLINTNEXTLINE: the toolkit's own way to name the class of the application
wxIMPLEMENT_APP_NO_MAIN(BareApp);

// A dialog with that many rows of a caption, a field and a button; returns when it is closed.
extern "C" __declspec(dllexport) void ShowBareDialog(HINSTANCE library, int rows) {
  if (!wxEntryStart(library) || wxTheApp == nullptr || !wxTheApp->CallOnInit()) {
    return;
  }
  wxDialog dialog(nullptr, wxID_ANY, "Bare");
  auto fields = std::make_unique<wxFlexGridSizer>(3);
  for (int row = 0; row < rows; ++row) {
    fields->Add(new wxStaticText(&dialog, wxID_ANY, wxString::Format("Field %d", row)));
    fields->Add(new wxTextCtrl(&dialog, wxID_ANY, wxString::Format("%d", row)));
    fields->Add(new wxButton(&dialog, wxID_ANY, "..."));
  }
  if (rows > 0) {
    dialog.SetSizerAndFit(fields.release());
  }
  dialog.ShowModal();
}
