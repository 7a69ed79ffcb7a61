#include "entry/look_up_list.h"

#include <utility>

#include "entry/component_screens.h"
#include "entry/record_id.h"
#include "lookup/list_catalogue.h"
#include "lookup/look_up.h"

namespace entry {
namespace {

bool IsInsuranceList(std::int32_t type) {
  return type == session::lulInsuranceCo || type == session::lulGroupPlan || type == session::lulInsGroup ||
         type == session::lulCapPlans;
}

// Empties a text when a call ends, however it ends.
class Clearing {
 public:
  explicit Clearing(std::string& text) : text_(text) {}
  Clearing(const Clearing&) = delete;
  Clearing& operator=(const Clearing&) = delete;
  ~Clearing() { text_.clear(); }

 private:
  std::string& text_;
};

std::string Joined(const std::vector<std::int32_t>& ids) {
  std::string text;
  for (const std::int32_t id : ids) {
    text += (text.empty() ? "" : ",") + std::to_string(id);
  }
  return text;
}

}  // namespace

void LookUpList::ShowList(bool InsLLCanMultiSel, HostObject fOwner) {
  const Clearing after(Options.title);
  RegisterMainForm(StartForm);
  if (ListType < 0 || ListType >= lookup::kListKinds) {
    return;
  }
  const std::shared_ptr<session::Session> session = PV();
  if (session == nullptr) {
    user_.Tell("The host has not handed over its session (PV).", std::string(forms::kSuiteTitle),
               forms::Icon::Critical);
    return;
  }
  if (fOwner != nullptr) {
    frmOwner = std::move(fOwner);
  }
  session::ListOptions options = Options;
  options.printer = GetPrinter().name;
  options.multi_select = options.multi_select || (InsLLCanMultiSel && IsInsuranceList(ListType));
  const ComponentScreens screens(*session, user_);
  const session::ListOutcome outcome =
      lookup::ShowLookUpList(screens.Context(), static_cast<session::LookUpListTypes>(ListType), options, Events);
  if (outcome.Chosen()) {
    Options.selected = outcome.id;
    Select_String = outcome.text;
    SelectedIDs = Joined(outcome.ids);
  } else if (outcome.end == session::ListOutcome::End::New) {
    Select_String = kNew;
  }
}

}  // namespace entry
