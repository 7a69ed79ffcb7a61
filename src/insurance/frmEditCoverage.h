#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "data/record_binding.h"
#include "editing/editing_form.h"
#include "forms/label.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "insurance/ucEditCoverage.h"

namespace insurance {

// A patient's insurance coverages, and the benefit amounts of the highlighted one. What older programs left of these in
// the patient's own record is carried over when the screen opens.
class frmEditCoverage : public editing::EditingForm {
 public:
  // Positions in `txtBenefit` and, for the captions beside them, in `lblBenefit`.
  enum Benefit : std::size_t { kBalance, kDeductible, kYearToDate, kYear };

  explicit frmEditCoverage(const session::ScreenContext& context);

  std::int32_t PatientID = 0;

  ucEditCoverage ucEditCoverage1;
  forms::Panel fraBenefits;
  std::array<forms::TextBox, 4> txtBenefit;
  std::array<forms::Label, 4> lblBenefit;
  data::RecordBinding Benefits;

 protected:
  void Read() override;
  bool Differs() const override { return Benefits.Changed(); }
  bool Check() override;
  bool Agreed() override;
  ClosingQuestion OnClosing() const override {
    return {.text = "Do you want to save changes?", .title = "Insurance Coverage", .offers_to_save = true};
  }
  bool OnKey(forms::Key key) override;
  void OnClose() override { ucEditCoverage1.KeepLayout(); }

 private:
  void Register();
  void Wire();
  // False when there is no such patient.
  bool ReadPatient();
  // Throws editing::Refusal when amounts were typed about a coverage that has ended meanwhile.
  void RequireLive() const;
  void Highlighted();
  void ShowBenefits();
  void TakeAmount(Benefit which);
  void TakeYear();
};

}  // namespace insurance
