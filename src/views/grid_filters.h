#pragma once

#include <wx/grid.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <vector>

#include "forms/filter_pause.h"
#include "forms/grid.h"

namespace views {

// The filter cells under a grid's captions: they act as the person types, after a moment, and Enter acts at once.
class GridFilters {
 public:
  GridFilters(forms::Grid& grid, wxGrid& widget);
  GridFilters(const GridFilters&) = delete;
  GridFilters& operator=(const GridFilters&) = delete;
  ~GridFilters() = default;

  // Makes as many cells as there are columns, or none, and room for them under the captions.
  void Show();
  // Brings the cells in line with the columns.
  void Place();
  // Whether the person is typing into a cell, or has typed what has not acted yet.
  bool Typing();

  // The keyboard comes to that column's cell; false when it is not shown.
  bool Enter(int column);
  // As `Enter`, and this character is typed in place of what was there.
  void Begin(int column, wxChar character);
  // The keyboard comes to the first cell that is shown, or to the last; false when there is none.
  bool TakeFocus(bool last);
  // From the cell that has the keyboard on to the one beside it; false when there is no other, or none has it.
  bool Step(bool backward);

 private:
  wxTextCtrl* MakeCell();
  void OnKey(wxTextCtrl& cell, wxKeyEvent& event);
  void Apply();
  int ColumnOf(const wxWindow* cell) const;

  forms::Grid& grid_;
  wxGrid& widget_;
  std::vector<wxTextCtrl*> cells_;
  wxTimer delay_;
  forms::FilterPause pause_;
  bool ended_ = false;                            // what acted last, by the next key
  std::chrono::steady_clock::time_point looked_;  // for a key
};

}  // namespace views
