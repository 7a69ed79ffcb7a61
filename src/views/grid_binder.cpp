#include "views/grid_binder.h"

#include <wx/textctrl.h>
#include <wx/timer.h>

#include "views/form_dialog.h"
#include "views/text_binders.h"

namespace views {
namespace {

constexpr int kFilterDelay = 300;  // milliseconds after the last key

// The control's cells as wxGrid reads them. Painting the last row fetches more.
class CellTable : public wxGridTableBase {
 public:
  CellTable(forms::Grid& grid, std::function<void()> last_row_painted)
      : grid_(grid), last_row_painted_(std::move(last_row_painted)) {}

  int GetNumberRows() override { return rows_; }
  int GetNumberCols() override { return columns_; }
  wxString GetColLabelValue(int column) override {
    const wxString caption = ToWx(Column(column).caption);
    if (column != grid_.SortColumn) {
      return caption;
    }
    return caption + (grid_.SortDescending ? ToWx(" \u25BC") : ToWx(" \u25B2"));
  }
  bool IsEmptyCell(int row, int column) override { return GetValue(row, column).empty(); }

  wxString GetValue(int row, int column) override {
    if (row >= grid_.RowCount()) {
      return {};
    }
    if (row == rows_ - 1) {
      last_row_painted_();
    }
    return ToWx(grid_.Cell(row, column));
  }

  void SetValue(int row, int column, const wxString& text) override {
    if (grid_.DoRow(row)) {
      grid_.DoCell(column, FromWx(text));
    }
  }

  wxGridCellAttr* GetAttr(int row, int column, wxGridCellAttr::wxAttrKind /*kind*/) override {
    auto* attributes = new wxGridCellAttr;
    const forms::GridColumn& shape = Column(column);
    attributes->SetReadOnly(!shape.editable);
    attributes->SetAlignment(shape.align == forms::GridColumn::Align::Left    ? wxALIGN_LEFT
                             : shape.align == forms::GridColumn::Align::Right ? wxALIGN_RIGHT
                                                                              : wxALIGN_CENTRE,
                             wxALIGN_CENTRE);
    if (shape.kind == forms::GridColumn::Kind::Check) {
      attributes->SetRenderer(new wxGridCellBoolRenderer);
      attributes->SetEditor(new wxGridCellBoolEditor);
    } else if (shape.kind == forms::GridColumn::Kind::DropDown) {
      wxArrayString choices;
      for (const std::string& choice : shape.choices) {
        choices.push_back(ToWx(choice));
      }
      attributes->SetEditor(new wxGridCellChoiceEditor(choices));
    }
    if (row < grid_.RowCount()) {
      if (const auto fore = grid_.Rows.get()->Fore(row)) {
        attributes->SetTextColour(wxColour(fore->red, fore->green, fore->blue));
      }
      if (const auto back = grid_.Rows.get()->Back(row)) {
        attributes->SetBackgroundColour(wxColour(back->red, back->green, back->blue));
      }
    }
    return attributes;
  }

  // Brings the widget's counts in step with the control's.
  void CountAgain() {
    Tell(rows_, grid_.RowCount(), wxGRIDTABLE_NOTIFY_ROWS_APPENDED, wxGRIDTABLE_NOTIFY_ROWS_DELETED);
    Tell(columns_, static_cast<int>(grid_.Columns->size()), wxGRIDTABLE_NOTIFY_COLS_APPENDED,
         wxGRIDTABLE_NOTIFY_COLS_DELETED);
  }

 private:
  const forms::GridColumn& Column(int column) const { return grid_.Columns.get()[static_cast<std::size_t>(column)]; }

  void Tell(int& count, int wanted, int appended, int deleted) {
    const int before = std::exchange(count, wanted);
    if (wanted > before) {
      wxGridTableMessage message(this, appended, wanted - before);
      GetView()->ProcessTableMessage(message);
    } else if (wanted < before) {
      wxGridTableMessage message(this, deleted, wanted, before - wanted);
      GetView()->ProcessTableMessage(message);
    }
  }

  forms::Grid& grid_;
  std::function<void()> last_row_painted_;
  int rows_ = 0;
  int columns_ = 0;
};

class GridBinding : public Binding {
 public:
  GridBinding(forms::Grid& control, wxGrid& widget)
      : Binding(control, widget), grid_(control), widget_(widget), delay_(&widget) {
    table_ = new CellTable(grid_, [this] { FetchSoon(); });
    widget_.SetTable(table_, true, wxGrid::wxGridSelectRows);
    widget_.Bind(wxEVT_GRID_SELECT_CELL, [this](wxGridEvent& event) {
      event.Skip();
      const int row = event.GetRow();
      if (!showing_ && row != grid_.Row && Dialog().SyncFocus()) {
        grid_.DoRow(row);
      }
    });
    widget_.Bind(wxEVT_GRID_CELL_LEFT_DCLICK,
                 [this](wxGridEvent&) { Dialog().CallAfter([this] { grid_.DoOpenRow(); }); });
    widget_.Bind(wxEVT_GRID_COL_SORT, [this](wxGridEvent& event) {
      event.Veto();
      grid_.DoSort(event.GetCol());
    });
    widget_.Bind(wxEVT_GRID_COL_SIZE, [this](wxGridSizeEvent&) { PlaceFilters(); });
    widget_.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
      event.Skip();
      PlaceFilters();
    });
    for (const auto& scrolled :
         {wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_LINEUP, wxEVT_SCROLLWIN_LINEDOWN,
          wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_PAGEDOWN, wxEVT_SCROLLWIN_THUMBTRACK, wxEVT_SCROLLWIN_THUMBRELEASE}) {
      widget_.Bind(scrolled, [this](wxScrollWinEvent& event) {
        event.Skip();
        Dialog().CallAfter([this] { PlaceFilters(); });
      });
    }
    delay_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { ApplyFilters(); });
    delay_.SetOwner(&delay_);
  }

  wxWindow& FocusWidget() const override { return *widget_.GetGridWindow(); }

 protected:
  void Refresh(forms::Aspect aspect) override {
    showing_ = true;
    if (aspect == forms::Aspect::Items || aspect == forms::Aspect::State) {
      widget_.BeginBatch();
      table_->CountAgain();
      ShowColumns();
      widget_.EndBatch();
      widget_.ForceRefresh();
    }
    ShowRow();
    showing_ = false;
  }

 private:
  struct Shape {
    int width;
    bool visible;
    friend bool operator==(const Shape&, const Shape&) = default;
  };

  // A width that a person has dragged stays until the rules give another.
  void ShowColumns() {
    const auto& columns = grid_.Columns.get();
    shapes_.resize(columns.size(), Shape{-1, true});
    bool editable = false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Shape wanted{columns[i].width, columns[i].visible};
      if (!(shapes_[i] == wanted)) {
        shapes_[i] = wanted;
        const int index = static_cast<int>(i);
        widget_.SetColSize(index, wanted.visible ? widget_.FromDIP(wanted.width) * widget_.GetCharWidth() / 7 : 0);
      }
      editable = editable || columns[i].editable;
    }
    widget_.EnableEditing(editable);
    widget_.GetGridColLabelWindow()->Refresh();
    ShowFilters();
  }

  void ShowFilters() {
    const auto& columns = grid_.Columns.get();
    const std::size_t wanted = grid_.FilterBar ? columns.size() : 0;
    while (filters_.size() > wanted) {
      filters_.back()->Destroy();
      filters_.pop_back();
    }
    while (filters_.size() < wanted) {
      filters_.push_back(MakeFilter());
    }
    for (std::size_t i = 0; i < wanted; ++i) {
      filters_[i]->SetName(ToWx(grid_.Name() + ".filter." + columns[i].key));
      filters_[i]->SetHint("Filter");
      if (!delay_.IsRunning() && filters_[i]->GetValue() != ToWx(columns[i].filter)) {
        filters_[i]->ChangeValue(ToWx(columns[i].filter));
      }
    }
    const int caption = widget_.GetCharHeight() + widget_.FromDIP(10);
    const int height = filters_.empty() ? caption : caption + filters_.front()->GetMinSize().y + widget_.FromDIP(4);
    if (widget_.GetColLabelSize() != height) {
      widget_.SetColLabelSize(height);
      widget_.SetColLabelAlignment(wxALIGN_LEFT, filters_.empty() ? wxALIGN_CENTRE : wxALIGN_TOP);
    }
    PlaceFilters();
  }

  wxTextCtrl* MakeFilter() {
    auto* filter = new wxTextCtrl(widget_.GetGridColLabelWindow(), wxID_ANY);
    SizeField(*filter, 1);
    filter->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { delay_.StartOnce(kFilterDelay); });
    filter->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
      const int key = event.GetKeyCode();
      if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER) {
        ApplyFilters();
      } else if (key == WXK_DOWN) {
        ApplyFilters();
        TakeFocus();
        grid_.DoRow(std::max(0, grid_.Row.get()));
      } else {
        event.Skip();
      }
    });
    return filter;
  }

  void ApplyFilters() {
    delay_.Stop();
    if (!Dialog().SyncFocus()) {
      return;
    }
    for (std::size_t i = 0; i < filters_.size(); ++i) {
      const std::string typed = FromWx(filters_[i]->GetValue());
      if (typed != grid_.Columns.get()[i].filter) {
        grid_.DoFilter(static_cast<int>(i), typed);
      }
    }
  }

  void PlaceFilters() {
    const int gap = widget_.FromDIP(1);
    int start = 0;
    widget_.CalcScrolledPosition(0, 0, &start, nullptr);
    for (std::size_t i = 0; i < filters_.size(); ++i) {
      const int width = widget_.GetColSize(static_cast<int>(i));
      filters_[i]->Show(width > 4 * gap);
      if (filters_[i]->IsShown()) {
        const int height = filters_[i]->GetMinSize().y;
        filters_[i]->SetSize(start + gap, widget_.GetColLabelSize() - height - 2 * gap, width - 2 * gap, height);
      }
      start += width;
    }
  }

  void ShowRow() {
    const int row = grid_.Row;
    if (row < 0 || row >= widget_.GetNumberRows()) {
      widget_.ClearSelection();
      return;
    }
    const auto visible = grid_.VisibleColumns();
    if (!visible.empty() && widget_.GetGridCursorRow() != row) {
      widget_.GoToCell(row, visible.front());
    }
    if (!widget_.IsInSelection(row, 0)) {
      widget_.SelectRow(row);
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
  std::vector<Shape> shapes_;
  std::vector<wxTextCtrl*> filters_;
  wxTimer delay_;
  bool showing_ = false;
  bool fetching_ = false;
};

}  // namespace

wxGrid* MakeGrid(wxWindow* parent, forms::Grid& control, int lines) {
  auto* grid = new wxGrid(parent, wxID_ANY);
  grid->HideRowLabels();
  grid->SetLabelFont(grid->GetFont());
  grid->SetDefaultCellFitMode(wxGridFitMode::Ellipsize());
  grid->SetDefaultRowSize(grid->GetCharHeight() + grid->FromDIP(8));
  grid->SetCellHighlightPenWidth(0);
  grid->SetCellHighlightROPenWidth(0);
  grid->DisableDragRowSize();
  grid->EnableDragGridSize(false);
  const int height = (grid->GetCharHeight() + grid->FromDIP(8)) * (lines + 3);
  int width = 0;
  for (const forms::GridColumn& column : control.Columns.get()) {
    width += column.visible ? grid->FromDIP(column.width) * grid->GetCharWidth() / 7 : 0;
  }
  grid->SetMinSize(wxSize(std::clamp(width, 60 * grid->GetCharWidth(), 130 * grid->GetCharWidth()), height));
  FormDialog::Of(*parent).Attach<GridBinding>(control, *grid);
  return grid;
}

}  // namespace views
