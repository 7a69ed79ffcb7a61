#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "data/record_binding.h"
#include "editing/date_field.h"
#include "editing/kept_layout.h"
#include "editing/rules.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text_box.h"
#include "forms/user_control.h"
#include "people/employee_locations.h"
#include "people/location_schedules.h"
#include "people/work_hours_field.h"

namespace people {

// An employee's payroll statuses, the newest first, and the one that is chosen: what he earns from a date on, and when
// he works at each location. Changes wait for the screen's save.
class PayrollStatus : public forms::UserControl, private editing::Rules {
 public:
  // Positions in `Ben_Txt` and, for the captions beside them, in `Ben_LBL`.
  enum Field : std::size_t {
    kEffective,
    kDepartment,
    kAmount,
    kVacation,
    kSick,
    kPersonal,
    kRenewal,
    kReason,
  };
  // Further positions in `Ben_LBL`.
  enum Text : std::size_t { kStart = 8, kEnd, kOtherDays, kStamps, kLockedBecause };
  // Positions in `Ben_CMD`.
  enum Command : std::size_t { kNew, kRemove, kPickEffective, kPickRenewal };
  // Positions in `Ben_Opt` and in `PayBy_Opt`.
  enum Employment : std::size_t { kFullTime, kPartTime };
  enum PayBy : std::size_t { kByYear, kByHour };

  PayrollStatus(const session::ScreenContext& context, const EmployeeLocations& locations);

  forms::Grid Ben_TDBG;
  std::array<forms::Button, 4> Ben_CMD;
  std::array<forms::TextBox, 8> Ben_Txt;
  std::array<forms::Label, 13> Ben_LBL;
  std::array<forms::Panel, 2> BenPic;  // what `Ben_Opt` chooses; the schedule
  forms::Panel PayBy_Pic;
  std::array<forms::OptionButton, 2> Ben_Opt;
  std::array<forms::OptionButton, 2> PayBy_Opt;
  std::array<forms::CheckBox, 7> Ben_Chk;  // the days, Monday first
  forms::ComboBox cboStart;
  forms::ComboBox cboEnd;
  data::RecordBinding Status;  // the screen `Edits` it
  editing::DateField EffectiveDate;
  editing::DateField RenewalDate;
  WorkHoursField Hours;

  // Saves the screen; false when that was kept from happening.
  std::function<bool()> SaveScreen;

  // Reads the history and the newest status, of nobody yet for person 0; comes when the screen knows whether it may be
  // changed. Throws session::DatabaseError.
  void Read(std::int32_t person);
  // Payroll statuses of one whose employment has ended are only looked at.
  void SetTerminated(bool terminated);
  // Shows the schedule at the location that is chosen now.
  void ShowSchedule();
  bool Unsaved() const;
  // A status that is there already has changed.
  bool Updates() const { return Unsaved() && !Adding() && (!inserted_ || Status.Changed()); }
  // Whether it can be saved; says why not, and puts the focus there.
  bool Check();
  // The last word before a new employee is saved: what he starts with, from the date on.
  void GiveDefaults(forms::Date since);

  // The steps of a save: a new status is inserted, one that has changed updated; then its schedules. They throw
  // session::DatabaseError.
  bool Adding() const { return Status.Id() == 0; }
  void Insert(std::int32_t person);
  void Update();
  void WriteSchedules() { schedules_.Write(Status.Id()); }
  void ShowSaved();
  // Values that another user has stored stand in the place of what was typed.
  void ShowTaken();

  // When the screen closes.
  void KeepLayout() { layout_.Keep(); }

 protected:
  // The controls have the screen's names.
  std::string Scope() const override { return {}; }

 private:
  void Register();
  void AddColumns();
  void Bind();
  void Wire();
  bool MayModify() const;
  bool MayBeChanged() const;
  void Lock();
  void ShowHistory();
  void ReadStatus(std::int32_t status);
  void ShowStatus();
  void ShowOptions();
  void ShowStamps();
  void GoToRow();
  // Whether the status that is shown may be left: it is as it was, or the person has decided about his changes.
  bool MayLeave();
  void PointAtStatus();
  // 0 where there is no such row.
  std::int32_t StatusIn(int row) const;
  void AskAboutDate();
  void New();
  void Remove();
  void TakeHours();
  // The status repeats the schedule of the primary location.
  void FollowPrimary();
  // False when an amount or a number of hours cannot be read: the person is told, and the focus is there.
  bool TakeNumbers();
  bool Sound(std::int32_t location);

  const EmployeeLocations& locations_;
  LocationSchedules schedules_;
  editing::KeptLayout layout_;
  forms::OptionGroup employment_{&Ben_Opt[kFullTime], &Ben_Opt[kPartTime]};
  forms::OptionGroup pay_by_{&PayBy_Opt[kByYear], &PayBy_Opt[kByHour]};
  // Columns that no field of the screen shows as they are; the schedule is that of the primary location.
  forms::Label of_person_, full_time_, paid_by_, days_, times_, start_, end_;
  forms::Label created_by_, created_, modified_by_, modified_;
  std::int32_t person_ = 0;
  bool inserted_ = false;  // by a save that has not ended
  bool terminated_ = false;
  std::string agreed_date_;  // the effective date that was stored, or that the person has agreed to
};

}  // namespace people
