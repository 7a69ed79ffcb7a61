#include "views/pictures.h"

#include <wx/filename.h>
#include <wx/image.h>
#include <wx/settings.h>

#include "views/binding.h"

namespace views {

wxBitmapBundle Pictures::Find(const std::string& name) const {
  if (name.empty()) {
    return {};
  }
  if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) {
    wxImage::AddHandler(new wxPNGHandler);
  }
  wxString native = ToWx(name);
  native.Replace("\\", "/");
  for (const std::string& folder : folders_) {
    wxFileName file(ToWx(folder) + "/" + native);
    if (!file.FileExists()) {
      continue;
    }
    if (wxSystemSettings::GetAppearance().IsDark()) {
      wxFileName dark = file;
      dark.SetName(file.GetName() + "-dark");
      file = dark.FileExists() ? dark : file;
    }
    wxVector<wxBitmap> sizes;
    sizes.push_back(wxBitmap(file.GetFullPath(), wxBITMAP_TYPE_PNG));
    wxFileName twice = file;
    twice.SetName(file.GetName() + "@2x");
    if (twice.FileExists()) {
      sizes.push_back(wxBitmap(twice.GetFullPath(), wxBITMAP_TYPE_PNG));
    }
    return wxBitmapBundle::FromBitmaps(sizes);
  }
  return {};
}

}  // namespace views
