#include "editing/editing_form.h"

#include <algorithm>
#include <utility>

#include "editing/lost_connection.h"
#include "forms/text.h"

namespace editing {
namespace {

// A record's value, as a person is told of it.
std::string ToldValue(const forms::Field& field, const std::string& value) {
  constexpr std::size_t kMost = 250;  // characters
  const std::string told = field.Told && !value.empty() ? field.Told(value) : value;
  return value.empty() ? "nothing" : Rules::ToldBack(told.empty() ? value : told, kMost);
}

}  // namespace

void EditingForm::OnLoad() {
  const bool read = Attempt([this] {
    const forms::WaitText wait(context_.user, "  Loading Editing Screen - Please Wait  ");
    Read();
  });
  if (!read) {
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
  bool agreed = false;
  return Settle() && Check() && Attempt([&] {
           RequireHold();
           agreed = SettleConflicts() && Agreed();
           while (agreed && !RanSteps()) {
             agreed = SettleConflicts();  // the record was not held for a while
           }
         }) &&
         agreed;
}

// Somebody may have taken the record over while a question stood.
void EditingForm::RequireHold() const {
  for (const RecordHold& hold : holds_) {
    hold.Require();
  }
}

const session::RecordHolder* EditingForm::Holder() const {
  const auto held = std::ranges::find_if(holds_, [](const RecordHold& hold) { return hold.Holder().has_value(); });
  return held == holds_.end() ? nullptr : &*held->Holder();
}

bool EditingForm::RanSteps() {
  try {
    RunSteps();
    return true;
  } catch (session::DatabaseError& error) {
    if (!error.ConnectionLost() || error.given_up) {
      throw;
    }
    error.given_up = !WantsToTryAgain(context_.user, error);
    if (error.given_up) {
      throw;
    }
  }
  return false;
}

void EditingForm::RunSteps() {
  RequireHold();
  const forms::WaitText wait(context_.user, "  Saving - Please Wait  ");
  for (Step& step : steps_) {
    const bool due = step.due();  // a step may note what is due, on top of what was
    step.pending = step.pending || due;
  }
  for (Step& step : steps_) {
    if (step.pending) {
      step.run();
      step.pending = false;
      Saved = true;
      in_part_ = true;
    }
  }
  in_part_ = false;
}

bool EditingForm::SettleConflicts() {
  std::vector<std::vector<data::RecordBinding::Conflict>> found;
  std::vector<std::string> lines;
  for (const data::RecordBinding* record : records_) {
    auto conflicts = record->Conflicts();
    if (!conflicts) {
      throw Refusal(std::string(kDeletedMeanwhile));
    }
    for (const auto& [field, stored] : *conflicts) {
      std::string line = field.SpokenName() + ": yours " + ToldValue(field, field.FieldText()) + ", stored " +
                         ToldValue(field, stored);
      if (std::ranges::find(lines, line) == lines.end()) {  // columns that mirror each other are one to the person
        lines.push_back(std::move(line));
      }
    }
    found.push_back(*std::move(conflicts));
  }
  if (lines.empty()) {
    return true;
  }
  const forms::Answer answer = AskAboutConflicts(lines);
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (answer == forms::Answer::Yes) {
      records_[i]->Overwrite(found[i]);
    } else if (answer == forms::Answer::No) {
      records_[i]->Take(found[i]);
    }
  }
  if (answer == forms::Answer::No) {
    OnTaken();
  }
  return answer != forms::Answer::Cancel;
}

forms::Answer EditingForm::AskAboutConflicts(const std::vector<std::string>& lines) const {
  std::string text = "Another user has changed this record:\r\n";
  for (const std::string& line : lines) {
    text += "\r\n" + line;
  }
  text +=
      "\r\n\r\nClick 'Yes' to save yours over what is stored.\r\n"
      "Click 'No' to keep what is stored, and save the rest.\r\n"
      "Click 'Cancel' to go back to the screen.";
  return context_.user.Ask({.text = std::move(text),
                            .title = "Save Changes",
                            .buttons = forms::kYesNoCancel,
                            .icon = forms::Icon::Exclamation,
                            .default_answer = forms::Answer::Cancel});
}

bool EditingForm::Unsaved() const {
  return !read_only_ && (Differs() || SavedInPart());
}

EditingForm::ClosingQuestion EditingForm::OnClosing() const {
  if (SavedInPart()) {
    return {.text = "This record has been saved only in part. Save the rest now?", .offers_to_save = true};
  }
  return {};
}

bool EditingForm::QueryClose() {
  if (!Unsaved()) {
    return true;
  }
  const ClosingQuestion question = OnClosing();
  forms::Message message{
      .text = question.text, .title = question.title, .buttons = forms::kYesNo, .icon = forms::Icon::Question};
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

bool EditingForm::OnKey(forms::Key key) {
  if (key == forms::Key::CtrlS && MayModify() && Settle() && Unsaved()) {
    Save();
  }
  return key == forms::Key::CtrlS;
}

void EditingForm::Hold(const std::string& table, std::int32_t id) {
  if (context_.session.Connection().ReadOnly()) {
    Caption = Caption.get() + " - Read only";
    MakeReadOnly();
    return;
  }
  RecordHold& hold = holds_.emplace_back(context_.session, table, id);
  if (hold.Holder() && hold.Holder()->silent && context_.session.HasRight(session::kSupervisorRight) &&
      Confirm(HeldText(*hold.Holder()) +
              " Do you want to take it over?\r\nWhat has not been saved there cannot be saved any more.")) {
    hold.TakeOver();
  }
  if (hold.Holder()) {
    Caption = Caption.get() + " - Read only (" + NameOf(*hold.Holder()) + ")";
    MakeReadOnly();
  }
}

bool EditingForm::RequireRight(std::string_view right, std::string_view what) {
  if (context_.session.HasRight(right)) {
    return true;
  }
  Caption = Caption.get() + " - Read only";
  lacked_ = {std::string(right), std::string(what)};
  MakeReadOnly();
  return false;
}

void EditingForm::MakeReadOnly() {
  read_only_ = true;
  for (forms::Control* control : Controls()) {
    if (auto* box = dynamic_cast<forms::TextBox*>(control)) {
      editable_again_.emplace_back([box, was = box->ReadOnly.get(), press = box->KeyPress, down = box->KeyDown] {
        box->ReadOnly = was;
        box->KeyPress = press;
        box->KeyDown = down;
      });
      LookOnly(*box, [this] { return MayModify(); });
    }
  }
}

void EditingForm::LookOnly(forms::TextBox& box, const std::function<bool()>& may) {
  box.ReadOnly = true;
  box.KeyPress = [may](char32_t) {
    may();
    return char32_t{0};
  };
  box.KeyDown = [may, rule = box.KeyDown](forms::Key key) {
    return key == forms::Key::Delete ? !may() : rule && rule(key);
  };
}

void EditingForm::LetGo() {
  holds_.clear();
  const auto editable_again = std::exchange(editable_again_, {});
  std::for_each(editable_again.rbegin(), editable_again.rend(), [](const auto& editable) { editable(); });
  for (Step& step : steps_) {
    step.pending = false;
  }
  in_part_ = false;
  read_only_ = false;
}

bool EditingForm::MayModify() const {
  if (read_only_ && lacked_) {
    HasRight(lacked_->keyword, lacked_->what);
  } else if (read_only_) {
    const session::RecordHolder* holder = Holder();
    Tell("Read only, cannot modify." + (holder != nullptr ? "\r\n" + HeldText(*holder) : std::string()));
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
