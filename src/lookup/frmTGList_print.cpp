#include "forms/report.h"
#include "forms/text.h"
#include "lookup/frmTGList.h"

namespace lookup {

// The host hears of it first, and may print the list itself.
void frmTGList::PrintList() {
  bool cancel = false;
  if (Events.BeforePrint) {
    Events.BeforePrint(cancel);
  }
  if (cancel || !FetchAll()) {
    return;
  }
  forms::Report report{.title = TitleText(), .notes = Notes(), .printer = Options.printer};
  const bool read = Attempt([&] {
    report.office =
        session::ToText(statements_.SelectValue("SELECT TOP 1 OffLocNam FROM OffLocTable" +
                                                statements_.Office(" WHERE (OfficeID=", ")") + " ORDER BY OffLocID"));
  });
  if (!read) {
    return;
  }
  const forms::DateTime now = context_.session.Now();
  report.printed = "Printed " + forms::FormatSlashed(forms::DateOf(now)) + " " + forms::FormatTime(now) + " by " +
                   context_.session.UserName();
  report.columns = ColumnsWithCells();
  std::erase_if(report.columns, [](const forms::GridColumn& column) { return !column.visible; });
  report.rows = rows_;
  if (context_.user.Print(report) && Events.AfterPrint) {
    Events.AfterPrint();
  }
}

// False when they could not be read, or the person gave up.
bool frmTGList::FetchAll() {
  constexpr int kRowsAtOnce = 1000;
  if (rows_ == nullptr) {
    return false;
  }
  bool all = false;
  Attempt([&] {
    const std::string text = "  Loading " + TitleText() + " - Please Wait  ";
    const forms::WaitText wait(context_.user, text);
    bool given_up = false;
    while (!rows_->Complete() && !given_up) {
      rows_->Fetch(kRowsAtOnce);
      given_up = context_.user.WaitOrGiveUp(text);
    }
    all = !given_up;
  });
  DotNetGrid.Refresh();
  return all;
}

std::vector<std::string> frmTGList::Notes() const {
  std::vector<std::string> notes;
  if (facility_ > 0) {
    notes.push_back(cboFacility.Current()->text);
  }
  if (!shown_filter_.empty()) {
    notes.push_back("Only where " + shown_filter_);
  }
  const int sorted = DotNetGrid.SortColumn;
  notes.push_back(RowLabel.Caption.get() + (conditions_.empty() || all_ == 0 ? "" : " rows") +
                  (sorted < 0 ? ""
                              : ", sorted by " + DotNetGrid.Columns.get()[static_cast<std::size_t>(sorted)].caption +
                                    (DotNetGrid.SortDescending ? ", last first" : "")));
  return notes;
}

std::string frmTGList::FilterInWords() const {
  const std::string how = optFiltMid.Value ? " contains \"" : " begins with \"";
  std::string words;
  for (const forms::GridColumn& column : DotNetGrid.Columns.get()) {
    if (const std::string_view filter = forms::Trim(column.filter); !filter.empty()) {
      words += (words.empty() ? "" : " and ") + column.caption + how + std::string(filter) + "\"";
    }
  }
  return words;
}

}  // namespace lookup
