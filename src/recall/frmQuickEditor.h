#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/rules.h"
#include "forms/dialog_buttons.h"
#include "forms/form.h"
#include "forms/label.h"
#include "recall/message_editor.h"
#include "recall/test_message.h"

namespace recall {

// Edits one message of one method for its caller, who gives it the text and stores what comes back.
class frmQuickEditor : public forms::Form, private editing::Rules {
 public:
  explicit frmQuickEditor(const session::ScreenContext& context);

  // Set before it is shown.
  std::string Title;                          // of the window; empty for its own
  Language LanguageType = Language::English;  // of the text; the office's instructions are the same for either
  data::ContactMethod EditorType = data::ContactMethod::TextMessage;
  std::vector<std::string> EditorVariables;  // "{Patient First Name}"; empty for those of the kind
  data::ReminderKind emsRecordType = {};
  std::string AppointmentPeriod;  // of the stage, and in total: for the sample
  std::string TotalPeriod;
  std::string WpHelpText;
  bool ShowPreview = true;
  bool PreviewOnly = false;  // opens on the sample alone; a person may go on to edit
  bool ShowCommands = true;  // without them nothing can be taken, and the text is only looked at
  bool AutoApplyReturnMessageVisible = false;

  // Set before it is shown, and changed only when it is left with OK.
  std::string Text;  // as it is stored: HTML of e-mails and postcards, or a reference to a template
  bool AutoApplyReturnMessageValue = false;

  // How it was left.
  const std::string& PlainText() const { return plain_text_; }
  bool Modified() const { return modified_; }
  bool Canceled() const { return canceled_; }

  const std::string& PlaceKey() const override;
  bool KeepsPlaceInParts() const override { return true; }
  std::array<std::string_view, 4> PlaceParts() const override { return {"_LEFT", "_TOP", "_WIDTH", "_HEIGHT"}; }
  void Run(const std::function<void()>& rule) override { Attempt(rule); }

  forms::Label lblHelp;
  MessageEditor editor;
  forms::DialogButtons db;

 protected:
  void OnLoad() override;
  bool QueryClose() override;

 private:
  void AddProperties();
  void Read();
  void ShowMode();
  void db_OK();
  void Take();

  TestMessage test_;
  bool previews_ = false;  // the sample alone is seen
  std::string plain_text_;
  bool modified_ = false;
  bool canceled_ = true;
};

}  // namespace recall
