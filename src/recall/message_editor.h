#pragma once

#include <functional>
#include <optional>
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
#include "recall/template_files.h"
#include "recall/template_sample.h"

namespace recall {

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
    bool merged_title = false;  // "Sample Merged Text Message"
    bool read_only = false;
  };

  explicit MessageEditor(const session::ScreenContext& context);

  // Shows a message, as it is stored.
  void Show(Message message);
  void ShowParts(bool text, bool sample);

  // A person changed what is stored.
  bool Modified() const;
  // As it is stored; untouched it is what it was.
  std::string Stored() const;
  // Neither a template nor a word is left.
  bool IsEmpty() const;
  std::string PlainText() const { return qe.Text(); }
  bool AddsInstructions() const;
  // What the sample patient would get: HTML for a method with formats.
  std::string Sample() const;
  const Message& Shown() const { return message_; }

  // Something that is stored, or the sample, became different.
  std::function<void()> Change;

  forms::Panel picText;
  forms::Panel picTemplates;
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
  forms::Panel picSample;
  forms::Label lblSample;
  forms::RichTextBox txSample;

 protected:
  std::string Scope() const override { return {}; }

 private:
  // What is written there.
  struct Content {
    std::string predefined = {};  // the template's name; empty for a message of its own
    std::string html = {};
    bool adds_instructions = false;

    friend bool operator==(const Content&, const Content&) = default;
  };

  void Wire();
  void ShowTemplates(const std::string& marked);
  // Of a predefined template nothing can be changed.
  void ShowMode();
  void ShowVariables();
  void ShowText(const std::string& text);
  Content Now() const;
  // The template that the message names or marks, as long as the text that was shown for it is as it was.
  std::string Kept() const;
  std::string Text() const;
  // The text with the instructions that it is sent with.
  std::string Whole() const;
  TemplateSample SampleFor(data::ContactMethod method) const;
  void ChooseKind();
  void TakeTemplate();
  // Throws editing::Refusal, and what was chosen before is chosen again.
  void ShowChosenTemplate();
  void TakeVariable();
  void Follow();
  void ShowUnknown();
  void ShowSample();
  // On the phone or the card, or as it is sent.
  void ShowSampleAs(data::ContactMethod method);
  void ShowLength();

  Message message_;
  Content read_;
  bool predefined_ = false;  // a template is shown, or about to be chosen
  int shown_ = -1;           // which one
  bool document_ = false;    // the e-mail has a page and a font of its own
  std::string custom_html_;  // while a template is shown in its place
  std::string missing_;      // the template that the message names and that is not there
  std::string instructions_;
  data::ContactMethod sample_as_ = {};
  std::optional<TemplateSample> sample_;
  forms::OptionGroup choice_{&optPredefined, &optCustom};
};

}  // namespace recall
