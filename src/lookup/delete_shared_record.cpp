#include "lookup/delete_shared_record.h"

#include <utility>

#include "data/shared_record_texts.h"
#include "data/shared_records.h"
#include "editing/replacement.h"
#include "editing/rules.h"

namespace lookup {
namespace {

using data::SharedRecord;
using forms::Answer;

class Deletion : private editing::Rules {
 public:
  Deletion(const session::ScreenContext& context, SharedRecord kind, DeletedRow row)
      : Rules(context), kind_(kind), words_(editing::WordsOf(kind)), row_(std::move(row)), records_(context.session) {}

  bool Run() {
    Attempt([&] {
      if (HasRight("EDIT-EMP-INS", words_.plural)) {
        Delete();
      }
    });
    return changed_;
  }

 private:
  // A record that was replaced is connected to nobody any more, and may be deleted next.
  void Delete() {
    const editing::RecordHold hold(context_.session, std::string(data::TableOf(kind_).table.Text()), row_.id);
    hold.Require();
    RequireName();
    for (Answer answer = Answer::Replace; answer == Answer::Replace;) {
      const int patients = Patients();
      const forms::Message question = Question(patients);
      answer = context_.user.Ask(question);
      if (answer == Answer::Cancel) {
        return;
      }
      hold.Require();
      const std::string name = RequireName();
      if (answer != Answer::Replace && Patients() > patients) {
        answer = Answer::Replace;  // more than were told of: asked again
        continue;
      }
      Log(answer, question.text, name);
      changed_ = true;
      if (answer != Answer::Replace) {
        const std::string text = "  Deleting " + words_.noun + " - Please Wait  ";
        const forms::WaitText wait(context_.user, text);
        records_.Progress = [&](double done) { context_.user.Wait(text, done); };
        records_.Delete(kind_, row_.id);
      } else if (!editing::ReplaceSharedRecord(context_, kind_, row_.id, name, hold)) {
        return;
      }
    }
  }

  std::string RequireName() {
    const auto name = data::NameOf(context_.session, kind_, row_.id);
    if (!name) {
      changed_ = true;
      throw editing::Refusal(ToldBack(row_.name) + " is not there any more. Nothing was changed.");
    }
    return *name;
  }

  int Patients() const {
    const int uses = records_.Uses(kind_, row_.id);
    return kind_ == SharedRecord::Carrier ? uses + records_.UsesOfPlans(row_.id) : uses;
  }

  forms::Message Question(int patients) const {
    const std::string title = "Delete " + words_.noun;
    if (patients == 0) {
      return {.text = "This " + words_.noun + " is not connected to any patients. Are you sure you want to delete ?",
              .title = title,
              .buttons = forms::kOkCancel,
              .icon = forms::Icon::Question,
              .default_answer = Answer::Cancel};
    }
    const std::string consequence =
        kind_ == SharedRecord::Pharmacy
            ? "leave these patients without a pharmacy. "
            : "remove insurance coverage from all patients covered through this " + words_.noun + ". ";
    return {.text = "This " + words_.noun + " is connected to " + std::to_string(patients) +
                    " patient(s). Deleting it will " + consequence + "Before deleting this " + words_.noun +
                    ", you can select a new " + words_.noun +
                    " to take its place.\r\n\r\nClick 'Replace' to select a "
                    "replacement " +
                    words_.noun + " from the list.\r\nClick 'Delete' to delete the " + words_.noun +
                    " without replacing.",
            .title = title,
            .buttons = {Answer::Replace, Answer::Delete, Answer::Cancel},
            .icon = forms::Icon::Exclamation,
            .default_answer = Answer::Cancel};
  }

  void Log(Answer answer, const std::string& question, const std::string& name) const {
    session::Session& session = context_.session;
    session.Log({.kind = session::LogKind::Insurance,
                 .category = answer == Answer::Replace ? "REPLACE" : "DELETE",
                 .text = forms::FormatStamp(session.Now()) + " " + session.UserName() + " selected [ " +
                         std::string(forms::Caption(answer)) + " ] to the following Warning : '" + question +
                         "' for : [" + name + "]"});
  }

  SharedRecord kind_;
  editing::SharedRecordWords words_;
  DeletedRow row_;
  data::SharedRecords records_;
  bool changed_ = false;
};

}  // namespace

bool DeleteEmployer(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  return Deletion(context, SharedRecord::Employer, row).Run();
}

bool DeleteCarrier(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                   const DeletedRow& row) {
  return Deletion(context, SharedRecord::Carrier, row).Run();
}

bool DeleteGroupPlan(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                     const DeletedRow& row) {
  return Deletion(context, SharedRecord::GroupPlan, row).Run();
}

bool DeletePharmacy(const session::ScreenContext& context, const session::ListOptions& /*options*/,
                    const DeletedRow& row) {
  return Deletion(context, SharedRecord::Pharmacy, row).Run();
}

}  // namespace lookup
