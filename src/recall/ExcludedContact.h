#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "data/reminders.h"
#include "forms/check_box.h"
#include "forms/label.h"
#include "forms/user_control.h"
#include "recall/cltContactSlection.h"

namespace recall {

// How one kind of reminder reaches a patient: by which methods never, and by which others in which order. Without an
// order of his own the practice's defaults hold.
class ExcludedContact : public forms::UserControl {
 public:
  explicit ExcludedContact(data::ReminderKind reminder_type);

  const data::ReminderKind ReminderType;
  // A person changed something.
  bool Modified = false;

  forms::CheckBox ExcludeMessage;
  forms::CheckBox ExcludeEmail;
  forms::CheckBox ExcludeLetter;
  forms::CheckBox ExcludeCard;
  forms::CheckBox ExcludeVoice;
  cltContactSlection Contacts;
  forms::Label lblState;

  std::function<void()> Change;

  void Show(const std::vector<std::int32_t>& order, std::int32_t excluded);
  // Whether the practice uses the kind: one that it does not is only shown.
  void Use(bool used);
  // What it shows is stored now.
  void MarkWritten();
  // Without what is excluded.
  std::vector<std::int32_t> Order() const { return Contacts.ChosenData(); }
  // The sum of the methods.
  std::int32_t Excluded() const;
  // The patient has settings of his own.
  bool Selected() const { return Contacts.SelectCount() > 0 || Excluded() != 0; }

 private:
  struct Exclusion {
    forms::CheckBox& box;
    data::ContactMethod method;
  };

  void TakeChange();
  void ShowState();

  const std::array<Exclusion, 5> exclusions_{{{ExcludeMessage, data::ContactMethod::TextMessage},
                                              {ExcludeEmail, data::ContactMethod::Email},
                                              {ExcludeLetter, data::ContactMethod::Letter},
                                              {ExcludeCard, data::ContactMethod::PostCard},
                                              {ExcludeVoice, data::ContactMethod::Voice}}};
  // As the person last left it; what he excluded stays in the order until that is stored.
  std::vector<std::int32_t> order_;
  std::int32_t excluded_ = 0;
};

}  // namespace recall
