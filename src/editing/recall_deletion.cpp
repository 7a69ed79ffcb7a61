#include "editing/recall_deletion.h"

#include "data/recall_removal.h"
#include "editing/recall_utility.h"
#include "editing/record_hold.h"
#include "editing/rules.h"

namespace editing {
namespace {

using forms::Answer;
using forms::Icon;

class RecallDeletion : private Rules {
 public:
  RecallDeletion(const session::ScreenContext& context, std::int32_t id, const std::string& name)
      : Rules(context), id_(id), name_(name) {}

  bool Run() {
    bool deleted = false;
    Attempt([&] { deleted = Delete(); });
    if (deleted) {
      Attempt([this] { ClearPatients(); });
    }
    return deleted || gone_;
  }

 private:
  // False when the person or a lock stands against it.
  bool Delete() {
    const RecordHold list(context_.session, "RCMASTER", 0);
    if (list.Holder()) {
      Tell("This list is locked. Cannot delete.", Icon::Information);
      return false;
    }
    const RecordHold entry(context_.session, "RSTABLE", id_);
    if (entry.Holder()) {
      Tell("This entry is locked. Cannot delete.", Icon::Information);
      return false;
    }
    if (!Agrees()) {
      return false;
    }
    list.Require();
    entry.Require();
    session::Transaction transaction(context_.session.Connection());
    if (!data::RemoveRecallMaster(context_.session, id_)) {
      gone_ = true;
      throw Refusal(ToldBack(name_) + " is not there any more. Nothing was changed.");
    }
    transaction.Commit();
    return true;
  }

  bool Agrees() const {
    return context_.user.Ask({.text = "Deleting this selection will remove this recall type from all patients and "
                                      "their appointments. THIS CANNOT BE REVERSED.\r\n\r\nAre you sure you want to "
                                      "delete this recall from all patients?",
                              .title = "WARNING!!!",
                              .buttons = forms::kYesNo,
                              .icon = Icon::Critical,
                              .default_answer = Answer::No}) == Answer::Yes;
  }

  void ClearPatients() const {
    const forms::WaitText wait(context_.user, " Checking Recall, Please Wait... ");
    const std::int32_t patients = data::PatientsOfRecall(context_.session, id_);
    if (!StartRecallUtility(context_.session, id_)) {
      throw Refusal(
          "The recall was deleted, but the recall utility FXRECALL.EXE could not be started. Until it has "
          "run for recall " +
          std::to_string(id_) + ", " + std::to_string(patients) + " patient(s) keep this recall.");
    }
  }

  std::int32_t id_;
  const std::string& name_;
  bool gone_ = false;
};

}  // namespace

bool DeleteRecallMaster(const session::ScreenContext& context, std::int32_t recall, const std::string& name) {
  return RecallDeletion(context, recall, name).Run();
}

}  // namespace editing
