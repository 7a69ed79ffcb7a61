#include "people/location_schedules.h"

#include <algorithm>

#include "data/literal.h"

namespace people {

using data::Literal;

data::Sql LocationSchedules::StatusAt(std::int32_t status, std::int32_t location) const {
  return "SELECT EBTable.*, ESTable.* from (EBTable LEFT JOIN ESTable ON EBTable.EBID = ESTable.EBID" +
         statements_.OfficeJoin(" and (EBTable.OfficeID = ESTable.OfficeID) ") +
         ") WHERE ESTable.OffLocID=" + Literal(location) + " AND EBTable.EBID=" + Literal(status) +
         statements_.Office(" AND (EBTable.OfficeID=", ")");
}

LocationSchedules::Schedule LocationSchedules::Of(const Row& row) {
  const WorkHours hours = WorkHours::Of(row);
  return {session::ToId(row("ESID")), hours, hours};
}

LocationSchedules::Schedule LocationSchedules::Read(std::int32_t location) const {
  const auto row = statements_.Select(StatusAt(status_, location));
  return row->Eof() ? Schedule() : Of([&row](std::string_view column) { return (*row)[column]; });
}

void LocationSchedules::Begin(std::int32_t status, std::int32_t location, const Row& row) {
  status_ = status;
  schedules_.clear();
  schedules_.emplace(location, Of(row));
}

void LocationSchedules::BeginFurther(const std::vector<std::int32_t>& locations) {
  for (const std::int32_t location : locations) {
    Known(location);
  }
  for (auto& [location, schedule] : schedules_) {
    schedule = {.now = schedule.now};
  }
  status_ = 0;
}

LocationSchedules::Schedule& LocationSchedules::Known(std::int32_t location) {
  if (const auto known = schedules_.find(location); known != schedules_.end()) {
    return known->second;
  }
  return schedules_.emplace(location, status_ != 0 ? Read(location) : Schedule()).first->second;
}

bool LocationSchedules::Changed() const {
  return !ChangedAt().empty();
}

bool LocationSchedules::Entered() const {
  return std::ranges::any_of(schedules_, [](const auto& at) { return !at.second.now.Empty(); });
}

std::vector<std::int32_t> LocationSchedules::ChangedAt() const {
  std::vector<std::int32_t> changed;
  for (const auto& [location, schedule] : schedules_) {
    if (schedule.now != schedule.stored) {
      changed.push_back(location);
    }
  }
  return changed;
}

bool LocationSchedules::UsedAt(std::int32_t location) const {
  return session::ToId(statements_.SelectValue(
             "SELECT Count(ESTable.EBID) from ESTable WHERE ESTable.OffLocID=" + Literal(location) +
             " AND ESTable.EBID=" + Literal(status_) + statements_.Office())) > 0;
}

// A location may have been given a schedule by somebody else meanwhile.
void LocationSchedules::Write(std::int32_t status) {
  status_ = status;
  const forms::Date today = session_.Today();
  for (const std::int32_t location : ChangedAt()) {
    Schedule& schedule = schedules_[location];
    data::Assignments values = schedule.now.Values(today);
    if (schedule.row == 0 && UsedAt(location)) {
      schedule.row = Read(location).row;
    }
    if (schedule.row != 0) {
      statements_.Update("ESTable", values, "ESID", schedule.row);
    } else {
      values.insert(values.begin(), {{"EBID", Literal(status_)}, {"OffLocID", Literal(location)}});
      schedule.row = statements_.Insert("ESTable", std::move(values));
    }
    schedule.stored = schedule.now;
  }
}

}  // namespace people
