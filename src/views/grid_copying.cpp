#include "views/grid_copying.h"

#include "forms/grid_text.h"
#include "views/form_window.h"

namespace views {

GridCopying::GridCopying(wxGrid& widget, forms::Grid& grid) : grid_(grid) {
  const auto copy = [&widget](const std::string& text) {
    if (!text.empty()) {
      FormWindow::Of(widget).User().Copy(text);
    }
  };
  rows_.Caption = "&Copy with Headings\tCtrl+C";
  rows_.Click = [copy, &grid] { copy(forms::CopiedRows(grid)); };
  cell_.Caption = "Copy C&ell";
  cell_.Click = [copy, &grid] { copy(forms::CopiedCell(grid)); };
  widget.Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'C') {
      rows_.DoClick();
    } else {
      event.Skip();
    }
  });
}

std::vector<forms::Button*> GridCopying::CellMenu() {
  for (forms::MenuItem* command : {&rows_, &cell_}) {
    command->Enabled = grid_.Row >= 0;
  }
  std::vector<forms::Button*> commands = {&rows_, &cell_};
  commands.insert(commands.end(), grid_.CellMenu.begin(), grid_.CellMenu.end());
  return commands;
}

}  // namespace views
