#pragma once

#include <array>
#include <functional>
#include <string>

#include "forms/check_box.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "people/work_hours.h"

namespace people {

// The days and times at which somebody works, picked from what there is.
class WorkHoursField {
 public:
  // The screen's own controls.
  struct Parts {
    std::array<forms::CheckBox, 7>& days;  // Monday first
    forms::ComboBox& start;
    forms::ComboBox& end;
    forms::Label& other_days;  // days that another program wrote, and that no boxes stand for
  };

  explicit WorkHoursField(const Parts& parts);

  // The person has picked something.
  std::function<void()> Picked;

  void Show(const WorkHours& hours);
  const WorkHours& Hours() const { return hours_; }
  const Parts& Fields() const { return parts_; }

 private:
  void PickDays();
  static void ShowTime(forms::ComboBox& box, const std::optional<std::chrono::minutes>& time);
  void PickTime(const forms::ComboBox& box, std::optional<std::chrono::minutes>& time) const;

  Parts parts_;
  WorkHours hours_;
};

}  // namespace people
