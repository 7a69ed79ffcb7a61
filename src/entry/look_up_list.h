#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "entry/global_slots.h"
#include "forms/user.h"
#include "lookup/list_events.h"
#include "session/screens.h"

namespace entry {

// The lists' public class. `ShowList` shows the kind in `ListType` and returns when the list closes; `SelectedID`
// and `Select_String` then hold the chosen record and are as before when nothing was chosen.
class LookUpList : public IGlobal {
 public:
  explicit LookUpList(forms::User& user) : user_(user) {}

  std::int32_t ListType = 0;
  bool Skip_List_IF_New = false;
  std::int32_t ShowMode = 0;
  bool Include_Ins = false;
  std::string InitField;
  bool MultiSel = false;
  bool No_Double_Click = false;
  bool bSelectMode = false;
  bool ShowFacilityOptions = false;
  HostObject frmOwner;
  HostObject StartForm;
  // Holds for one call; empty is the kind's own title.
  std::string ListTitle;
  std::int32_t SelectedID = 0;
  std::string Select_String;
  bool ShowPatientButtons = false;
  std::int32_t GroupPlanCompanyID = 0;
  std::int32_t EmployerPatientID = 0;
  std::int32_t FamHeadIncPatID = 0;
  std::int32_t NewEmployeePasswordID = 0;
  bool AllowDelete = true;

  // Raised by the list window; the host handles them.
  lookup::ListEvents Events;

  void ShowList(bool InsLLCanMultiSel = false, HostObject fOwner = {});

 private:
  forms::User& user_;
};

}  // namespace entry
