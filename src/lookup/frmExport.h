#pragma once

#include <string>
#include <vector>

#include "data/sql.h"
#include "editing/rules.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "session/screens.h"

namespace lookup {

// Writes the rows of a list to a file of delimited text. The statement runs anew, and its rows go to the file as they
// come.
class frmExport : public forms::Form, private editing::Rules {
 public:
  explicit frmExport(const session::ScreenContext& context);

  // Inputs, set before it is shown.
  std::string ListTitle;
  // As the list stands filtered, and without its filter.
  data::Sql SQL;
  data::Sql UnfilteredSQL;
  // In the list's order, each with its `cell`; the fields of the statement where there are none.
  std::vector<forms::GridColumn> Columns;
  // How many rows are shown; 0 when that is not known.
  int ShownRows = 0;

  void Run(const std::function<void()>& rule) override { Attempt(rule); }

  forms::OptionButton optColumnsShown, optColumnsAll;
  forms::OptionButton optRowsShown, optRowsAll;
  forms::OptionButton optComma, optSemicolon, optTab;
  forms::CheckBox chkHeadings;
  forms::DialogButtons DialogButtons1;

 protected:
  void OnLoad() override;

 private:
  void Export();
  // Rows that were written; nothing when the person gave up.
  std::optional<int> Write(const std::string& path);
  std::vector<forms::GridColumn> ColumnsToWrite(const session::Recordset& rows) const;
  bool GivesUp(int written);
  char Separator() const;

  forms::OptionGroup columns_{&optColumnsShown, &optColumnsAll};
  forms::OptionGroup rows_{&optRowsShown, &optRowsAll};
  forms::OptionGroup separators_{&optComma, &optSemicolon, &optTab};
};

}  // namespace lookup
