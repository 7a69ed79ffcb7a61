#pragma once

#include <array>
#include <cstdint>

#include "data/record_binding.h"
#include "editing/ZIPCODE.h"
#include "editing/editing_form.h"
#include "editing/shared_record_guard.h"
#include "forms/button.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "insurance/ucSelCoverage.h"

namespace insurance {

// One employer: its name, address and phone, and the insurance plans that it offers. Many patients share it, so that a
// change is guarded.
class frmEmployer : public editing::EditingForm {
 public:
  // Positions in `Text1` and, for the captions beside them, in `Label1`.
  enum Field : std::size_t { kName, kAddress1, kAddress2, kCity, kState, kZip, kPhone };

  explicit frmEmployer(const session::ScreenContext& context);

  std::array<forms::TextBox, 7> Text1;
  std::array<forms::Label, 7> Label1;
  forms::Button Command3D2;  // drops the list of places
  forms::DialogButtons DialogButtons1;
  data::RecordBinding Employer;
  editing::ZIPCODE ZipCodes;
  ucSelCoverage ucSelCoverage1;

  session::Opening Opened = session::Opening::New(session::RecordKind::Employer);
  session::Outcome Ended() const;

 protected:
  void Read() override;
  bool Differs() const override { return Employer.Changed() || ucSelCoverage1.Unsaved(); }
  bool Check() override;
  bool Agreed() override { return guard_.Agrees(); }
  void OnClose() override { ucSelCoverage1.KeepLayout(); }
  ClosingQuestion OnClosing() const override { return {.text = "Save current changes?", .offers_to_save = true}; }

 private:
  void Register();
  void Wire();
  // For whoever may link plans and not edit employers: the rest of the screen is only looked at.
  void LookOnlyAtFields();
  void ReadNew();
  void ReadExisting();
  void SavePlans();
  bool Adding() const { return Employer.Id() == 0; }

  editing::SharedRecordGuard guard_;
};

}  // namespace insurance
