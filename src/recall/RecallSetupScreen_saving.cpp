#include <algorithm>
#include <utility>

#include "editing/recall_utility.h"
#include "forms/text.h"
#include "recall/RecallSetupScreen.h"

namespace recall {
namespace {

constexpr std::size_t kMostPeriod = 5;  // characters, with the unit

}  // namespace

void RecallSetupScreen::WireSaving() {
  Edits(record_);
  const auto always = [] { return true; };
  const auto adding = [this] { return Adding(); };
  OnSave(always, [this] { Write(); });
  OnSave(adding, [this] { Hold("RSTABLE", record_.Id()); });
  OnSave([this] { return picSend.SettingsChanged(); }, [this] { picSend.SaveSettings(); });
  OnSave([this] { return StagesChanged(); }, [this] { RefreshRecalls(); });
  OnSave(always, [this] {
    context_.session.RecordHandOff("RCRecNum", "RSTABLE", record_.Id());
    db.Cancel.Caption = "Close";
  });
}

bool RecallSetupScreen::Save_Record() {
  return MayModify() && Save();
}

bool RecallSetupScreen::Differs() const {
  return record_.Changed() || !(stages_ == stored_) || picSend.SettingsChanged();
}

bool RecallSetupScreen::Check() {
  if (Unsaved() && !StageWithinBounds()) {
    return false;
  }
  if (forms::Trim(txtName.Text.get()).empty()) {
    context_.user.Tell("You must provide a title for this recall setup before it can be saved.", "Save Recall Setup",
                       forms::Icon::Information);
    txtName.SetFocus();
    return false;
  }
  if (lblData[kPeriod].Caption.get().size() > kMostPeriod) {
    Tell("The number of the recall period cannot exceed 9999.", forms::Icon::Information);
    txtPeriod.SetFocus();
    return false;
  }
  return true;
}

// Where the stages alone have changed, nothing else asks.
bool RecallSetupScreen::Agreed() {
  if (!Adding() && !store_.IsThere(record_.Id())) {
    throw editing::Refusal(std::string(editing::kDeletedMeanwhile));
  }
  return true;
}

// The button says what it does; the close box offers to save first.
RecallSetupScreen::ClosingQuestion RecallSetupScreen::OnClosing() const {
  ClosingQuestion question = EditingForm::OnClosing();
  if (!cancelling_ && !question.offers_to_save) {
    question = {.text = "Changes to this recall have not been saved. Save now?",
                .title = "Recall Setup",
                .offers_to_save = true};
  }
  return question;
}

bool RecallSetupScreen::QueryClose() {
  return (cancelling_ || !Unsaved() || StageWithinBounds()) && EditingForm::QueryClose();
}

bool RecallSetupScreen::StagesChanged() const {
  const auto same = [this](int place) {
    const Stage* now = stages_.At(place);
    const Stage* before = stored_.At(place);
    return now == nullptr || before == nullptr
               ? now == before
               : now->period == before->period && now->sequence == before->sequence && !now->assumed;
  };
  bool all_same = true;
  for (int place = RecallStages::kDue; place <= RecallStages::kStop; ++place) {
    all_same = all_same && same(place);
  }
  return Adding() || !all_same || record_.Changed(lblData[kPeriod]) || record_.Changed(txtServices);
}

// The recall with its stages, in all the places that say it.
void RecallSetupScreen::Write() {
  RecallStages written = stages_;
  for (const int place : written.Places()) {
    Notices& notices = written.At(place)->notices;
    notices = Completed(std::move(notices));
  }
  session::Transaction transaction(context_.session.Connection());
  const std::int32_t recall = Adding() ? record_.WriteNew() : record_.Id();
  if (!Adding()) {
    record_.Write();
  }
  store_.Write(recall, stored_, written);
  store_.Mirror(recall, written);
  transaction.Commit();
  if (Adding()) {
    record_.MarkInserted(recall);
  } else {
    record_.MarkUpdated();
  }
  stages_ = stored_ = std::move(written);
  due_off_.reset();
  ShowNotices();
}

// The utility works out the patients' recalls anew. The recall is saved, whether it starts or not.
void RecallSetupScreen::RefreshRecalls() {
  if (!editing::StartRecallUtility(context_.session, record_.Id())) {
    Tell(
        "The recall utility FXRECALL.EXE could not be started.\r\nThis recall is saved; its patients are brought up to "
        "date the next time that the utility runs.",
        forms::Icon::Exclamation);
  }
}

}  // namespace recall
