#pragma once

#include <optional>
#include <string>

#include "editing/editing_form.h"
#include "forms/dialog_buttons.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "recall/message_editor.h"
#include "recall/reply_instructions.h"
#include "recall/template_files.h"
#include "recall/test_message.h"

namespace recall {

// The practice's own templates of the e-mails and text messages of each kind of reminder.
class frmEDMsg : public editing::EditingForm {
 public:
  explicit frmEDMsg(const session::ScreenContext& context);

  // The template that it opens on.
  data::ReminderKind emsRecordType = data::ReminderKind::Appointment;
  data::ContactMethod txtType = data::ContactMethod::Email;
  bool LoadData = true;  // what is stored; otherwise it begins empty
  bool ShowPreview = true;
  bool AutoApplyCheckBoxVisible = true;

  // It differs from what is stored.
  bool Modified() const { return editor.Modified(); }

  forms::Label lblKind;
  forms::ComboBox cboKind;
  forms::Label lblMethod;
  forms::ComboBox cboMethod;
  MessageEditor editor;
  forms::DialogButtons db;

 protected:
  void Read() override;
  bool Differs() const override { return Modified(); }
  bool Agreed() override;
  // A template is written whole or not at all.
  ClosingQuestion OnClosing() const override { return {}; }

 private:
  void Register();
  void Wire();
  std::optional<std::string> ReadFile(data::ReminderKind kind, data::ContactMethod method) const;
  void ShowTemplate(std::optional<std::string> stored);
  void ShowChosen();
  void ChooseTemplate();
  std::string Instructions() const { return ReplyInstructions(context_.session, emsRecordType, txtType); }
  bool AgreesToGeneric() const;
  void Write();

  std::optional<std::string> stored_;  // as it was read
  bool generic_ = false;               // takes the place of an emptied message
  TestMessage test_;
};

}  // namespace recall
