#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "editing/kept_layout.h"
#include "editing/recordset_rows.h"
#include "editing/rules.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/label.h"

namespace people {

// The "Database Search" list: the persons whose names begin as typed.
class frmDatabaseSearch : public forms::Form, private editing::Rules {
 public:
  explicit frmDatabaseSearch(const session::ScreenContext& context);

  // What was typed at the name prompt.
  std::string SearchText;
  bool FamilyHeads = false;

  forms::Grid Name_List;
  forms::Label RowLabel;
  forms::DialogButtons DialogButtons1;  // `Extra` adds a new person

  // The chosen person; 0 for none.
  std::int32_t SelectedID = 0;
  bool NewWanted = false;

  void Run(const std::function<void()>& rule) override { Attempt(rule); }

  // Reads the first matches; how many there are. Throws session::DatabaseError.
  int Search();

 protected:
  void OnLoad() override;
  bool OnIdle() override;
  void OnClose() override { layout_.Keep(); }

 private:
  void Sort(int column);
  void ShowCount();
  void Choose();

  editing::KeptLayout layout_{context_.session, Name_List};
  std::shared_ptr<editing::RecordsetRows> rows_;
  // Of the rows that are shown.
  std::string sort_key_ = "Name";
  bool sort_descending_ = false;
  bool due_ = false;  // the connection was lost while rows arrived
};

}  // namespace people
