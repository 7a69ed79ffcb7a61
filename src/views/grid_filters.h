#pragma once

#include <wx/grid.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <vector>

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

 private:
  wxTextCtrl* MakeCell();
  void OnKey(wxTextCtrl& cell, wxKeyEvent& event);
  void Apply();
  // The shown cell before or behind; nullptr for none.
  wxTextCtrl* Beside(const wxTextCtrl& cell, bool backward) const;

  forms::Grid& grid_;
  wxGrid& widget_;
  std::vector<wxTextCtrl*> cells_;
  wxTimer delay_;
};

}  // namespace views
