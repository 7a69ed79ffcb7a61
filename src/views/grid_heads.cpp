#include "views/grid_heads.h"

#include <algorithm>

#include "views/form_window.h"

namespace views {
namespace {

constexpr int kDigit = 7;  // pixels of a digit at 100 %

}  // namespace

int ToPixels(const wxWindow& widget, int width) {
  return widget.FromDIP(width) * widget.GetCharWidth() / kDigit;
}

int FromPixels(const wxWindow& widget, int pixels) {
  return widget.ToDIP((pixels * kDigit + kDigit / 2) / widget.GetCharWidth());
}

void SizeToContents(forms::Grid& grid, wxGrid& widget, int column) {
  constexpr int kRows = 500;
  constexpr std::size_t kLetters = 300;
  int width = widget.GetTextExtent(widget.GetColLabelValue(column)).x;
  const int first = std::max(0, widget.GetFirstFullyVisibleRow() - kRows / 2);
  for (int row = first; row < std::min(grid.RowCount(), first + kRows); ++row) {
    const std::string_view text = grid.Cell(row, column).substr(0, kLetters);
    width = std::max(width, widget.GetTextExtent(ToWx(text)).x);
  }
  const int most = widget.GetGridWindow()->GetClientSize().x;
  grid.DoSizeColumn(column, FromPixels(widget, std::min(width + widget.FromDIP(12), most)));
}

GridHeads::GridHeads(forms::Grid& grid, wxGrid& widget, GridFilters& filters)
    : grid_(grid), widget_(widget), filters_(filters) {
  widget_.Bind(wxEVT_GRID_COL_SORT, [this](wxGridEvent& event) {
    event.Veto();
    if (grid_.HeadClick && FormWindow::Of(widget_).SyncFocus()) {
      grid_.DoSort(event.GetCol());
    }
  });
  widget_.Bind(wxEVT_GRID_COL_SIZE, &GridHeads::OnSize, this);
  widget_.Bind(wxEVT_GRID_COL_AUTO_SIZE, [this](wxGridSizeEvent& event) {
    if (FormWindow::Of(widget_).SyncFocus()) {
      SizeToContents(grid_, widget_, event.GetRowOrCol());
    }
  });
  widget_.Bind(wxEVT_GRID_COL_MOVE, &GridHeads::OnMove, this);
  widget_.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    filters_.Place();
  });
  for (const auto& scrolled :
       {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP, wxEVT_SCROLLWIN_LINEDOWN,
        wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN, wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE}) {
    widget_.Bind(scrolled, [this](wxScrollWinEvent& event) {
      event.Skip();
      FormWindow::Of(widget_).CallAfter([this] { filters_.Place(); });
    });
  }
}

// An edge that was dragged beside a hidden column may be taken for that column's.
void GridHeads::OnSize(wxGridSizeEvent& event) {
  const int column = event.GetRowOrCol();
  if (FormWindow::Of(widget_).SyncFocus() && static_cast<std::size_t>(column) < shapes_.size()) {
    const int width = FromPixels(widget_, widget_.GetColSize(column));
    shapes_[static_cast<std::size_t>(column)] = {width, true};
    grid_.DoSizeColumn(column, width);
    Show();
  }
  filters_.Place();
}

// The widget moves the column behind this event; the control's order is the one that is shown.
void GridHeads::OnMove(wxGridEvent& event) {
  FormWindow::Of(widget_).CallAfter([this, from = event.GetCol()] {
    const int to = widget_.GetColPos(from);
    widget_.ResetColPos();
    if (FormWindow::Of(widget_).SyncFocus()) {
      grid_.DoMoveColumn(from, to);
    }
    filters_.Place();
  });
}

void GridHeads::Show() {
  const auto& columns = grid_.Columns.get();
  shapes_.resize(columns.size(), Shape{-1, true});
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Shape wanted{columns[i].width, columns[i].visible};
    if (!(shapes_[i] == wanted)) {
      shapes_[i] = wanted;
      widget_.SetColSize(static_cast<int>(i), wanted.visible ? ToPixels(widget_, wanted.width) : 0);
    }
  }
  widget_.GetGridColLabelWindow()->Refresh();
  filters_.Show();
}

}  // namespace views
