#include <algorithm>

#include "editing/payer_link.h"
#include "forms/text.h"
#include "lookup/frmTGList.h"
#include "lookup/shared_lists.h"

namespace lookup {

void frmTGList::EnablePayerCommands() {
  ToolStrip["LinkG"].Enabled = DotNetGrid.Row >= 0;
  ToolStrip["UnLinkG"].Enabled = !Chosen(kElectronicPayer).empty();
}

void frmTGList::LinkPayer() {
  if (const auto payer = editing::PayerLink(context_).Link(CurrentID())) {
    ShowInPlace(kElectronicPayer, payer->name);
  }
}

void frmTGList::UnLinkPayer() {
  if (editing::PayerLink(context_).Remove(CurrentID())) {
    ShowInPlace(kElectronicPayer, {});
  }
}

// What is typed into a cell of the current row. Blanks around an ID are none of it.
bool frmTGList::PayerIdEdited(int column, const std::string& text) {
  const auto& shape = DotNetGrid.Columns.get()[static_cast<std::size_t>(column)];
  const auto field = std::ranges::find(rows_->Fields(), shape.key, &session::Field::name);
  const std::string id(forms::Trim(text));
  if (id != Chosen(shape.caption)) {
    if (!editing::PayerLink(context_).EnterId(CurrentID(), id, field->defined_size)) {
      return false;
    }
    ShowInPlace(shape.caption, id);
  }
  return true;
}

void frmTGList::ShowInPlace(std::string_view caption, std::string text) {
  const auto& fields = rows_->Fields();
  const auto field = std::ranges::find(fields, caption, &session::Field::name);
  rows_->Put(DotNetGrid.Row, static_cast<int>(field - fields.begin()), std::move(text));
  DotNetGrid.Refresh();
  EnableCommands();
}

}  // namespace lookup
