#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "session/screens.h"

namespace people {

// The "Database Search" list: the persons whose names begin as typed.
class frmDatabaseSearch : public forms::Form {
 public:
  explicit frmDatabaseSearch(const session::ScreenContext& context);

  // What was typed at the name prompt.
  std::string SearchText;
  bool FamilyHeads = false;

  forms::Grid Name_List;
  forms::DialogButtons DialogButtons1;  // `Extra` adds a new person

  // The chosen person; 0 for none.
  std::int32_t SelectedID = 0;
  bool NewWanted = false;

  // Reads the first matches; how many there are. Throws session::DatabaseError.
  int Search();
  bool DoIdle() override { return Name_List.FetchMore(); }

 protected:
  void OnLoad() override;

 private:
  void Choose();

  session::ScreenContext context_;
  std::vector<std::int32_t> ids_;
};

}  // namespace people
