#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/rules.h"
#include "forms/button.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/user_control.h"
#include "insurance/patient_coverages.h"

namespace insurance {

inline constexpr std::string_view kCoverageTitle = "Insurance Coverage";

// Where a patient's further coverage is chosen: who of the family holds the plan, which plan, and how the patient
// stands to the holder. Shown while one is wanted.
class CoverageLink : public forms::UserControl, private editing::Rules {
 public:
  explicit CoverageLink(const session::ScreenContext& context);

  forms::Label lblHolder;
  forms::ComboBox cboHolder;
  forms::Label lblPlan;
  forms::ComboBox cboPlan;  // of those that he holds
  forms::Label lblRel;
  forms::ComboBox cboRel;
  forms::Button cmdAdd;
  forms::Button cmdNew;  // a plan that he is to hold from then on
  forms::Button cmdCancel;

  // What was chosen. Of a new plan the holding is 0 and the link is told.
  struct Choice {
    std::int32_t subscriber = 0;
    std::int32_t holding = 0;
    std::int32_t link = 0;
    std::int32_t relationship = 0;
  };
  // Of the editor: takes what was chosen; false when it was refused, and another choice is wanted.
  std::function<bool(const Choice&)> Chosen;
  // No further one is wanted.
  std::function<void()> Stopped;

  // Begins anew. `covered` are the holdings that the patient is covered through already: others are proposed. Throws
  // session::DatabaseError.
  void Start(std::int32_t patient, const std::vector<std::int32_t>& covered);
  void Stop();
  bool Started() const { return Enabled; }

  // Asks for a plan of an employer that the holder is to hold, and gives it to `Chosen`. Throws
  // session::DatabaseError, and editing::Refusal when another user holds the holder's record.
  void AddInsuranceHolder();

 private:
  void Register();
  void Wire();
  void ShowPlans();
  // The holder and the relationship; nothing, and the person is told, while one of them is missing.
  std::optional<Choice> HolderChosen();
  void TellMissing(std::string text, forms::ComboBox& box) const;
  void AddHeld();
  // 0 when none was chosen, or entered.
  std::int32_t ChooseEmployer(std::int32_t holder) const;
  std::string NameOf(std::int32_t member) const;

  std::int32_t patient_ = 0;
  std::vector<FamilyMember> family_;
  std::vector<HeldPlan> plans_;
  std::vector<std::int32_t> covered_;
};

}  // namespace insurance
