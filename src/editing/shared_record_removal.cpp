#include "editing/shared_record_removal.h"

#include <utility>

#include "data/shared_record_texts.h"

namespace editing {

using data::SharedRecord;
using forms::Answer;

SharedRecordRemoval::SharedRecordRemoval(const session::ScreenContext& context, SharedRecord kind, std::int32_t id,
                                         std::string name)
    : Rules(context), kind_(kind), id_(id), name_(std::move(name)), words_(WordsOf(kind)), records_(context.session) {}

bool SharedRecordRemoval::Run() {
  Attempt([this] { Remove(); });
  return changed_;
}

void SharedRecordRemoval::Remove() {
  const RecordHold hold(context_.session, std::string(data::TableOf(kind_).table.Text()), id_);
  hold.Require();
  RequireName();
  for (Answer answer = Answer::Replace; answer == Answer::Replace;) {
    const int count = Count();
    const forms::Message question = Question(count);
    answer = context_.user.Ask(question);
    if (answer == Answer::Cancel) {
      return;
    }
    hold.Require();
    const std::string name = RequireName();
    if (answer != Answer::Replace && Count() > count) {
      answer = Answer::Replace;  // more than were told of: asked again
      continue;
    }
    if (answer == Answer::Replace) {
      BeforeReplacing();
    }
    Log(answer, question.text, name);
    changed_ = true;
    if (answer != Answer::Replace) {
      RemoveWhole();
    } else if (!ReplaceSharedRecord(context_, kind_, id_, name, hold)) {
      return;
    }
  }
}

std::string SharedRecordRemoval::RequireName() {
  const auto name = data::NameOf(context_.session, kind_, id_);
  const auto link = kind_ == SharedRecord::PlanLink ? data::PlanLinks(context_.session).Get(id_) : std::nullopt;
  if (!name || (link && !link->live)) {
    changed_ = true;
    throw Refusal(ToldBack(name_) + " is not there any more. Nothing was changed.");
  }
  return *name;
}

void SharedRecordRemoval::RemoveWhole() {
  const std::string text =
      (kind_ == SharedRecord::PlanLink ? "  Removing " : "  Deleting ") + words_.noun + " - Please Wait  ";
  const forms::WaitText wait(context_.user, text);
  records_.Progress = [&](double done) { context_.user.Wait(text, done); };
  records_.Delete(kind_, id_);
}

void SharedRecordRemoval::Log(Answer answer, const std::string& question, const std::string& name) const {
  session::Session& session = context_.session;
  session.Log({.kind = session::LogKind::Insurance,
               .category = answer == Answer::Replace ? "REPLACE" : "DELETE",
               .text = forms::FormatStamp(session.Now()) + " " + session.UserName() + " selected [ " +
                       std::string(forms::Caption(answer)) + " ] to the following Warning : '" + question +
                       "' for : " + Logged(name)});
}

}  // namespace editing
