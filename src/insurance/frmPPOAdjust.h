#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "editing/rules.h"
#include "forms/button.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "insurance/ppo_adjustment.h"
#include "session/plan_adjustment.h"

namespace insurance {

// Splits the office's fee for a service between the plan, the patient and the provider, as the fields are typed. Writes
// nothing; the caller has the outcome in `Plan`.
class frmPPOAdjust : public forms::Form, private editing::Rules {
 public:
  // Positions in `txtDetails` and, for the captions beside them, in `lblDetails`.
  enum Detail : std::size_t {
    kEmployer,
    kCarrier,
    kGroupNumber,
    kServiceCode,
    kOfficeFee,
    kAllowedFee,
    kPlanCalculationFee,
    kCoveragePercent,
    kPlanPayment,
    kProviderAdjustment,
    kPatientPortion,
    kDetails
  };

  explicit frmPPOAdjust(const session::ScreenContext& context);

  // Given, and with OK taken from the fields; a fee that is not given stays as it is. Each value is a property of the
  // form by its argument's name.
  session::PlanAdjustment Plan;
  // Whether it was left without OK.
  bool Canceled = true;

  std::array<forms::TextBox, kDetails> txtDetails;
  std::array<forms::Label, kDetails> lblDetails;
  forms::PictureBox ImaEditEmp;
  forms::PictureBox ImaEditInsCo;
  forms::PictureBox ImaEditPlan;
  forms::Panel picHelp;  // what the field with the focus is
  forms::Label lblInfoTitle;
  forms::Label lblInfoText;
  forms::Button cmdOK;
  forms::Button cmdClose;

  void Run(const std::function<void()>& rule) override { Attempt(rule); }

 protected:
  void OnLoad() override;
  bool QueryClose() override;
  void OnFocus(forms::Control* control) override;

 private:
  void Register();
  void Wire();

  // Throw session::DatabaseError.
  void ShowNames();
  void TakeServiceFee();
  void Edit(session::RecordKind kind, std::int32_t id);

  void ShowPlan();
  // Shows the split of what the fields hold; blank where one of them cannot be read.
  void Calculate();
  // Nothing where a field cannot be read.
  std::optional<PpoFees> Fees() const;
  // What a person typed, in the form in which it is shown; as it stands where it cannot be read.
  std::string Typed(std::size_t detail) const;
  // False, told, with the focus there, where it cannot be read.
  bool Readable(std::size_t detail);
  void Leave(std::size_t detail);
  bool Accept();

  void ShowGeneralHelp();
  std::string HelpOn(std::size_t detail) const;
  std::string LabelOf(std::size_t detail) const;

  forms::Currency office_fee_;              // given, or else the service code's
  bool payment_typed_ = false;              // or given: what is worked out does not take its place
  std::array<std::string, kDetails> read_;  // what stood in the fields at first
};

}  // namespace insurance
