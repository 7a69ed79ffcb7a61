#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "data/record_binding.h"
#include "editing/editing_form.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text_box.h"

namespace insurance {

// One group plan: what a carrier sells to a group, known by its number and name.
class GrpPlaScreen : public editing::EditingForm {
 public:
  // Positions in `Text1` and, for the captions beside them, in `Label1`. What comes before the first is not used.
  enum Field : std::size_t {
    kCarrier = 11,
    kGroupNumber,
    kPlanName,
    kRenewal,  // "mm-dd"
    kMaximum1,
    kDeductible1,
    kMaximum2,
    kDeductible2,
    kClaimForm,
    kPayment,
    kPreAuthorization,  // "Y" or "N"
    kChildrenUntil,
    kStudentsUntil,
    kMaximum3,
    kMaximum4,
    kRemark1,
    kRemark2,
    kFieldsEnd
  };
  enum DeductibleOption : std::size_t { kAsPercentage, kAppliedLast };

  explicit GrpPlaScreen(const session::ScreenContext& context);

  std::array<forms::TextBox, kFieldsEnd> Text1;
  std::array<forms::Label, kFieldsEnd> Label1;
  forms::Label Label2;       // what the carrier's field takes
  forms::Label Label3;       // the payment types
  forms::Label Label4;       // what pre-authorization takes
  forms::Button cmdInsCo;    // chooses the carrier
  forms::Button cmdRemIns;   // takes it away
  forms::Button InsPln_Cmd;  // the plan's coverage details
  forms::Label lblPlanType;
  forms::ComboBox cboPlanType;
  forms::ComboBox cboFormType;
  forms::Label lblDedOption;
  std::array<forms::CheckBox, 2> chkDedOption;
  forms::Label lblUseOfficeFees;
  forms::CheckBox chkUseOfficeFees;
  forms::Label lblClaimFees;
  std::array<forms::OptionButton, 2> optClaimFees;  // by what is stored
  forms::Label lblSubmitOfficeFees;                 // what the chosen one means
  forms::Panel picInsCOB;
  forms::Label lblCoordOfBenefits;
  std::array<forms::OptionButton, 3> optInsCOB;  // by what is stored
  forms::Label lblInsCOB;                        // what the chosen one means
  forms::DialogButtons DialogButtons1;
  data::RecordBinding Plan;

  session::Opening Opened = session::Opening::New(session::RecordKind::GroupPlan);
  session::Outcome Ended() const;

  // The carrier's ID, 0 for none. Before the screen is loaded, that of a new plan. A carrier that is not there is none.
  std::int32_t InsuranceID() const;
  void SetInsuranceID(std::int32_t carrier);
  // True when nothing is left to save.
  bool Save_Grp_Data() { return Save(); }

 protected:
  void Read() override;
  bool Differs() const override { return Plan.Changed(); }
  bool Check() override;
  bool Agreed() override;
  void OnTaken() override { ShowChoices(); }
  bool QueryClose() override;
  ClosingQuestion OnClosing() const override;

 private:
  static constexpr std::string_view kOfficeSetup = "DEFAULT_OFFICE_SETUP";

  void Bind();
  void Setup_Screen();
  void Setup_cboPlanType();
  void SetUpChoices();
  void Order();
  void Wire();
  void WireCarrier();
  void ReadExisting();
  void ReadNew();
  bool Adding() const { return Plan.Id() == 0; }
  bool Untouched(const forms::TextBox& box) const { return box.Text.get() == Plan.Stored(box); }
  // Nothing when there is no such carrier.
  std::optional<std::string> NameOf(std::int32_t carrier) const;
  // The ID that the text is, 0 when there is no such carrier.
  std::int32_t IfThere(const std::string& carrier) const;

  // By the person; a carrier that is there is changed after a question.
  void ChangeCarrier();
  void RemoveCarrier();

  bool HasGroupNumber() const;
  std::string DefaultNumber() const;
  // On leaving it empty: takes the default, or stays.
  void RequireGroupNumber();
  void TellNumberAdded();
  // Each takes what was typed into the form that it is kept in; false when it is none: the person is told, and the
  // focus is there.
  bool TakeAmount(forms::TextBox& box);
  bool TakeAge(Field field);
  bool TakeRenewal();
  bool TakePayment();
  bool TakePreAuthorization();
  bool TakeFields();
  // Says what is wrong with a field's text.
  bool Refuse(Field field, std::string text);
  bool RefuseCarrier();
  void FillRequired();

  bool IsTaken() const;
  // Of details that do not come along with the plan's carrier and number.
  bool AgreesToDetails() const;
  // Throws editing::Refusal for what others have stored since it was checked.
  void RequireStillValid() const;
  // As it will be stored.
  std::string Stored(Field field) const;
  void Insert();
  void Update();
  void OpenDetails();
  // What stands for columns that nobody sees.
  void ShowChoices();
  void ShowCarrier();
  void ShowClaimForm() { Text1[kClaimForm].Text = cboFormType.Text.get(); }
  void ShowMeanings();

  forms::Label insurance_;   // the carrier's ID
  forms::Label claim_fees_;  // the number of the option
  forms::Label benefits_;    // the number of the option
  forms::OptionGroup claim_fees_group_{&optClaimFees[0], &optClaimFees[1]};
  forms::OptionGroup benefits_group_{&optInsCOB[0], &optInsCOB[1], &optInsCOB[2]};
  bool closing_ = false;  // a default number is told, not offered
};

}  // namespace insurance
