#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "editing/ZIPCODE.h"
#include "editing/birth_date_field.h"
#include "editing/date_field.h"
#include "editing/editing_form.h"
#include "editing/field_help.h"
#include "editing/name_search.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "people/duplicate_person.h"
#include "people/employer_slots.h"
#include "people/family_members.h"
#include "people/family_update.h"
#include "people/person_field.h"
#include "people/person_record.h"
#include "people/phone_pair.h"
#include "people/sex_title_field.h"

namespace people {

// The family screen: a family's head or a member of it, with what is billed to whom, the employers and the family.
class FamScreen : public editing::EditingForm {
 public:
  // Positions in `Text1` and, for the captions beside them, in `Label1`; there are none between them.
  enum Field : std::size_t {
    kLastName = 1,
    kFirstName = 2,
    kBirthDate = 3,
    kSex = 4,
    kTitle = 5,
    kReferral = 6,
    kSsn = 7,
    kHomePhone = 9,
    kWorkPhone = 10,
    kAddress1 = 11,
    kAddress2 = 12,
    kCity = 13,
    kState = 14,
    kZip = 15,
    kProvider = 16,
    kLicence = 19,
    kCardType = 20,
    kCardNumber = 21,
    kBillingTitle = 22,
    kAccountType = 23,
    kNextStatement = 24,
  };
  // Positions in `Label5`; 14 only shows.
  enum HiddenField : std::size_t {
    kIsPatient = 1,
    kBirthDay = 8,
    kReferralId = 9,
    kFamilyHeadId = 10,
    kProviderId = 11,
    kAgeText = 14,
  };
  // Positions in `Command3D1`.
  enum PickButton : std::size_t {
    kPickBirthDate,
    kPickSexTitle,
    kPickProvider,
    kPickBillingTitle,
    kEditCard,
    kPickReferral,
    kPickNextStatement,
  };

  explicit FamScreen(const session::ScreenContext& context);

  std::array<forms::TextBox, 25> Text1;
  std::array<forms::Label, 25> Label1;
  std::array<forms::Label, 15> Label5;
  forms::Label Label2;  // the role in the family
  std::array<forms::Button, 7> Command3D1;
  forms::Button Command3D2;  // drops the list of places
  forms::Button cmdContact;
  forms::PictureBox picSwapName;
  forms::CheckBox chkPersonIsPatient;
  forms::DialogButtons DialogButtons1;
  PersonRecord Person;

  editing::BirthDateField BirthDate;
  SexTitleField SexTitle;
  PhonePair Phones;
  editing::ZIPCODE ZipCodes;
  editing::NameSearch Name_List;
  PersonField Referral;
  PersonField Provider;
  editing::DateField NextStatement;
  EmployerSlots Employers;
  FamilyMembers Members;
  editing::FieldHelp PictureBox1;

  session::Opening Opened = session::Opening::New(session::RecordKind::FamilyMember);
  // The person to edit, and the saved one afterwards.
  std::int32_t pID = 0;
  // The caller knows that the person heads no family ("NOT-A-HEAD").
  bool NotAHead = false;
  // The members of the family stay as they are, and nobody is asked ("NO_MESSAGE").
  bool NoMessage = false;
  // The host's object that the screen belongs to, as it was opened.
  std::shared_ptr<void> ObjParent;
  session::Outcome Ended() const;

  void Contacts_Setup() { Phones.Setup(); }
  void Contacts_Save() { Phones.Save(); }
  void picSwapName_Click();
  // Heads a family, if only his own.
  bool IsHead() const;
  bool Adding() const { return Person.IsNew(); }

 protected:
  void Read() override;
  bool Differs() const override;
  bool Check() override;
  bool Agreed() override;
  void OnTaken() override;
  void OnClose() override { Members.Keep(); }
  ClosingQuestion OnClosing() const override;

 private:
  void Register();
  void ReadLines();
  void NameControls();
  void SetHelp();
  void Wire();
  void WireBilling();
  void WireFamily();
  void WireSaving();
  void ReadExisting();
  void ReadNew();
  // What stands for columns that nobody sees.
  void ShowReferences();
  void ShowRole();
  void ShowIsPatient();
  void TakeIsPatient();
  void GuardStatement();
  bool MayChangeStatement() const;
  void PickBillingTitle();
  bool MayEnterCard() const;
  void EditCard();
  void SaveFromButton();
  void Insert();
  void HeadHimself();
  void Update();
  // His members are offered what he is given.
  bool Shares() const;
  void NoteSharedChanges();
  void Delete();

  DuplicatePerson duplicate_;
  FamilyUpdate family_;
  std::vector<FamilyUpdate::Shared> shared_;  // what the members are still to be told
  bool deleted_ = false;
};

}  // namespace people
