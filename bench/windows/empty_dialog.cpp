// A library with the toolkit and nothing else: what the component is measured against.
#include <windows.h>

#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/init.h>

namespace {

class EmptyApp : public wxApp {
 public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    return true;
  }
};

}  // namespace

// NOLINTNEXTLINE: the toolkit's own way to name the class of the application
wxIMPLEMENT_APP_NO_MAIN(EmptyApp);

// Returns when the dialog is closed.
extern "C" __declspec(dllexport) void ShowEmptyDialog(HINSTANCE library) {
  if (wxEntryStart(library) && wxTheApp != nullptr && wxTheApp->CallOnInit()) {
    wxDialog(nullptr, wxID_ANY, "Empty").ShowModal();
  }
}
