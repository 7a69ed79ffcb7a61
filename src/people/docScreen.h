#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "data/record_binding.h"
#include "editing/ZIPCODE.h"
#include "editing/date_field.h"
#include "editing/editing_form.h"
#include "editing/field_help.h"
#include "editing/kept_layout.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "people/duplicate_person.h"
#include "people/employer_field.h"
#include "people/identification_numbers.h"
#include "people/initials.h"
#include "people/phone_pair.h"
#include "people/sex_title_field.h"
#include "people/taxonomy_box.h"

namespace people {

// A provider of the practice, or somebody whom it works with: a referral source, a physician, a practice that patients
// are referred to.
class docScreen : public editing::EditingForm {
 public:
  // Positions in `Text1` and, for the captions beside them, in `Label1`.
  enum Field : std::size_t {
    kLastName,
    kFirstName,
    kSex,
    kTitle,
    kProfessionalTitle,
    kAddress1,
    kAddress2,
    kCity,
    kState,
    kZip,
    kHomePhone,
    kWorkPhone,
    kLicence,
    kEmployerNumber,
    kRemark1,
    kRemark2,
    kRemark3,
    kSpecialty,
    kEmploymentDate,
    kSsn,
    kMedicalNumber,
    kInitials,
    kFeeSchedule,
  };

  explicit docScreen(const session::ScreenContext& context);

  std::array<forms::TextBox, 23> Text1;
  std::array<forms::Label, 23> Label1;
  std::array<forms::TextBox, 1> Text2;  // the employer's name
  forms::Label Label2;                  // of the taxonomy
  std::array<forms::Label, 3> Label4;   // the employer's street, place and phone
  forms::Button Command1;               // sexes and titles
  forms::Button Command2;               // professional titles
  forms::Button Command3;               // employers
  forms::Button Command4;               // takes the employer away
  forms::Button Command3D1;             // the calendar of the employment date
  forms::Button FR2_CMD_SPE;            // specialties
  forms::Button ZipCode1;               // drops the list of places
  forms::Button cmdContact;
  forms::PictureBox picSwapName;
  forms::Panel Frame1;  // what the practice keeps of its own providers
  forms::Panel Frame2;  // the employer of all others
  TaxonomyBox cboTaxonomy;
  forms::CheckBox chkHideZEP;
  forms::Grid TDBG1;  // the identification numbers
  forms::DialogButtons DialogButtons1;
  forms::Label EmployerLink;  // hidden
  data::RecordBinding Patable;

  SexTitleField SexTitle;
  PhonePair Phones;
  editing::ZIPCODE ZipCodes;
  editing::DateField EmploymentDate;
  EmployerField Employer;
  editing::FieldHelp PictureBox1;

  session::Opening Opened = session::Opening::New(session::RecordKind::Provider);
  session::Outcome Ended() const;

  void Contacts_Setup() { Phones.Setup(); }
  void Contacts_Save() { Phones.Save(); }
  void picSwapName_Click();

 protected:
  void Read() override;
  bool Differs() const override { return Patable.Changed() || numbers_.Changed(); }
  bool Check() override;
  bool Agreed() override;
  void OnTaken() override;
  ClosingQuestion OnClosing() const override { return {.text = "Save current changes?", .offers_to_save = true}; }
  void OnClose() override { layout_.Keep(); }

 private:
  void Bind();
  void Register();
  void RegisterButtons();
  void SetHelp();
  void Wire();
  void WireSaving();
  // The box's list, by its button and by F9: what is picked is confirmed.
  void PicksFrom(forms::TextBox& box, forms::Button& button, session::PickList list, std::string_view title,
                 std::string_view what);
  void ReadExisting();
  void ReadNew();
  // The flags of the kind.
  void BecomeOneOfThem();
  void ShowReferences();
  void GuardNames();
  void OfferDelete();
  void DeletePerson();
  void DeleteProvider();
  bool IsProvider() const { return Opened.kind == session::RecordKind::Provider; }
  bool Adding() const { return Patable.Id() == 0; }
  bool LacksInitials() const { return IsProvider() && Text1[kInitials].Text->empty(); }
  void ProposeInitials();
  // The keyword of the right that the person's name needs, by the kinds that he is of, and the user lacks; empty for
  // none.
  std::string_view LackedNameRight() const;
  bool MayRename() const;
  // False when it is none of the four: the person is told, and the focus is there. Where none was stored, none may
  // stay.
  bool TakeFeeSchedule();
  void Trim();
  std::string FullName() const;

  std::array<forms::Label, 7> types_;  // the type flags
  Initials initials_;
  IdentificationNumbers numbers_;
  DuplicatePerson duplicate_;
  bool gone_ = false;  // deleted, and no record any more
  editing::KeptLayout layout_{context_.session, TDBG1};
};

}  // namespace people
