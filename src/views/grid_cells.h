#pragma once

#include <wx/grid.h>

#include <functional>
#include <vector>

#include "forms/grid.h"

namespace views {

// A control's cells as wxGrid reads them. Painting the last row fetches more.
class CellTable : public wxGridTableBase {
 public:
  CellTable(forms::Grid& grid, std::function<void()> last_row_painted);

  // Brings the widget's counts and the columns' looks in step with the control's.
  void Reread();

  int GetNumberRows() override { return rows_; }
  int GetNumberCols() override { return static_cast<int>(columns_.size()); }
  wxString GetColLabelValue(int column) override;
  bool IsEmptyCell(int row, int column) override;
  wxString GetValue(int row, int column) override;
  void SetValue(int row, int column, const wxString& text) override;
  wxGridCellAttr* GetAttr(int row, int column, wxGridCellAttr::wxAttrKind kind) override;

 private:
  using Attributes = wxObjectDataPtr<wxGridCellAttr>;

  Attributes AttributesOf(int column);
  void Tell(int before, int wanted, int appended, int deleted);

  forms::Grid& grid_;
  std::function<void()> last_row_painted_;
  int rows_ = 0;
  std::vector<forms::GridColumn> shapes_;
  std::vector<Attributes> columns_;  // shared by the cells that have no colours of their own
};

// The selection's text on the ground that the widget paints it on, which is another while the keyboard is elsewhere.
void KeepSelectionReadable(wxGrid& grid);

}  // namespace views
