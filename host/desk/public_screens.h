#pragma once

#include "entry/dispatch.h"
#include "session/screens.h"

namespace host {

// The screens as a host opens them: through the methods of the public classes.
class PublicScreens : public session::Screens {
 public:
  PublicScreens(entry::Dispatch editing_screen, entry::Dispatch look_up_list)
      : editing_screen_(std::move(editing_screen)), look_up_list_(std::move(look_up_list)) {}

  // A record that comes back as it was given counts as saved, for most methods do not tell.
  session::Outcome Edit(const session::Opening& opening) override;
  session::ListOutcome ShowList(session::LookUpListTypes type, const session::ListOptions& options) override;
  // The payers, the search and the short lists have no public method that tells what was picked: nothing is.
  session::ListOutcome ShowPayers(const session::ListOptions& /*options*/) override { return {}; }
  std::vector<std::string> ChooseServiceCodes() override { return {}; }
  session::SearchOutcome Search(const session::SearchRequest& /*request*/) override { return {}; }
  // Starts on no plan, and offers plans alone.
  std::int32_t SelectCoverage(const session::CoverageChoice& choice) override;
  void ShowPlanDetails(const session::PlanDetailsRequest& request) override;
  std::optional<session::PickedText> ShowPickList(session::PickList list, std::string_view title) override;
  bool EditLoginLocations(std::int32_t login) override;

 private:
  // The outcome, by the argument that tells the record; the arguments as they come back.
  session::Outcome Call(std::string_view method, const char* id_argument, entry::Arguments& arguments) const;

  entry::Dispatch editing_screen_;
  entry::Dispatch look_up_list_;
};

}  // namespace host
