#include <algorithm>

#include "lookup/frmTGList.h"

namespace lookup {

bool frmTGList::AreAccepted(const std::vector<int>& rows) const {
  return Commands.accepts == nullptr || std::ranges::all_of(rows, [this](int row) {
           return Commands.accepts(context_, Options, session::ToId(CellOf(row, IDFld.Caption.get())));
         });
}

void frmTGList::GoToSelected() {
  const std::vector<int> rows = DotNetGrid.Selected();
  if (!rows.empty() && !DotNetGrid.IsSelected(DotNetGrid.Row)) {
    DotNetGrid.Row = rows.front();
  }
}

void frmTGList::Choose() {
  if (!ShowsWhatIsAsked()) {
    return;
  }
  const std::vector<int> rows = DotNetGrid.Selected();
  if (rows.empty() || !AreOurs(rows) || !AreAccepted(rows)) {
    return;
  }
  GoToSelected();
  Result = {session::ListOutcome::End::Chosen, CurrentID(), Chosen(NamFld.Caption.get())};
  for (const int row : rows) {
    Result.ids.push_back(session::ToId(CellOf(row, IDFld.Caption.get())));
  }
  Close();
}

std::string frmTGList::CellOf(int row, std::string_view caption) const {
  const int column = DotNetGrid.ColumnIndex(caption);
  return row < 0 || column < 0 ? "" : std::string(DotNetGrid.Cell(row, column));
}

std::int32_t frmTGList::CurrentID() const {
  return session::ToId(Chosen(IDFld.Caption.get()));
}

}  // namespace lookup
