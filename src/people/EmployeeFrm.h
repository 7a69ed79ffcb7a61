#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "data/record_binding.h"
#include "editing/Contacts.h"
#include "editing/ZIPCODE.h"
#include "editing/birth_date_field.h"
#include "editing/date_field.h"
#include "editing/editing_form.h"
#include "editing/field_help.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "people/duplicate_person.h"
#include "people/initials.h"
#include "people/sex_title_field.h"

namespace people {

// An employee of the practice: who he is, what he is paid and when he works, and what his login may do.
class EmployeeFrm : public editing::EditingForm {
 public:
  // Positions in `Frame`.
  enum Page : std::size_t { kGeneral, kPayrollStatus, kLogin };
  // Positions in `Gen_Txt` and, for the captions beside them, in `Gen_LBL`.
  enum Field : std::size_t {
    kLastName,
    kFirstName,
    kSex,
    kTitle,
    kBirthDate,
    kProfessionalTitle,
    kAddress1,
    kAddress2,
    kCity,
    kState,
    kZip,
    kPhone,
    kFax,
    kEmail,
    kSsn,
    kEin,
    kEmployed,
    kTerminated,
    kInitials,
  };
  // Positions in `Gen_CMD`.
  enum Command : std::size_t {
    kPickBirthDate,
    kPickSexTitle,
    kPickProfessionalTitle,
    kPickPlace,
    kPickEmployed,
    kChooseInitials,
  };

  explicit EmployeeFrm(const session::ScreenContext& context);

  forms::TabStrip TabEBInfo;
  std::array<forms::Panel, 3> Frame;  // the pages
  std::array<forms::TextBox, 19> Gen_Txt;
  std::array<forms::Label, 19> Gen_LBL;
  std::array<forms::Button, 6> Gen_CMD;
  forms::Label Label;      // hidden: the day of birth
  forms::Label Label2;     // the age
  forms::Label lblTypEmp;  // hidden: "1" an employee, "2" one who is a provider too
  forms::CheckBox chkHideZEP;
  forms::PictureBox picSwapName;
  forms::DialogButtons DialogButtons1;  // `Extra` applies
  data::RecordBinding Employee;

  editing::BirthDateField BirthDate;
  editing::DateField EmploymentDate;
  SexTitleField SexTitle;
  editing::ZIPCODE ZipCode1;
  editing::FieldHelp PictureBox1;

  session::Opening Opened = session::Opening::New(session::RecordKind::Employee);
  // The employee to edit, and the saved one afterwards.
  std::int32_t pID = 0;
  session::Outcome Ended() const;

  void Load_Information();
  void Init_Bound_Data();
  void Set_EmployeeFrm_Rights();
  void Set_DocIni();
  void picSwapName_Click();

 protected:
  void Read() override { Load_Information(); }
  bool Differs() const override { return Employee.Changed() || BirthDate.Pending(); }
  bool Check() override;
  bool Agreed() override;
  void OnTaken() override { ShowPerson(); }

 private:
  void Register();
  void AddGeneralPage();
  void SetHelp();
  void Wire();
  void ShowPerson();
  void ShowPhoneHeading();
  bool Adding() const { return Employee.Id() == 0; }
  void Trim();
  bool HasName();
  void Apply();
  void SaveAndClose();
  void Insert();
  void PickProfessionalTitle();
  bool ShowsAtHome(std::size_t contact) const;

  editing::Contacts contacts_;
  DuplicatePerson duplicate_;
  Initials initials_;
};

}  // namespace people
