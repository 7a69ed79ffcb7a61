#pragma once

#include <wx/grid.h>

#include <vector>

#include "forms/grid.h"
#include "views/grid_filters.h"

namespace views {

// A column's width in pixels on this screen and with this text, and back.
int ToPixels(const wxWindow& widget, int width);
int FromPixels(const wxWindow& widget, int pixels);

// As wide as its heading and its cells near the rows that are seen ask for.
void SizeToContents(forms::Grid& grid, wxGrid& widget, int column);

// A grid's headings: they sort, and are dragged and sized. The filter cells under them follow.
class GridHeads {
 public:
  GridHeads(forms::Grid& grid, wxGrid& widget, GridFilters& filters);
  GridHeads(const GridHeads&) = delete;
  GridHeads& operator=(const GridHeads&) = delete;
  ~GridHeads() = default;

  // Brings the widget's columns in line with the control's.
  void Show();

 private:
  struct Shape {
    int width;
    bool visible;
    friend bool operator==(const Shape&, const Shape&) = default;
  };

  void OnSize(wxGridSizeEvent& event);
  void OnMove(wxGridEvent& event);

  forms::Grid& grid_;
  wxGrid& widget_;
  GridFilters& filters_;
  std::vector<Shape> shapes_;  // as the widget has them
};

}  // namespace views
