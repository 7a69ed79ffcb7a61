#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "editing/record_hold.h"
#include "editing/rules.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "insurance/ucSelCoverage.h"

namespace insurance {

// The choice of one of the plans that an employer offers. What was linked meanwhile is saved with the choice; closing
// drops it. Further inputs are those of `ucSelCoverage1`.
class frmSelectCoverage : public forms::Form, private editing::Rules {
 public:
  explicit frmSelectCoverage(const session::ScreenContext& context);

  std::int32_t EmployerID = 0;
  std::int32_t HideElID = 0;
  bool MustMakeSelection = false;  // nobody leaves without a choice while there is one
  // The chosen link; 0 for none.
  std::int32_t SelectedCoverage = 0;

  forms::Label lblEmployer;
  ucSelCoverage ucSelCoverage1;
  forms::DialogButtons DialogButtons1;

  void Run(const std::function<void()>& rule) override { Attempt(rule); }

 protected:
  void OnLoad() override;
  bool QueryClose() override;
  void OnClose() override { ucSelCoverage1.KeepLayout(); }

 private:
  void Read();
  void Choose();
  // From the first change of the employer's plans on. Throws editing::Refusal while another user holds him.
  void HoldEmployer();

  std::optional<editing::RecordHold> hold_;
};

}  // namespace insurance
