#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "data/record_binding.h"
#include "data/reminders.h"
#include "editing/Contacts.h"
#include "editing/editing_form.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "recall/SelectionList.h"

namespace recall {

// The phones and e-mail addresses that reminders reach a patient at; one of those that fit a method may be chosen.
class frmEreminderContact : public editing::EditingForm {
 public:
  // Positions in `txtContact` and, for the captions beside them, in `lblContact`.
  enum Field : std::size_t {
    kHomeCell,
    kHomeEmail,
    kWorkCell,
    kWorkEmail,
    kHomePhone,
    kHomePhone2,
    kWorkPhone,
    kWorkPhone2,
  };

  explicit frmEreminderContact(const session::ScreenContext& context);

  std::int32_t PatientID = 0;
  // Whose contact is chosen. A letter and a postcard have none here.
  data::ContactMethod SendMethod = {};
  // Nothing is chosen.
  bool EditOnly = false;
  // The caller goes on when the contacts are saved. False when the screen was left without.
  bool SaveAndConinue = false;
  // The number or address that was chosen; before the screen is shown, the one to begin with. Empty when the screen was
  // left without.
  std::string SelectedValue;
  // What stands above the contacts.
  std::string Header = "eReminder Contact Information";
  // The screen that opens it holds the patient's row only to look at.
  bool OnlyLook = false;

  bool Modified() const { return !ReadOnly() && record_.Changed(); }

  forms::Label lblHeader;
  std::array<forms::Label, 8> lblContact;
  std::array<forms::TextBox, 8> txtContact;
  SelectionList ContactSelection;
  forms::DialogButtons db;

 protected:
  void Read() override;
  bool Differs() const override { return Modified(); }
  void OnTaken() override { ShowChoices(); }
  ClosingQuestion OnClosing() const override;

 private:
  void Register();
  void AddProperties();
  void OK_Click();

  // A contact is to be chosen.
  bool Chooses() const;
  bool Fits(std::size_t field) const;
  // The list offers what fits and is filled in.
  void ShowChoices();
  // Tells when there is none, and puts the focus there.
  bool HasChoice();
  // What is filled in for the chosen contact.
  std::string Chosen() const;
  void Write();
  // The number that a side shows elsewhere follows the contact that it shows.
  void MirrorShown();

  editing::Contacts contacts_;
  data::RecordBinding record_;
  std::size_t chosen_ = txtContact.size();  // the field that was asked for; none before
};

}  // namespace recall
