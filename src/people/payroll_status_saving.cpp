#include "people/payroll_status.h"

namespace people {

bool PayrollStatus::Unsaved() const {
  return Status.Changed() || schedules_.Changed();
}

bool PayrollStatus::Sound(std::int32_t location) {
  const WorkHours& hours = schedules_.At(location);
  const bool timed = hours.start && hours.end && *hours.start < *hours.end;
  if (hours.Empty() || (timed && !hours.days.empty())) {
    return true;
  }
  Tell("A schedule needs at least one day, and a time to start and a later one to end (" + locations_.NameOf(location) +
       ").");
  return false;
}

bool PayrollStatus::Check() {
  if (!Unsaved()) {
    return true;
  }
  if (!EffectiveDate.Take() || !RenewalDate.Take() || !TakeNumbers()) {
    return false;
  }
  if (Ben_Txt[kEffective].Text->empty() && (person_ != 0 || !Adding())) {
    Tell("The effective date of a payroll status cannot be blank.", forms::Icon::Information);
    Ben_Txt[kEffective].SetFocus();
    return false;
  }
  for (const std::int32_t location : schedules_.ChangedAt()) {
    if (!Sound(location)) {
      cboStart.SetFocus();
      return false;
    }
  }
  return true;
}

void PayrollStatus::GiveDefaults(forms::Date since) {
  if (Ben_Txt[kEffective].Text->empty()) {
    Ben_Txt[kEffective].Text = forms::FormatDashed(since);
  }
  if (full_time_.Caption->empty()) {
    full_time_.Caption = "1";
    ShowOptions();
  }
  if (schedules_.Entered()) {
    return;
  }
  const WorkHours office = WorkHours::Of(context_.session.DefaultSchedule());
  for (const std::int32_t location : locations_.All()) {
    schedules_.Put(location, office);
  }
  FollowPrimary();
  ShowSchedule();
  context_.user.Tell(
      "You did not enter a schedule for this new employee. The default office schedule has been entered for you.",
      "New Employee Status");
}

void PayrollStatus::Insert(std::int32_t person) {
  person_ = person;
  of_person_.Caption = std::to_string(person);
  created_by_.Caption = context_.session.UserName();
  created_.Caption = forms::FormatDashed(context_.session.Today());
  Status.Insert();
  agreed_date_ = Ben_Txt[kEffective].Text;
  inserted_ = true;
}

void PayrollStatus::Update() {
  modified_by_.Caption = context_.session.UserName();
  modified_.Caption = forms::FormatDashed(context_.session.Today());
  Status.Update();
}

void PayrollStatus::ShowSaved() {
  inserted_ = false;
  ShowHistory();
  ShowStatus();
}

void PayrollStatus::ShowTaken() {
  agreed_date_ = Ben_Txt[kEffective].Text;
  ShowOptions();
}

}  // namespace people
