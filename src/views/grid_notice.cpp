#include "views/grid_notice.h"

#include "views/binding.h"

namespace views {

GridNotice::GridNotice(wxGrid& widget)
    : cells_(*widget.GetGridWindow()),
      text_(*new wxStaticText(&cells_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                              wxALIGN_CENTRE_HORIZONTAL | wxST_NO_AUTORESIZE)) {
  text_.SetForegroundColour(widget.GetDefaultCellTextColour());
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
  constexpr int kLines = 3;
  const wxSize area = cells_.GetClientSize();
  text_.SetSize(0, area.y / 4, area.x, kLines * text_.GetCharHeight());
}

}  // namespace views
