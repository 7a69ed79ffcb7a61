#include "editing/editing_form.h"

#include <algorithm>

#include "forms/text.h"
#include "forms/text_box.h"

namespace editing {

void EditingForm::OnLoad() {
  if (!Attempt([this] { Read(); })) {
    Close();
  }
}

bool EditingForm::Readable(const data::RecordBinding& record) const {
  const auto unreadable = record.FirstUnreadable();
  if (unreadable) {
    Tell(ToldBack(unreadable->field.FieldText()) + " is not a valid " + std::string(unreadable->what) + ".");
    unreadable->field.SetFocus();
  }
  return !unreadable;
}

void EditingForm::OnSave(std::function<bool()> due, std::function<void()> run) {
  steps_.push_back({std::move(due), std::move(run)});
}

bool EditingForm::Save() {
  return Check() && Attempt([this] {
           const forms::WaitText wait(context_.user, "  Saving - Please Wait  ");
           for (Step& step : steps_) {
             step.pending = step.pending || step.due();
           }
           for (Step& step : steps_) {
             if (step.pending) {
               step.run();
               step.pending = false;
               Saved = true;
             }
           }
         });
}

bool EditingForm::Unsaved() const {
  return !read_only_ && (Differs() || std::ranges::any_of(steps_, &Step::pending));
}

bool EditingForm::QueryClose() {
  if (!Unsaved()) {
    return true;
  }
  const ClosingQuestion question = OnClosing();
  forms::Message message{.text = question.text, .buttons = forms::kYesNo, .icon = forms::Icon::Question};
  if (question.offers_to_save) {
    message.buttons = forms::kYesNoCancel;
  } else {
    message.default_answer = forms::Answer::No;
  }
  switch (context_.user.Ask(message)) {
    case forms::Answer::Yes:
      return !question.offers_to_save || Save();
    case forms::Answer::No:
      return question.offers_to_save;
    default:
      return false;
  }
}

void EditingForm::Hold(const std::string& table, std::int32_t id) {
  hold_.emplace(context_.session, table, id);
  if (!hold_->Held()) {
    Caption = Caption.get() + " - Read only";
    MakeReadOnly();
  }
}

void EditingForm::MakeReadOnly() {
  read_only_ = true;
  for (forms::Control* control : Controls()) {
    if (auto* box = dynamic_cast<forms::TextBox*>(control)) {
      box->ReadOnly = true;
      box->KeyPress = [this](char32_t) {
        MayModify();
        return char32_t{0};
      };
      box->KeyDown = [this, rule = box->KeyDown](forms::Key key) {
        return key == forms::Key::Delete ? !MayModify() : rule && rule(key);
      };
    }
  }
}

bool EditingForm::MayModify() const {
  if (read_only_) {
    Tell("Read only, cannot modify.");
  }
  return !read_only_;
}

bool EditingForm::ReadOnly(const forms::Control& control) {
  const auto* screen = dynamic_cast<const EditingForm*>(control.Owner());
  return screen != nullptr && screen->ReadOnly();
}

bool EditingForm::MayModify(const forms::Control& control) {
  const auto* screen = dynamic_cast<const EditingForm*>(control.Owner());
  return screen == nullptr || screen->MayModify();
}

}  // namespace editing
