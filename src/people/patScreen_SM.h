#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "data/record_binding.h"
#include "editing/Contacts.h"
#include "editing/ZIPCODE.h"
#include "editing/attempt.h"
#include "forms/button.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "session/screens.h"

namespace people {

// The patient quick screen: one person's identity, address, phones, referral and provider on a single page.
class patScreen_SM : public forms::Form {
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
    kAgeText = 14,
    kFeeScheduleText = 15,
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
  forms::Panel Name_List;  // holds `dbcNameSearch`
  forms::ComboBox dbcNameSearch;
  editing::ZIPCODE ZipCodes;
  forms::PictureBox picSwapName;
  forms::Panel PictureBox1;             // the balloon of the field help
  forms::Label Label3;                  // its text
  forms::DialogButtons DialogButtons1;  // `Extra` saves and books
  data::RecordBinding Patient_SM;

  // Set before it is shown.
  session::Opening Opened = session::Opening::New(session::RecordKind::Patient);
  // The patient that is edited, once there is one.
  std::int32_t pID = 0;
  // Saving and booking an appointment was chosen.
  bool ShowSaveNBookAppt = false;
  // The record was written at least once.
  bool Saved = false;

  session::Outcome Ended() const;

  void Contacts_Setup();
  void Contacts_Save();
  void picSwapName_Click();

 protected:
  void OnLoad() override;
  bool QueryClose() override;
  bool OnKey(forms::Key key) override;
  void OnFocus(forms::Control* control) override;

 private:
  // Reading.
  void Register();
  void Wire();
  void LoadRecord();
  void LoadNew();
  void ShowPerson(Field field, HiddenField id);
  std::string NameOf(std::int32_t person) const;
  void ShowAge();
  void ShowFeeSchedule();
  // Saving.
  bool Unsaved() const;
  bool Save();
  bool Write();
  void WriteNickname();
  void SaveFromButton(bool and_book);
  std::string FullName() const;
  void EditContacts();
  void ShowContacts();
  // Fields.
  bool Adding() const { return Opened.IsNew(); }
  bool MayModify();
  char32_t FilterBirthDate(char32_t character);
  bool TakeBirthDate();
  bool TakeSex();
  void EnterField(std::size_t field);
  void ShowHelp();
  // Picks.
  void Pick(PickButton button);
  void PickBirthDate();
  void PickSexTitle();
  void PickMedicalAlert();
  void PickFeeSchedule();
  bool Confirm(const std::string& text);
  // Referral and provider.
  void DropNames(Field field);
  void PickPerson(Field field);
  void EditPerson(Field field);
  void RemovePerson(Field field);
  bool OnPersonKey(Field field, forms::Key key);
  void SetPerson(Field field, std::int32_t id, const std::string& name);
  void TakeSearchedName();
  void LeaveSearch();
  void AddSearchedName(const std::string& typed);
  bool MayChangePerson(Field field);
  bool OnSearchKey(forms::Key key);

  session::ScreenContext context_;
  data::Statements statements_;
  editing::Contacts contacts_;
  std::optional<editing::RecordHold> hold_;
  bool read_only_ = false;
  bool write_pending_ = false;  // a save stopped on its way
  bool nickname_pending_ = false;
  std::size_t help_field_ = kLastName;
  Field searching_ = kReferral;
  std::string birth_date_shown_;
};

}  // namespace people
