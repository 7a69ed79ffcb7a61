#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "entry/global_slots.h"
#include "forms/user.h"
#include "lookup/list_events.h"
#include "session/screens.h"

namespace entry {

// The lists' public class. `ShowList` shows the kind in `ListType` and returns when the list closes; the selected
// record of the options and `Select_String` then hold the chosen one, `SelectedIDs` all that were chosen; they are as
// before when nothing was. The options' title holds for one call. A `ListType` that is no kind shows nothing.
class LookUpList : public IGlobal, public ClassPrinter<LookUpList> {
 public:
  explicit LookUpList(forms::User& user) : user_(user) {}

  std::int32_t ListType = 0;
  session::ListOptions Options;
  HostObject frmOwner;
  HostObject StartForm;
  std::string Select_String;
  std::string SelectedIDs;  // of every chosen record: "5,12"

  // Raised by the list window; the host handles them.
  lookup::ListEvents Events;

  void ShowList(bool InsLLCanMultiSel = false, HostObject fOwner = {});

 private:
  forms::User& user_;
};

}  // namespace entry
