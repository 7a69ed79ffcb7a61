#include "views/grid_binder.h"

#include <wx/dc.h>

#include "views/button_binders.h"
#include "views/form_window.h"
#include "views/grid_cells.h"
#include "views/grid_copying.h"
#include "views/grid_filters.h"
#include "views/grid_head_menu.h"
#include "views/grid_heads.h"
#include "views/grid_notice.h"

namespace views {
namespace {

using Kind = forms::GridColumn::Kind;

// Of a line of text.
int RowHeight(const wxGrid& grid) {
  return grid.GetCharHeight() + grid.FromDIP(8);
}

class GridBinding : public Binding {
 public:
  GridBinding(forms::Grid& control, wxGrid& widget)
      : Binding(control, widget),
        grid_(control),
        widget_(widget),
        filters_(control, widget),
        heads_(control, widget, filters_),
        notice_(widget) {
    table_ = new CellTable(grid_, [this] { FetchSoon(); });
    widget_.SetTable(table_, true, wxGrid::wxGridSelectRows);
    BindCells();
    BindHeadMenu(grid_, widget_);
    BindMouse();
    KeepSelectionReadable(widget_);
    grid_.TypingAhead = [this] { return filters_.Typing(); };
    widget_.Bind(wxEVT_CHAR_HOOK, &GridBinding::OnHook, this);
    widget_.Bind(wxEVT_KEY_DOWN, &GridBinding::OnKey, this);
    widget_.Bind(wxEVT_CHAR, &GridBinding::OnCharacter, this);
    widget_.GetGridWindow()->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
      event.Skip();
      grid_.FilterCell = -1;
    });
    widget_.GetGridWindow()->Bind(wxEVT_CONTEXT_MENU, &GridBinding::OnMenu, this);
  }

  GridBinding(const GridBinding&) = delete;
  GridBinding& operator=(const GridBinding&) = delete;
  ~GridBinding() override { grid_.TypingAhead = nullptr; }

  wxWindow& FocusWidget() const override { return *widget_.GetGridWindow(); }

  // The filter cells, then the rows.
  void TabInto(bool backward) override {
    if (backward || !filters_.TakeFocus(false)) {
      TakeFocus();
    }
  }
  bool TabWithin(bool backward) override {
    if (FocusWidget().HasFocus()) {
      return backward && filters_.TakeFocus(true);
    }
    if (filters_.Step(backward)) {
      return true;
    }
    if (!backward) {
      TakeFocus();
    }
    return !backward;
  }

 protected:
  void Refresh(forms::Aspect aspect) override {
    const bool outer = !std::exchange(showing_, true);
    if (aspect == forms::Aspect::Items || aspect == forms::Aspect::State) {
      widget_.BeginBatch();
      table_->Reread();
      ShowColumns();
      widget_.EndBatch();
      widget_.ForceRefresh();
    }
    ShowRow();
    if (aspect == forms::Aspect::Items) {
      ShowName();
    }
    notice_.Show(grid_.RowCount() == 0 ? grid_.EmptyText.get() : std::string());
    if (std::exchange(filter_cell_, grid_.FilterCell.get()) != grid_.FilterCell && grid_.HasFocus()) {
      filters_.Enter(grid_.FilterCell);
    }
    showing_ = !outer;
  }

 private:
  void BindCells() {
    widget_.Bind(wxEVT_GRID_SELECT_CELL, [this](wxGridEvent& event) {
      const int row = event.GetRow();
      const int column = event.GetCol();
      const bool moves = row != grid_.Row || column != grid_.Col;
      if (!showing_ && moves && Dialog().SyncFocus()) {
        grid_.DoGoTo(row, column);
      }
      if (showing_ || row == grid_.Row) {
        event.Skip();
      } else {
        event.Veto();
      }
    });
    widget_.Bind(wxEVT_GRID_RANGE_SELECTED, [this](wxGridRangeSelectEvent& event) {
      event.Skip();
      if (!showing_) {  // what is selected is the control's to say
        Dialog().CallAfter([this] { Refresh(forms::Aspect::Value); });
      }
    });
    widget_.Bind(wxEVT_GRID_CELL_LEFT_CLICK, &GridBinding::OnClick, this);
    widget_.Bind(wxEVT_GRID_CELL_LEFT_DCLICK,
                 [this](wxGridEvent&) { Dialog().CallAfter([this] { grid_.DoOpenRow(); }); });
  }

  // With the button held the mouse drags a row, or selects up to where it is; without, it asks for the tip.
  void BindMouse() {
    wxWindow* cells = widget_.GetGridWindow();
    cells->Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
      const wxGridCellCoords cell = CellAt(event);
      if (event.LeftIsDown() && !widget_.IsCellEditControlShown()) {
        Drag(cell.GetRow());
        return;
      }
      ShowTip(*widget_.GetGridWindow(), cell.GetRow(), cell.GetCol());
      event.Skip();
    });
    cells->Bind(wxEVT_LEFT_UP, [this](wxMouseEvent& event) {
      event.Skip();
      const int from = std::exchange(dragged_, -1);
      widget_.GetGridWindow()->SetCursor(wxNullCursor);
      if (from >= 0 && from < grid_.RowCount() && drop_ >= 0) {
        grid_.DoMoveRow(from, drop_);
      }
    });
    wxWindow* heads = widget_.GetGridColLabelWindow();
    heads->Bind(wxEVT_MOTION, [this, heads](wxMouseEvent& event) {
      event.Skip();
      int x = 0;
      widget_.CalcUnscrolledPosition(event.GetX(), 0, &x, nullptr);
      ShowTip(*heads, -1, widget_.XToCol(x));
    });
  }

  wxGridCellCoords CellAt(const wxMouseEvent& event) const {
    int x = 0;
    int y = 0;
    widget_.CalcUnscrolledPosition(event.GetX(), event.GetY(), &x, &y);
    return widget_.XYToCell(x, y);
  }

  void Drag(int row) {
    if (row < 0 || row == grid_.Row || row >= grid_.RowCount()) {
      drop_ = dragged_ >= 0 && row == dragged_ ? -1 : drop_;
      return;
    }
    if (grid_.RowsMove) {
      dragged_ = dragged_ < 0 ? grid_.Row.get() : dragged_;
      drop_ = row;
      widget_.GetGridWindow()->SetCursor(wxCursor(wxCURSOR_SIZENS));
    } else if (grid_.MultiSelect && Dialog().SyncFocus()) {
      grid_.DoExtendTo(row);
    }
  }

  void ShowTip(wxWindow& part, int row, int column) {
    const bool over_cell = column >= 0 && row < grid_.RowCount() && (row >= 0 || &part != widget_.GetGridWindow());
    if (!grid_.Tip) {
      return;
    }
    const wxString tip = over_cell ? ToWx(grid_.Tip(row, column)) : wxString();
    if (part.GetToolTipText() != tip) {
      part.SetToolTip(tip);
    }
  }

  bool Holds(int column, Kind kind) const {
    if (column < 0 || column >= static_cast<int>(grid_.Columns->size())) {
      return false;
    }
    const forms::GridColumn& shape = grid_.Columns.get()[static_cast<std::size_t>(column)];
    return shape.editable && shape.kind == kind;
  }

  void OnClick(wxGridEvent& event) {
    const int row = event.GetRow();
    const int column = event.GetCol();
    const bool alone = !grid_.MultiSelect || (!event.ControlDown() && !event.ShiftDown());
    if (!alone) {
      widget_.GetGridWindow()->SetFocus();
      if (Dialog().SyncFocus()) {
        event.ShiftDown() ? grid_.DoExtendTo(row) : grid_.DoToggleRow(row);
      }
    } else if (Holds(column, Kind::Check) || Holds(column, Kind::Color)) {
      widget_.DisableCellEditControl();
      widget_.GetGridWindow()->SetFocus();
      Dialog().CallAfter([this, row, column] {
        if (Dialog().SyncFocus() && grid_.DoGoTo(row, column)) {
          ActOnCell();
        }
      });
    } else if (event.ControlDown() || event.ShiftDown()) {
      widget_.GetGridWindow()->SetFocus();
      widget_.GoToCell(row, column);
    } else {
      if (row == grid_.Row && grid_.DoGoTo(row, column)) {  // of several, that one alone
        ShowRow();
      }
      event.Skip();
    }
  }

  // Ticks the current cell, or lets the person pick for it. False for a cell that is typed into.
  bool ActOnCell() {
    const int column = grid_.Col;
    if (Holds(column, Kind::Color)) {
      return grid_.DoPick(column);
    }
    return Holds(column, Kind::Check) && grid_.Row >= 0 &&
           grid_.DoCell(column, grid_.Cell(grid_.Row, column) == "1" ? "0" : "1");
  }

  // A cell that is being edited has its own use for these keys. Up from the first row leads to the filters.
  void OnHook(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const bool editing = widget_.IsCellEditControlShown();
    const bool up = event.GetModifiers() == wxMOD_NONE && (key == WXK_UP || key == WXK_NUMPAD_UP);
    if (up && grid_.Row <= 0 && FocusWidget().HasFocus() && filters_.TakeFocus(false)) {
      return;
    }
    const bool of_cell = key == WXK_RETURN || key == WXK_NUMPAD_ENTER || key == WXK_ESCAPE || key == WXK_TAB ||
                         key == WXK_UP || key == WXK_DOWN || key == WXK_DELETE || key == WXK_NUMPAD_DELETE ||
                         key == WXK_INSERT || key == WXK_NUMPAD_INSERT;
    if (editing && of_cell) {
      event.DoAllowNextEvent();
    } else {
      event.Skip();
    }
  }

  void OnKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const int step = RowStep(key);
    const int row = std::clamp(grid_.Row + step, 0, std::max(0, grid_.RowCount() - 1));
    if (event.AltDown() && step != 0) {
      grid_.DoMoveRow(grid_.Row, row);
    } else if (event.ShiftDown() && step != 0) {
      grid_.MultiSelect ? grid_.DoExtendTo(row) : grid_.DoRow(row);
    } else if (event.ControlDown() && key == 'A') {
      grid_.DoSelectAll();
    } else if (event.GetModifiers() == wxMOD_NONE && key == WXK_SPACE && ActOnCell()) {
      return;
    } else {
      event.Skip();
    }
  }

  // Typing over the rows filters them, but where it edits a cell.
  void OnCharacter(wxKeyEvent& event) {
    const wxChar character = event.GetUnicodeKey();
    const int column = grid_.TypingColumn();
    if (column < 0 || character <= WXK_SPACE || character == WXK_DELETE || event.ControlDown() || event.AltDown() ||
        widget_.IsCellEditControlShown() || widget_.CanEnableCellControl()) {
      event.Skip();
    } else {
      filters_.Begin(column, character);
    }
  }

  // The menu key opens it below the current cell.
  void OnMenu(wxContextMenuEvent& event) {
    wxWindow& cells = *widget_.GetGridWindow();
    wxPoint at = cells.ScreenToClient(event.GetPosition());
    if (event.GetPosition() == wxDefaultPosition) {
      const wxRect cell = widget_.CellToRect(widget_.GetGridCursorRow(), widget_.GetGridCursorCol());
      at = widget_.CalcScrolledPosition(cell.GetBottomLeft());
    } else {
      const wxGridCellCoords cell = widget_.XYToCell(widget_.CalcUnscrolledPosition(at));
      const bool of_several = grid_.Selected().size() > 1 && grid_.IsSelected(cell.GetRow());
      if (!Dialog().SyncFocus() || (!of_several && !grid_.DoGoTo(cell.GetRow(), cell.GetCol()))) {
        return;
      }
    }
    OpenMenu(cells, copying_.CellMenu(), at, [this](wxMenu& menu) { AppendColumnMenu(menu, grid_, widget_); });
  }

  int RowStep(int key) const {
    const int page = std::max(1, widget_.GetGridWindow()->GetClientSize().y / widget_.GetDefaultRowSize() - 1);
    switch (key) {
      case WXK_UP:
        return -1;
      case WXK_DOWN:
        return 1;
      case WXK_PAGEUP:
        return -page;
      case WXK_PAGEDOWN:
        return page;
      default:
        return 0;
    }
  }

  void ShowColumns() {
    heads_.Show();
    const bool editable = std::ranges::any_of(grid_.Columns.get(), &forms::GridColumn::editable);
    widget_.EnableEditing(editable);
    const int frame = editable ? widget_.FromDIP(2) : 0;  // around the current cell
    widget_.SetCellHighlightPenWidth(frame);
    widget_.SetCellHighlightROPenWidth(frame);
    widget_.SetCellHighlightColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    const int height = std::max(RowHeight(widget_), widget_.FromDIP(grid_.RowHeight.get()));
    if (widget_.GetDefaultRowSize() != height) {
      widget_.SetDefaultRowSize(height, true);
    }
  }

  void ShowRow() {
    const int row = grid_.Row;
    const auto& visible = grid_.VisibleColumns();
    if (row >= 0 && row < widget_.GetNumberRows() && !visible.empty()) {
      const int cursor = widget_.GetGridCursorCol();
      int column = visible.front();
      for (const int wanted : {cursor, grid_.Col.get()}) {
        column = std::ranges::binary_search(visible, wanted) ? wanted : column;
      }
      if (widget_.GetGridCursorRow() != row || cursor != column) {
        widget_.GoToCell(row, column);
      }
    }
    ShowSelection();
  }

  void ShowSelection() {
    std::vector<std::pair<int, int>> wanted;  // first and last rows
    for (const int row : grid_.Selected()) {
      if (!wanted.empty() && wanted.back().second + 1 == row) {
        wanted.back().second = row;
      } else if (row < widget_.GetNumberRows()) {
        wanted.emplace_back(row, row);
      }
    }
    std::vector<std::pair<int, int>> shown;
    for (const wxGridBlockCoords& block : widget_.GetSelectedRowBlocks()) {
      shown.emplace_back(block.GetTopRow(), block.GetBottomRow());
    }
    if (shown == wanted) {
      return;
    }
    widget_.ClearSelection();
    for (const auto& [first, last] : wanted) {
      widget_.SelectBlock(first, 0, last, widget_.GetNumberCols() - 1, true);
    }
  }

  void FetchSoon() {
    if (!std::exchange(fetching_, true)) {
      Dialog().CallAfter([this] {
        grid_.FetchMore();
        fetching_ = false;
      });
    }
  }

  forms::Grid& grid_;
  wxGrid& widget_;
  CellTable* table_ = nullptr;  // the widget owns it
  GridFilters filters_;
  GridHeads heads_;
  GridNotice notice_;
  GridCopying copying_{widget_, grid_};
  int filter_cell_ = -1;  // that was shown to have the keyboard
  int dragged_ = -1;      // the row that the mouse drags, and where it would fall
  int drop_ = -1;
  bool showing_ = false;
  bool fetching_ = false;
};

}  // namespace

wxGrid* MakeGrid(wxWindow* parent, forms::Grid& control, int lines) {
  auto* grid = new wxGrid(parent, wxID_ANY);
  grid->HideRowLabels();
  grid->SetLabelFont(grid->GetFont());
  grid->SetDefaultCellFitMode(wxGridFitMode::Ellipsize());
  grid->SetDefaultRowSize(RowHeight(*grid));
  grid->SetTabBehaviour(wxGrid::Tab_Leave);
  grid->DisableDragRowSize();
  grid->EnableDragGridSize(false);
  grid->EnableDragColMove();
  const int height = RowHeight(*grid) * (lines + 3);
  int width = 0;
  for (const forms::GridColumn& column : control.Columns.get()) {
    width += column.visible ? ToPixels(*grid, column.width) : 0;
  }
  grid->SetMinSize(wxSize(std::clamp(width, 60 * grid->GetCharWidth(), 130 * grid->GetCharWidth()), height));
  FormWindow::Of(*parent).Attach<GridBinding>(control, *grid);
  return grid;
}

}  // namespace views
