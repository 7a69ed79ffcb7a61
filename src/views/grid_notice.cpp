#include "views/grid_notice.h"

#include <wx/settings.h>

#include "views/binding.h"
#include "views/readable.h"

namespace views {

GridNotice::GridNotice(wxGrid& widget)
    : cells_(*widget.GetGridWindow()),
      text_(*new wxStaticText(&cells_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE)) {
  text_.SetForegroundColour(
      ReadableOn(widget.GetDefaultCellBackgroundColour(), wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT)));
  text_.Hide();
  cells_.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    Place();
  });
}

void GridNotice::Show(const std::string& text) {
  text_.Show(!text.empty());
  if (text_.GetLabelText() != ToWx(text)) {
    text_.SetLabelText(ToWx(text));
    Place();
  }
}

void GridNotice::Place() {
  const wxSize area = cells_.GetClientSize();
  const wxSize size = text_.GetBestSize();
  text_.SetSize((area.x - size.x) / 2, area.y / 4, size.x, size.y);
}

}  // namespace views
