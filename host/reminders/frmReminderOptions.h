#pragma once

#include <array>
#include <string>
#include <vector>

#include "editing/editing_form.h"
#include "forms/button.h"
#include "forms/dialog_buttons.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "reminders/outbox.h"
#include "reminders/reminder_settings.h"

namespace host {

// Where the office's reminders go, and what waits in the outbox. Supervisors change it; what is kept of a password is
// never shown.
class frmReminderOptions : public editing::EditingForm {
 public:
  // Positions in `txtOption` and, for the captions beside them, in `lblOption`.
  enum Option : std::size_t {
    kServer,
    kPort,
    kUser,
    kPassword,
    kSender,
    kSenderName,
    kHook,
    kToken,
    kConfirmation,
    kTextReply,
    kMailReply,
    kOfficeName,
    kWebsite,
    kOptions
  };

  // `problem` is why the last message was not sent; empty for none.
  frmReminderOptions(const session::ScreenContext& context, Outbox outbox, const std::string& problem = {});

  forms::Label lblProblem;
  forms::Label lblMail;  // where e-mails go as it is typed
  std::array<forms::Label, kOptions> lblOption;
  std::array<forms::TextBox, kOptions> txtOption;
  forms::Label lblSecurity;
  forms::ComboBox cboSecurity;
  forms::Label lblText;  // where text messages go
  forms::Label lblFolder;
  forms::Label lblOutbox;
  forms::Grid TDBG;
  forms::Label lblMessage;
  forms::TextBox txtMessage;
  forms::Button cmdFolder;  // shows the outbox's folder
  forms::Button cmdDelete;  // the message in the list
  forms::DialogButtons DialogButtons1;

 protected:
  void Read() override;
  bool Differs() const override { return Typed() != settings_; }
  bool Check() override;
  bool Agreed() override;

 private:
  void Register();
  void Wire();
  std::string Typed(Option option) const;
  std::string TypedReply(Option option, const std::string& stored) const;
  // A port that is none, and a kept secret that is not typed over, are as they were read.
  ReminderSettings Typed() const;
  bool CheckMail(const ReminderSettings& typed);
  bool CheckTexts(const ReminderSettings& typed);
  bool CheckHook(const ReminderSettings& typed);
  bool Refuse(const std::string& why, Option option);
  void ShowSettings();
  void ShowWays();
  void ShowOutbox();
  void ShowMessage();
  void OpenFolder();
  void DeleteMessage();
  const Outbox::Entry* Current() const;

  ReminderSettings settings_;  // as they are stored
  Outbox outbox_;
  std::vector<Outbox::Entry> entries_;
};

}  // namespace host
