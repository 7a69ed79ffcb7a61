#include "views/framed.h"

#include <wx/settings.h>
#include <wx/sizer.h>

namespace views {

wxPanel* Framed(wxWindow* parent, const std::function<wxWindow*(wxWindow* parent)>& make) {
  auto* frame = new wxPanel(parent);
#ifdef __WXMSW__
  constexpr int kWidth = 0;
#else
  constexpr int kWidth = 1;
  frame->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW));
#endif
  wxWindow* inside = make(frame);
  frame->SetName("frame " + inside->GetName());
  auto* margin = new wxBoxSizer(wxVERTICAL);
  margin->Add(inside, wxSizerFlags(1).Expand().Border(wxALL, kWidth));
  frame->SetSizer(margin);
  return frame;
}

}  // namespace views
