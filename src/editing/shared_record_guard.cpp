#include "editing/shared_record_guard.h"

#include <algorithm>
#include <utility>

#include "data/literal.h"
#include "editing/editing_form.h"
#include "forms/text.h"

namespace editing {

bool SharedRecordGuard::Agrees() {
  const auto changed = [this](const Guarded& guarded) { return record_.Changed(guarded.field); };
  const int count = record_.Id() == 0 || std::ranges::none_of(guarded_, changed) ? 0 : count_(record_.Id());
  if (count == 0) {
    agreed_.reset();
    return true;
  }
  Change change{.id = record_.Id(), .from = Stored(), .to = {}};
  change.to = OnScreen(change.from);
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

SharedRecordGuard::Values SharedRecordGuard::Stored() const {
  const auto row = statements_.Select(data::Sql("Select * from ") + kind_.table + " where " + kind_.key + "=" +
                                      data::Literal(record_.Id()) + statements_.Office(" and (OfficeID = ", ") "));
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

SharedRecordGuard::Values SharedRecordGuard::OnScreen(const Values& stored) const {
  Values values = stored;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (record_.Changed(guarded_[i].field)) {
      values[i] = guarded_[i].field.FieldText();
    }
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

void SharedRecordGuard::Written() {
  if (agreed_) {
    written_.push_back(*std::exchange(agreed_, std::nullopt));
  }
}

void SharedRecordGuard::Log() {
  while (!written_.empty()) {
    context_.session.Log(
        {.kind = session::LogKind::Change, .category = std::string(kind_.category), .text = Entry(written_.front())});
    written_.erase(written_.begin());
  }
}

std::string SharedRecordGuard::Entry(const Change& change) const {
  constexpr std::size_t kWide = 60;
  const forms::DateTime now = context_.session.Now();
  std::string text = std::string(kWide, '-') + "\r\n" + std::string(kind_.entry) + " Entry ID " +
                     std::to_string(change.id) + " was changed by " + context_.session.UserName() + " on " +
                     forms::FormatSlashed(forms::DateOf(now)) + " " + forms::FormatTime(now);
  const auto add = [&text](std::string_view heading, const Values& values) {
    text += "\r\n" + std::string(heading);
    for (const std::string& value : values) {
      text += "\r\n    " + value;
    }
  };
  add("From:", change.from);
  add("To:", change.to);
  return text;
}

}  // namespace editing
