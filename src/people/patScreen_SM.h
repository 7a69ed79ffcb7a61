#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "editing/ZIPCODE.h"
#include "editing/birth_date_field.h"
#include "editing/editing_form.h"
#include "editing/field_help.h"
#include "editing/name_search.h"
#include "forms/button.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "people/duplicate_person.h"
#include "people/person_field.h"
#include "people/person_record.h"
#include "people/phone_pair.h"
#include "people/sex_title_field.h"

namespace people {

// The patient quick screen: one person's identity, address, phones, referral and provider on a single page.
class patScreen_SM : public editing::EditingForm {
 public:
  // Positions in `Text1` and, for the captions beside them, in `Label1`.
  enum Field : std::size_t {
    kLastName,
    kFirstName,
    kBirthDate,
    kSex,
    kTitle,
    kReferral,
    kSsn,
    kHomePhone,
    kWorkPhone,
    kAddress1,
    kAddress2,
    kCity,
    kState,
    kZip,
    kProvider,
    kMedicalAlert,
  };
  // Positions in `Label5`; 14 to 18 only show.
  enum HiddenField : std::size_t {
    kAlertUpdated = 0,
    kIsPatient = 1,
    kBirthDay = 8,
    kReferralId = 9,
    kProviderId = 11,
    kPhysician1 = 12,
    kPhysician2 = 13,
    kAgeText = 14,
    kFeeScheduleText = 15,
    kSecondReferralText = 16,
    kFeeSchedule = 19,
    kAccountType = 21,
  };
  // Positions in `Command3D1`.
  enum PickButton : std::size_t {
    kPickBirthDate,
    kPickSexTitle,
    kPickReferral,
    kPickProvider,
    kPickMedicalAlert,
    kPickFeeSchedule,
  };

  explicit patScreen_SM(const session::ScreenContext& context);

  std::array<forms::TextBox, 16> Text1;
  std::array<forms::Label, 22> Label5;
  std::array<forms::Label, 16> Label1;
  std::array<forms::Button, 6> Command3D1;
  forms::Button Command3D2;  // drops the list of places
  forms::Button cmdContact;
  forms::PictureBox picSwapName;
  forms::DialogButtons DialogButtons1;  // `Extra` saves and books
  PersonRecord Patient_SM;

  editing::BirthDateField BirthDate;
  SexTitleField SexTitle;
  PhonePair Phones;
  editing::ZIPCODE ZipCodes;
  editing::NameSearch Name_List;
  PersonField Referral;
  PersonField Provider;
  editing::FieldHelp PictureBox1;

  session::Opening Opened = session::Opening::New(session::RecordKind::Patient);
  // The patient to edit, and the saved one afterwards.
  std::int32_t pID = 0;
  // The choice to save and book an appointment was made.
  bool ShowSaveNBookAppt = false;
  session::Outcome Ended() const;

  void Contacts_Setup() { Phones.Setup(); }
  void Contacts_Save() { Phones.Save(); }
  void picSwapName_Click();

 protected:
  void Read() override;
  bool Differs() const override { return Patient_SM.Changed() || BirthDate.Pending(); }
  bool Check() override;
  bool Agreed() override;
  void OnTaken() override;
  ClosingQuestion OnClosing() const override;

 private:
  void Register();
  void SetHelp();
  void Wire();
  void ReadExisting();
  void ReadNew();
  void ShowReferences();
  void ShowSecondReferral();
  void ShowFeeSchedule();
  void AlertDateFollows();
  bool Adding() const { return Patient_SM.IsNew(); }
  void SaveFromButton(bool and_book);
  void Insert();
  void PickMedicalAlert();
  void PickFeeSchedule();

  DuplicatePerson duplicate_;
};

}  // namespace people
