#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "data/reminders.h"
#include "editing/rules.h"
#include "forms/check_box.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/rich_text_box.h"
#include "forms/user_control.h"
#include "recall/generic_messages.h"

namespace recall {

// HTML is kept of it: e-mails and postcards. The others are plain text.
bool HasFormats(data::ContactMethod method);
// "Sample Text Message"
std::string SampleTitle(data::ContactMethod method);

// The text of a reminder with the menu of its variables, how long it is, and what it says of a sample patient.
class MessageEditor : public forms::UserControl, private editing::Rules {
 public:
  // What is written, and for whom.
  struct Message {
    data::ReminderKind kind = {};  // none for a message that belongs to every kind
    data::ContactMethod method = data::ContactMethod::TextMessage;
    Language language = Language::English;
    std::string text = {};                    // as it is stored
    std::vector<std::string> variables = {};  // offered in the menu; empty for those of the kind
    std::string appointment_period = {};
    std::string total_period = {};
    bool may_add_instructions = false;  // the reply instructions
    bool adds_instructions = false;
  };

  explicit MessageEditor(const session::ScreenContext& context);

  // Shows a message, as it is stored.
  void Show(Message message);
  // Shows the sample alone, or the text with it.
  void ShowParts(bool text, bool sample);

  // A person changed what is stored.
  bool Modified() const;
  // As it is stored; untouched it is what it was.
  std::string Stored() const;
  std::string PlainText() const { return qe.Text(); }
  bool AddsInstructions() const;
  // What the sample patient would get: HTML for a method with formats.
  std::string Sample() const;
  const Message& Shown() const { return message_; }

  // Something that is stored, or the sample, became different.
  std::function<void()> Change;

  forms::OptionButton optPredefined, optCustom;
  forms::Label lblTemplates;
  forms::ListBox lstTemplates;
  forms::Label lblPop;
  forms::ListBox pop;  // a menu
  forms::Label lblText;
  forms::RichTextBox qe;
  forms::Label lblUnknown;
  forms::Label lblLength;
  forms::CheckBox chkAutoApply;
  forms::Label lblSample;
  forms::RichTextBox txSample;

 protected:
  std::string Scope() const override { return {}; }

 private:
  void Wire();
  void ShowVariables();
  void ShowText(const std::string& text);
  void TakeVariable();
  void Follow();
  void ShowUnknown();
  void ShowLength();
  std::string WithFormats(const std::string& html_or_plain) const;

  Message message_;
  std::string read_html_;  // of `qe`, as it was read
  data::ContactMethod sample_as_ = {};
  forms::OptionGroup choice_{&optPredefined, &optCustom};
};

}  // namespace recall
