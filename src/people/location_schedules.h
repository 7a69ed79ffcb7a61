#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

#include "data/statements.h"
#include "people/work_hours.h"

namespace people {

// The schedules of one payroll status, a row for each location. What is changed waits to be written. All throw
// session::DatabaseError.
class LocationSchedules {
 public:
  explicit LocationSchedules(session::Session& session) : session_(session), statements_(session) {}

  // The statement for a status with its schedule at the location; it has no row where there is none.
  data::Sql StatusAt(std::int32_t status, std::int32_t location) const;

  // Of this status from now on; 0 for one that is not stored yet. What `StatusAt` gave for the location, by column.
  using Row = std::function<session::Value(std::string_view column)>;
  void Begin(std::int32_t status, std::int32_t location, const Row& row);
  // A further status, with the schedules of this one.
  void BeginFurther(const std::vector<std::int32_t>& locations);

  // Empty where there is none.
  const WorkHours& At(std::int32_t location) { return Known(location).now; }
  void Put(std::int32_t location, const WorkHours& hours) { Known(location).now = hours; }
  bool Changed() const;
  // A schedule was entered at any location.
  bool Entered() const;
  std::vector<std::int32_t> ChangedAt() const;

  // Writes what has changed; the rest of it where writing stopped before.
  void Write(std::int32_t status);

 private:
  struct Schedule {
    std::int32_t row = 0;  // 0 for none
    WorkHours stored = {};
    WorkHours now = {};
  };

  static Schedule Of(const Row& row);
  Schedule Read(std::int32_t location) const;
  Schedule& Known(std::int32_t location);
  bool UsedAt(std::int32_t location) const;

  session::Session& session_;
  data::Statements statements_;
  std::int32_t status_ = 0;
  std::map<std::int32_t, Schedule> schedules_;  // by location, those that were needed
};

}  // namespace people
