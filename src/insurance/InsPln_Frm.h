#pragma once

#include <cstdint>
#include <string>

#include "editing/editing_form.h"
#include "insurance/ucPlanDetails.h"

namespace insurance {

// The coverage details of one plan, in a window of their own.
class InsPln_Frm : public editing::EditingForm {
 public:
  explicit InsPln_Frm(const session::ScreenContext& context);

  std::string Title;        // the window's; empty for its own
  std::int32_t HelpID = 0;  // the host's number for the help on it, whose text is the screen's own

  ucPlanDetails ucPlanDetails1;

  const std::string& PlaceKey() const override;
  bool KeepsPlaceInParts() const override { return true; }

 protected:
  void Read() override;
  bool Differs() const override { return ucPlanDetails1.EditMode(); }
  // The row that is being edited is settled by the control.
  bool QueryClose() override { return true; }
  void OnClose() override { ucPlanDetails1.KeepLayout(); }

 private:
  void HoldPlan();
};

}  // namespace insurance
