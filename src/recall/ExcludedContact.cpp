#include "recall/ExcludedContact.h"

#include "editing/editing_form.h"

namespace recall {

ExcludedContact::ExcludedContact(data::ReminderKind reminder_type) : ReminderType(reminder_type) {
  ExcludeMessage.Caption = "&Text Message";
  ExcludeEmail.Caption = "&e-Mail";
  ExcludeLetter.Caption = "&Letter";
  ExcludeCard.Caption = "&Post Card";
  ExcludeVoice.Caption = "&Voice Reminder";
  for (const Exclusion& exclusion : exclusions_) {
    exclusion.box.ToolTip = "Never sent to this patient";
    exclusion.box.Click = [this] { TakeChange(); };
  }
  Contacts.Arranged = [this] { TakeChange(); };
  Add("ExcludeMessage", ExcludeMessage);
  Add("ExcludeEmail", ExcludeEmail);
  Add("ExcludeLetter", ExcludeLetter);
  Add("ExcludeCard", ExcludeCard);
  Add("ExcludeVoice", ExcludeVoice);
  Add("Contacts", Contacts);
  Add("lblState", lblState);
}

void ExcludedContact::Show(const std::vector<std::int32_t>& order, std::int32_t excluded) {
  for (const Exclusion& exclusion : exclusions_) {
    const bool excludes = (excluded & static_cast<std::int32_t>(exclusion.method)) != 0;
    exclusion.box.Value = excludes ? forms::CheckState::On : forms::CheckState::Off;
  }
  Contacts.Show(order, Excluded());
  order_ = order;
  excluded_ = Excluded();
  ShowState();
}

void ExcludedContact::Use(bool used) {
  Enabled = used;
  ShowState();
}

void ExcludedContact::MarkWritten() {
  Contacts.ForgetExcluded();
  order_ = Order();
  Modified = false;
}

std::int32_t ExcludedContact::Excluded() const {
  std::int32_t methods = 0;
  for (const Exclusion& exclusion : exclusions_) {
    if (exclusion.box.Value == forms::CheckState::On) {
      methods |= static_cast<std::int32_t>(exclusion.method);
    }
  }
  return methods;
}

// What is excluded is seen in the order no more, and comes back to its place.
void ExcludedContact::TakeChange() {
  if (!editing::EditingForm::MayModify(*this)) {
    Show(order_, excluded_);
    return;
  }
  order_ = Contacts.WithExcluded();
  if (Excluded() != excluded_) {
    Contacts.Show(order_, Excluded());
  }
  excluded_ = Excluded();
  Modified = true;
  ShowState();
  Fire(Change);
}

void ExcludedContact::ShowState() {
  const std::string holds = !Enabled                     ? "not used by the practice."
                            : Contacts.SelectCount() > 0 ? "in the patient's own order."
                                                         : "as the practice's defaults say.";
  lblState.Caption = std::string(data::NameOf(ReminderType)) + ": " + holds;
}

}  // namespace recall
