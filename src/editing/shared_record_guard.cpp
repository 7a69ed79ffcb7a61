#include "editing/shared_record_guard.h"

#include "data/literal.h"
#include "editing/editing_form.h"
#include "forms/text.h"

namespace editing {

bool SharedRecordGuard::Agrees(std::int32_t id) {
  const int count = count_(id);
  if (count == 0) {
    agreed_.reset();
    return true;
  }
  Change change{.id = id, .from = Stored(id), .to = OnScreen()};
  if (change.from == change.to) {
    agreed_.reset();
    return true;
  }
  if (agreed_ == change) {
    return true;
  }
  if (!Confirmed(change, count)) {
    return false;
  }
  agreed_ = std::move(change);
  logged_ = false;
  return true;
}

bool SharedRecordGuard::Confirmed(const Change& change, int count) const {
  const std::string record(kind_.record);
  const auto answer = context_.user.Ask(
      {.text = "Changing this " + std::string(kind_.information) + " Information will affect ALL patients with " +
               record + ":\r\n" + Lines(change.from) + "\r\nand will change their coverage to " + record + ":\r\n" +
               Lines(change.to) + "\r\nand will affect " + std::to_string(count) +
               " patients. Are you sure you want to continue?",
       .title = "Warning!",
       .buttons = forms::kYesNoCancel,
       .icon = forms::Icon::Information,
       .default_answer = forms::Answer::Cancel});
  if (answer != forms::Answer::Yes) {
    return false;
  }
  const auto typed = context_.user.Input(
      {.prompt = context_.session.UserName() + ", to accept this change, type [Yes] below and click OK."});
  return typed && forms::ToUpper(*typed) == "YES";
}

SharedRecordGuard::Values SharedRecordGuard::Stored(std::int32_t id) const {
  const auto row = statements_.Select(data::Sql("Select * from ") + kind_.table + " where " + kind_.key + "=" +
                                      data::Literal(id) + statements_.Office(" and (OfficeID = ", ") "));
  if (row->Eof()) {
    throw Refusal(std::string(kDeletedMeanwhile));
  }
  Values values;
  for (const Guarded& guarded : guarded_) {
    const session::Value value = (*row)[guarded.column.Text()];
    values.push_back(session::IsNull(value) ? std::string() : guarded.format.show(value));
  }
  return values;
}

SharedRecordGuard::Values SharedRecordGuard::OnScreen() const {
  Values values;
  for (const Guarded& guarded : guarded_) {
    values.push_back(guarded.field.FieldText());
  }
  return values;
}

std::string SharedRecordGuard::Lines(const Values& values) const {
  std::string lines;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!values[i].empty()) {
      lines += (lines.empty() ? "" : guarded_[i].same_line ? " " : "\r\n") + values[i];
    }
  }
  return lines;
}

void SharedRecordGuard::Log() {
  if (!MustLog()) {
    return;
  }
  constexpr std::size_t kWide = 60;
  const forms::DateTime now = context_.session.Now();
  std::string text = std::string(kWide, '-') + "\r\n" + std::string(kind_.entry) + " Entry ID " +
                     std::to_string(agreed_->id) + " was changed by " + context_.session.UserName() + " on " +
                     forms::FormatSlashed(forms::DateOf(now)) + " " + forms::FormatTime(now);
  const auto add = [&text](std::string_view heading, const Values& values) {
    text += "\r\n" + std::string(heading);
    for (const std::string& value : values) {
      text += "\r\n    " + value;
    }
  };
  add("From:", agreed_->from);
  add("To:", agreed_->to);
  context_.session.Log({.kind = session::LogKind::Change, .category = std::string(kind_.category), .text = text});
  logged_ = true;
}

}  // namespace editing
