#include "lookup/frmExport.h"
#include "lookup/frmTGList.h"

namespace lookup {

void frmTGList::ExportList() {
  if (!ShowsWhatIsAsked()) {
    return;
  }
  frmExport form(context_);
  form.ListTitle = TitleText();
  form.SQL = Statement(conditions_, sort_);
  form.UnfilteredSQL = Statement({}, sort_);
  form.Columns = ColumnsWithCells();
  form.ShownRows = rows_ != nullptr && rows_->Complete() ? rows_->Count() : 0;
  context_.user.Show(form);
}

std::vector<forms::GridColumn> frmTGList::ColumnsWithCells() const {
  std::vector<forms::GridColumn> columns = DotNetGrid.Columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    columns[i].cell = DotNetGrid.CellOf(static_cast<int>(i));
  }
  return columns;
}

}  // namespace lookup
