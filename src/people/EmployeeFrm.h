#pragma once

#include <array>
#include <cstdint>
#include <optional>
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
#include "people/employee_locations.h"
#include "people/employment.h"
#include "people/initials.h"
#include "people/login_name.h"
#include "people/login_rights.h"
#include "people/payroll_status.h"
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
    kLoginName,
  };
  // Positions in `Label`.
  enum Text : std::size_t { kBirthDay, kAge, kPasswordState };
  // Positions in `Gen_CMD`.
  enum Command : std::size_t {
    kPickBirthDate,
    kPickSexTitle,
    kPickProfessionalTitle,
    kPickPlace,
    kPickEmployed,
    kChooseInitials,
    kTerminate,
    kReactivate,
    kDelete,
    kPassword,
  };

  explicit EmployeeFrm(const session::ScreenContext& context);

  forms::TabStrip TabEBInfo;
  std::array<forms::Panel, 3> Frame;  // the pages
  std::array<forms::TextBox, 20> Gen_Txt;
  std::array<forms::Label, 20> Gen_LBL;
  std::array<forms::Button, 10> Gen_CMD;
  std::array<forms::Label, 3> Label;  // the day of birth is hidden
  forms::Label Label2;                // what he is to the practice
  forms::Label lblTypEmp;             // hidden: "1" an employee, "2" one who is a provider too
  forms::CheckBox chkHideZEP;
  forms::Panel Pic_CMD;  // the commands on employment
  forms::PictureBox picSwapName;
  forms::DialogButtons DialogButtons1;  // `Extra` applies
  data::RecordBinding Employee;

  editing::BirthDateField BirthDate;
  editing::DateField EmploymentDate;
  SexTitleField SexTitle;
  LoginName Login;
  editing::ZIPCODE ZipCode1;
  editing::FieldHelp PictureBox1;

  EmployeeLocations Locations;
  PayrollStatus Payroll;
  LoginRights Rights;

  session::Opening Opened = session::Opening::New(session::RecordKind::Employee);
  // The employee to edit, and the saved one afterwards.
  std::int32_t pID = 0;
  // The login that a new employee is entered for, and the one that was made for him.
  std::int32_t NewEmployeePasswordID = 0;
  session::Outcome Ended() const;

  void Load_Information();
  void Init_Bound_Data();
  void Set_EmployeeFrm_Rights();
  void Set_DocIni();
  void picSwapName_Click();

 protected:
  void Read() override { Load_Information(); }
  bool Differs() const override;
  bool Check() override;
  bool Agreed() override;
  void OnTaken() override;
  void OnClose() override;

 private:
  void Register();
  void AddTo(Page page, const std::string& name, forms::Control& control);
  void AddField(Page page, Field field);
  void AddGeneralPage();
  void SetHelp();
  void AddEmploymentCommands();
  void AddLoginPage();
  void Wire();
  void WireSaving();
  void WirePages();
  void ReadPages();
  void ShowLocations();
  void OnSavePages();
  void GiveDefaults();
  void CompleteRights();
  void SaveLogin();
  // Login and rights of one whose employment has ended are only looked at.
  bool MayModifyLogin() const;
  void ShowPerson();
  void ReadExisting();
  void ReadLogin();
  void ShowPhoneHeading();
  void ShowEmployment();
  bool Adding() const { return Employee.Id() == 0; }
  void Trim();
  bool HasName();
  bool EmployedBeforeEnd();
  void Apply();
  void SaveAndClose();
  void Insert();
  void UpdatePerson();
  void GiveInitials();
  void PickProfessionalTitle();
  // The suffix of the column of the contact that the phone box shows.
  std::string_view ShownContact() const;
  void PhoneFollows();
  void SavePhone();
  std::optional<forms::Date> DateIn(Field field) const;
  bool IsProvider() const;
  bool Terminated() const { return !Gen_Txt[kTerminated].Text->empty(); }
  void Terminate();
  // Before login and rights are taken away: nothing is asked about them.
  bool SaveLast();
  void Reactivate();
  void Delete();

  editing::Contacts contacts_;
  forms::TextBox first_phone_;  // of the row: what the phone box shows for most
  DuplicatePerson duplicate_;
  Initials initials_;
  Employment employment_;
  bool deleted_ = false;
  bool terminating_ = false;
};

}  // namespace people
