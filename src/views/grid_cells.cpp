#include "views/grid_cells.h"

#include <wx/combobox.h>
#include <wx/dc.h>

#include <algorithm>

#include "views/binding.h"
#include "views/readable.h"

namespace views {
namespace {

using Kind = forms::GridColumn::Kind;

wxColour ToWx(forms::Color color) {
  return {color.red, color.green, color.blue};
}

// A filled square; an empty cell for a text that is no colour.
class SwatchRenderer : public wxGridCellRenderer {
 public:
  void Draw(wxGrid& grid, wxGridCellAttr& attributes, wxDC& dc, const wxRect& cell, int row, int column,
            bool selected) override {
    wxGridCellRenderer::Draw(grid, attributes, dc, cell, row, column, selected);
    const auto color = forms::ParseColor(FromWx(grid.GetCellValue(row, column)));
    if (color) {
      const wxRect swatch = cell.Deflate(grid.FromDIP(4), grid.FromDIP(3));
      dc.SetBrush(ToWx(*color));
      dc.SetPen(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
      dc.DrawRectangle(swatch);
    }
  }
  wxSize GetBestSize(wxGrid& grid, wxGridCellAttr& /*attributes*/, wxDC& /*dc*/, int /*row*/, int /*column*/) override {
    return grid.FromDIP(wxSize(32, 16));
  }
  wxGridCellRenderer* Clone() const override { return new SwatchRenderer; }
};

class ColorKeepingRenderer : public wxGridCellStringRenderer {
 public:
  void Draw(wxGrid& grid, wxGridCellAttr& attributes, wxDC& dc, const wxRect& cell, int row, int column,
            bool /*selected*/) override {
    wxGridCellStringRenderer::Draw(grid, attributes, dc, cell, row, column, false);
  }
  wxGridCellRenderer* Clone() const override { return new ColorKeepingRenderer; }
};

// Offers what the control offers in that row.
class ChoiceEditor : public wxGridCellChoiceEditor {
 public:
  explicit ChoiceEditor(const forms::Grid& grid) : control_(grid) {}

  void BeginEdit(int row, int column, wxGrid* grid) override {
    wxArrayString choices;
    for (const std::string& choice : control_.ChoicesOf(row, column)) {
      choices.push_back(views::ToWx(choice));
    }
    Combo()->Set(choices);
    wxGridCellChoiceEditor::BeginEdit(row, column, grid);
  }
  wxGridCellEditor* Clone() const override { return new ChoiceEditor(control_); }

 private:
  const forms::Grid& control_;
};

int AlignmentOf(forms::GridColumn::Align align) {
  switch (align) {
    case forms::GridColumn::Align::Right:
      return wxALIGN_RIGHT;
    case forms::GridColumn::Align::Center:
      return wxALIGN_CENTRE;
    case forms::GridColumn::Align::Left:
      break;
  }
  return wxALIGN_LEFT;
}

}  // namespace

CellTable::CellTable(forms::Grid& grid, std::function<void()> last_row_painted)
    : grid_(grid), last_row_painted_(std::move(last_row_painted)) {}

void CellTable::Reread() {
  const int columns_before = GetNumberCols();
  if (shapes_ != grid_.Columns.get()) {
    shapes_ = grid_.Columns;
    columns_.clear();
    for (std::size_t i = 0; i < shapes_.size(); ++i) {
      columns_.push_back(AttributesOf(static_cast<int>(i)));
    }
  }
  Tell(std::exchange(rows_, grid_.RowCount()), grid_.RowCount(), wxGRIDTABLE_NOTIFY_ROWS_APPENDED,
       wxGRIDTABLE_NOTIFY_ROWS_DELETED);
  Tell(columns_before, GetNumberCols(), wxGRIDTABLE_NOTIFY_COLS_APPENDED, wxGRIDTABLE_NOTIFY_COLS_DELETED);
}

wxString CellTable::GetColLabelValue(int column) {
  const wxString caption = views::ToWx(shapes_[static_cast<std::size_t>(column)].caption);
  if (column != grid_.SortColumn) {
    return caption;
  }
  return caption + (grid_.SortDescending ? views::ToWx(" \u25BC") : views::ToWx(" \u25B2"));
}

bool CellTable::IsEmptyCell(int row, int column) {
  return row >= grid_.RowCount() || grid_.Cell(row, column).empty();
}

wxString CellTable::GetValue(int row, int column) {
  if (row >= grid_.RowCount()) {
    return {};
  }
  if (row == rows_ - 1) {
    last_row_painted_();
  }
  return views::ToWx(grid_.Cell(row, column));
}

void CellTable::SetValue(int row, int column, const wxString& text) {
  if (grid_.DoGoTo(row, column)) {
    grid_.DoCell(column, FromWx(text));
  }
}

wxGridCellAttr* CellTable::GetAttr(int row, int column, wxGridCellAttr::wxAttrKind /*kind*/) {
  const Attributes& shared = columns_[static_cast<std::size_t>(column)];
  const bool there = row < grid_.RowCount();
  const auto fore = there ? grid_.Fore(row, column) : std::nullopt;
  const auto back = there ? grid_.Back(row, column) : std::nullopt;
  if (!fore && !back) {
    shared->IncRef();
    return shared.get();
  }
  wxGridCellAttr* own = shared->Clone();
  const wxColour behind = back ? ToWx(*back) : GetView()->GetDefaultCellBackgroundColour();
  const wxColour text = fore ? ToWx(*fore) : GetView()->GetDefaultCellTextColour();
  own->SetTextColour(ReadableOn(behind, text));
  own->SetBackgroundColour(behind);
  return own;
}

// A check is ticked and a colour picked by the binder; the widget edits neither.
CellTable::Attributes CellTable::AttributesOf(int column) {
  const forms::GridColumn& shape = shapes_[static_cast<std::size_t>(column)];
  Attributes attributes(new wxGridCellAttr);
  attributes->SetReadOnly(!shape.editable || shape.kind == Kind::Check || shape.kind == Kind::Color);
  attributes->SetAlignment(AlignmentOf(shape.align), wxALIGN_CENTRE);
  if (shape.kind == Kind::Check) {
    attributes->SetRenderer(new wxGridCellBoolRenderer);
  } else if (shape.kind == Kind::Color) {
    attributes->SetRenderer(new SwatchRenderer);
  } else if (shape.kind == Kind::DropDown) {
    attributes->SetEditor(new ChoiceEditor(grid_));
  } else if (shape.keeps_colors) {
    attributes->SetRenderer(new ColorKeepingRenderer);
  }
  return attributes;
}

void CellTable::Tell(int before, int wanted, int appended, int deleted) {
  if (wanted > before) {
    wxGridTableMessage message(this, appended, wanted - before);
    GetView()->ProcessTableMessage(message);
  } else if (wanted < before) {
    wxGridTableMessage message(this, deleted, wanted, before - wanted);
    GetView()->ProcessTableMessage(message);
  }
}

void KeepSelectionReadable(wxGrid& grid) {
  const auto show = [&grid](bool here) {
    const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT);
    const wxColour behind = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNSHADOW);
    grid.SetSelectionForeground(here ? text : ReadableOn(behind, grid.GetDefaultCellTextColour()));
  };
  for (const auto& type : {wxEVT_SET_FOCUS, wxEVT_KILL_FOCUS}) {
    grid.GetGridWindow()->Bind(type, [show](wxFocusEvent& event) {
      event.Skip();
      show(event.GetEventType() == wxEVT_SET_FOCUS);
    });
  }
  show(false);
}

}  // namespace views
