#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "data/plan_details.h"
#include "data/plan_links.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/panels.h"

namespace insurance {

// "Mill / Acme Mutual / 4711 / Gold": what is not there leaves no gap.
std::string DisplayText(const data::LinkNames& names, const std::string& plan_name);
// Why a plan is not copied into itself.
inline constexpr const char* kSamePlan =
    "You have selected the same insurance plan. Please select a different plan to copy into this one.";

// From which plan the details of another are filled, and with what. It copies nothing itself.
class frmCopyPlanOpts : public forms::Form, private editing::Rules {
 public:
  // Positions in `optCopyType` and `chkInfo`.
  enum CopyType : std::size_t { kAll, kChosen };
  enum Info : std::size_t { kFees, kMaximums, kPercents };

  explicit frmCopyPlanOpts(const session::ScreenContext& context);

  // The plan that is filled; the link is of employer and plan, and 0 where it is not known.
  std::int32_t TargetCarrierID = 0;
  std::int32_t TargetGroupID = 0;
  std::int32_t Target_elID = 0;
  std::string TargetText;
  // The plan to copy from.
  std::int32_t SourceCarrierID = 0;
  std::int32_t SourceGroupID = 0;
  std::int32_t Source_elID = 0;
  std::string SourceText;
  // What else keeps a plan from being the source: throws editing::Refusal.
  std::function<void(const data::PlanKey& source)> CheckSource;

  bool Canceled() const { return canceled_; }
  bool CopyAll() const { return optCopyType[kAll].Value; }
  bool CopyFee() const { return Copies(kFees); }
  bool CopyMax() const { return Copies(kMaximums); }
  bool CopyPercent() const { return Copies(kPercents); }

  void Run(const std::function<void()>& rule) override { Attempt(rule); }

  forms::Label lblSourceHeading;
  forms::Label lblSource;
  forms::Button cmdSource;
  forms::Label lblTargetHeader;
  forms::Label lblTarget;
  forms::Button cmdTarget;  // never shown: the caller says which plan is filled
  std::array<forms::OptionButton, 2> optCopyType;
  forms::Panel fOverwrite;
  forms::Label lblOverwrite1;
  forms::Label lblOverwrite2;
  forms::Panel fUpdate;
  forms::Label lblUpdate1;
  forms::Label lblUpdate2;
  forms::Label lblUpdate3;
  std::array<forms::CheckBox, 3> chkInfo;
  forms::DialogButtons DialogButtons1;

 protected:
  void OnLoad() override;

 private:
  void Register();
  void Wire();
  void AddProperties();

  data::GroupPlan PlanOf(std::int32_t plan) const;
  bool IsTarget(std::int32_t carrier, std::int32_t plan) const;
  // The same, told.
  bool RefusesTarget(std::int32_t carrier, std::int32_t plan) const;
  void ChooseSource();
  void TakeSource(const data::PlanLink& link);
  // About a plan of another type, or of another carrier.
  bool AgreesToSource(bool other_type, bool other_carrier) const;
  void ShowSource();
  void ShowCopyType();
  bool Copies(Info info) const { return optCopyType[kChosen].Value && chkInfo.at(info).Value == forms::CheckState::On; }
  // Whether there is anything to confirm; says what is missing.
  bool Complete();
  void Confirm();
  bool Confirmed() const;

  forms::OptionGroup copy_types_{&optCopyType[kAll], &optCopyType[kChosen]};
  bool canceled_ = true;
};

}  // namespace insurance
