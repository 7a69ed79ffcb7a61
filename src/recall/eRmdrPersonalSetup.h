#pragma once

#include <array>
#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "data/contact_orders.h"
#include "data/reminder_notes.h"
#include "editing/editing_form.h"
#include "editing/record_hold.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/rich_text_box.h"
#include "recall/ExcludedContact.h"
#include "recall/cltContactSlection.h"

namespace recall {

// How reminders reach one patient: by which methods, in which order, for each kind of reminder and for each stage of
// his recalls; where, and what the practice notes about it.
class eRmdrPersonalSetup : public editing::EditingForm {
 public:
  explicit eRmdrPersonalSetup(const session::ScreenContext& context);

  std::int32_t PatientID = 0;
  // Something was changed and is not saved yet.
  bool ChangeMade = false;

  forms::TabStrip tabKinds;
  forms::Panel stRecall;
  forms::Panel stReminder;
  forms::Panel stConfirm;
  forms::Panel stBirthday;
  ExcludedContact ecRecall{data::ReminderKind::Recall};
  ExcludedContact ecReminder{data::ReminderKind::Appointment};
  ExcludedContact ecConfirm{data::ReminderKind::Confirmation};
  ExcludedContact ecBirthday{data::ReminderKind::Birthday};

  // The orders of single recalls; not seen for a patient without any.
  forms::Panel pnlStage;
  forms::Label lblStage;
  forms::ComboBox cboStage;
  cltContactSlection csStage{"Availa&ble methods", "Contact or&der, first one first"};

  forms::Panel stInfo;
  forms::Label lblInfo;
  forms::Button cmdContact;
  forms::Panel stNotes;
  forms::Label lblNotes;
  forms::RichTextBox qe;
  forms::CheckBox chkApplyToFamily;
  forms::DialogButtons db;

 protected:
  void Read() override;
  bool Differs() const override { return ChangeMade; }
  bool Agreed() override;

 private:
  // A stage of a recall with the order that the person gives it.
  struct Stage {
    data::ContactOrderOf of;
    std::vector<std::int32_t> order;
    bool changed = false;
  };

  void Register();
  void RegisterPages();
  void Wire();
  std::array<ExcludedContact*, 4> Kinds() { return {&ecRecall, &ecReminder, &ecConfirm, &ecBirthday}; }
  std::array<const ExcludedContact*, 4> Kinds() const { return {&ecRecall, &ecReminder, &ecConfirm, &ecBirthday}; }

  // Empty when there is no such patient.
  std::string NameOf(std::int32_t patient) const;
  std::vector<std::int32_t> ReadFamily() const;
  void ShowKinds();
  void ShowStages();
  void ShowStage();
  Stage* ShownStage();

  void TakeStageOrder();
  void DropExcluded();
  void qe_Change();
  void chkApplyToFamily_Click();
  void cmdContact_Click();

  bool ForFamily() const { return chkApplyToFamily.Value == forms::CheckState::On; }
  void Write();
  void WriteChanged() const;
  void WriteOwn(std::int32_t member) const;
  void WriteKind(std::int32_t patient, const ExcludedContact& kind) const;
  void Clear();

  data::ContactOrders orders_;
  data::ReminderNotes notes_;
  std::vector<Stage> stages_;
  std::vector<std::int32_t> family_;     // all of it, the patient among them
  std::list<editing::RecordHold> held_;  // the others of the family during a save
  std::string note_;                     // as it was read, or last agreed to
  bool note_changed_ = false;
};

}  // namespace recall
