#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "editing/rules.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/user_control.h"

namespace people {

// The choice of the office location whose schedule and rights of an employee are shown, and changed.
class EmployeeLocations : public forms::UserControl, private editing::Rules {
 public:
  explicit EmployeeLocations(const session::ScreenContext& context);

  forms::Label lblLocation;
  forms::ComboBox cboLocation;

  // Another choice was made: shows it, or throws session::DatabaseError.
  std::function<void()> Switched;

  // Fills the choice; the primary location is chosen. Throws session::DatabaseError.
  void Read();
  // Every location of the office, the primary one first; an office that has none has location 0.
  const std::vector<std::int32_t>& All() const { return all_; }
  // What is changed is changed at these.
  std::vector<std::int32_t> Chosen() const;
  // Of the chosen ones, the first.
  std::int32_t Shown() const { return Chosen().front(); }
  // False when the choice does not offer it.
  bool Choose(std::int32_t location);
  std::string NameOf(std::int32_t location) const;

 protected:
  std::string Scope() const override { return {}; }

 private:
  std::vector<std::int32_t> all_ = {0};
  int shown_ = -1;
};

}  // namespace people
