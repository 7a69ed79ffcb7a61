#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "editing/rules.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/period_code.h"
#include "forms/rich_text_box.h"
#include "forms/text_box.h"
#include "forms/user_control.h"
#include "recall/letter_file.h"
#include "recall/letter_preview.h"
#include "recall/notices.h"

namespace recall {

// Tells of every change of its current entry, by the keys too.
class MethodList : public forms::ListBox {
 public:
  std::function<void()> Moved;

  void Changed(forms::Aspect aspect) override {
    ListBox::Changed(aspect);
    if (aspect == forms::Aspect::Value) {
      Fire(Moved);
    }
  }
};

// The send methods of a recall's stage: what each of them sends, and how cards and letters are addressed. The screen
// keeps the notices of its stages, and saves them.
class RecallNotices : public forms::UserControl, private editing::Rules {
 public:
  // As the setting keeps them.
  enum ReturnAddress : std::int32_t { kNoAddress, kPractice, kLocation, kProvider };

  explicit RecallNotices(const session::ScreenContext& context);

  forms::Label lblSendExplain;
  forms::Label lblSendMethod;
  MethodList picSendMethod;  // in the order of `kNotices`
  // What the stage sends. The field of the chosen method is the one that is seen.
  std::array<forms::Label, kNotices.size()> lblNotice;  // of the fields, of which one is seen
  forms::TextBox txtLetter;                             // changed by linking alone
  forms::RichTextBox txtPostCard;
  forms::TextBox txtMessage;
  forms::RichTextBox txtEMail;
  forms::TextBox txtVoice;
  forms::TextBox txtVoiceSpanish;
  forms::Button picWPOpen;
  forms::Button picWPEdit;
  forms::Button picWPPreview;
  forms::Label lblWPPreview;
  forms::RichTextBox txWPPreview;
  forms::CheckBox chkReturnAddress;
  forms::OptionButton optReturnAddressPractice;
  forms::OptionButton optReturnAddressLocation;
  forms::OptionButton optReturnAddressProvider;
  forms::Label lblReturnAddress;  // why it cannot be changed
  std::array<forms::OptionButton, 4> optLabelFormat;

  // A person changed the notices of the stage that is shown.
  std::function<void(const Notices&)> Edited;
  // A person changed the return address or the label format, which hold for every recall.
  std::function<void()> SettingsEdited;

  // The time from the stage to the day when the recall is due, negative behind it, and the recall's period, for the
  // sample of a message.
  forms::PeriodCode AppointmentPeriod;
  forms::PeriodCode TotalPeriod;

  // Shows the notices of a stage, by the name that its texts are edited under: "Due Period".
  void Show(std::string stage_name, Notices notices);

  // The return address, an office setting that supervisors alone change, and the label format, an option of the user.
  // They are read when the screen loads.
  bool SettingsChanged() const;
  // Off where the recall can only be looked at.
  void EnableSettings(bool on);
  // Throws session::DatabaseError.
  void SaveSettings();

 protected:
  // The controls have the screen's names.
  std::string Scope() const override { return {}; }
  void OnLoad() override;
  bool OnIdle() override;

 private:
  void Register();
  void RegisterFields();
  std::array<forms::Control*, kNotices.size()> Fields();
  void Wire();
  Notice Chosen() const;
  void ShowFields();
  void ShowMethods();
  void Choose();
  void ShowChosen();
  void ShowPreview();
  std::string MessageHtml(Notice notice);
  // What an invented patient gets. Throws session::DatabaseError.
  std::string SampleOf(Notice notice, const std::string& text) const;
  void ReadSettings();
  void ShowReturnAddress();
  std::int32_t ReturnAddressShown() const;

  void LinkLetter();
  void RemoveLetter();
  void EditLetter();
  void EditText(Notice notice);
  void Typed(Notice notice, const std::string& text);
  void Left(Notice notice);
  void Put(Notices& notices, Notice notice, const std::string& text, bool replies) const;
  // Whether a text that was there may go.
  bool MayRemove() const;
  void Take(Notices notices);

  LetterFolder letters_;
  LetterPreview preview_{letters_};
  forms::OptionGroup addresses_{&optReturnAddressPractice, &optReturnAddressLocation, &optReturnAddressProvider};
  forms::OptionGroup labels_{&optLabelFormat[0], &optLabelFormat[1], &optLabelFormat[2], &optLabelFormat[3]};
  std::string stage_;
  Notices notices_;
  Notices agreed_;               // before what is being typed
  bool sample_ = false;          // the preview shows what an invented patient gets
  bool preview_is_due_ = false;  // in the next pause
  std::int32_t stored_address_ = kNoAddress;
  std::int32_t stored_label_ = 0;
  bool settings_enabled_ = true;
};

}  // namespace recall
