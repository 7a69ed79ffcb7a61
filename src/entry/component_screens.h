#pragma once

#include "editing/lost_connection.h"
#include "session/plan_adjustment.h"
#include "session/screens.h"

namespace entry {

// The screens of this component, opened over one session for one person.
class ComponentScreens : public session::Screens {
 public:
  ComponentScreens(session::Session& session, forms::User& user)
      : context_{session, user, *this}, asked_on_loss_(session, user) {}

  const session::ScreenContext& Context() const { return context_; }

  session::Outcome Edit(const session::Opening& opening) override;
  session::ListOutcome ShowList(session::LookUpListTypes type, const session::ListOptions& options) override;
  session::ListOutcome ShowPayers(const session::ListOptions& options) override;
  std::vector<std::string> ChooseServiceCodes() override;
  session::SearchOutcome Search(const session::SearchRequest& request) override;
  std::int32_t SelectCoverage(const session::CoverageChoice& choice) override;
  void ShowPlanDetails(const session::PlanDetailsRequest& request) override;
  std::optional<session::PickedText> ShowPickList(session::PickList list, std::string_view title) override;
  bool EditLoginLocations(std::int32_t login) override;

  // True when the split was accepted; the plan stays as it was otherwise.
  bool AdjustPlan(session::PlanAdjustment& plan);
  // True when something was saved.
  bool EditPatientLocations(std::int32_t patient);
  bool EditPatientCoverage(std::int32_t patient);
  bool EditOfficeLocations();
  bool EditPatientReminders(std::int32_t patient);
  // Begins with the template of that kind and method; 0 leaves it to the screen.
  bool EditTemplates(std::int32_t kind, std::int32_t method);

 private:
  // False when the person would rather not enter a new employee for the login.
  bool AcceptLogin(std::int32_t login);

  session::ScreenContext context_;
  editing::AskedOnLoss asked_on_loss_;
};

}  // namespace entry
