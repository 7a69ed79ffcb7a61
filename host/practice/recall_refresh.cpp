#include "practice/recall_refresh.h"

#include <chrono>
#include <vector>

#include "data/literal.h"
#include "data/statements.h"

namespace host {
namespace {

using data::Literal;

struct Tracked {
  std::int32_t row = 0;
  std::optional<forms::DateTime> last_visit;
  std::optional<forms::DateTime> due;
};

std::vector<Tracked> PatientsOf(const data::Statements& statements, std::int32_t recall) {
  std::vector<Tracked> patients;
  for (const auto rows = statements.Select(
           "SELECT rRecNum, rLasDat, rDueDat FROM RecTable WHERE rRCRecNum=" + Literal(recall) + statements.Office());
       !rows->Eof(); rows->MoveNext()) {
    patients.push_back({session::ToId((*rows)["rRecNum"]), session::ToDateTime((*rows)["rLasDat"]),
                        session::ToDateTime((*rows)["rDueDat"])});
  }
  return patients;
}

}  // namespace

std::optional<forms::Date> DueDate(forms::Date last_visit, const forms::PeriodCode& period) {
  constexpr std::chrono::year kLastYear(9999);
  if (period.number <= 0) {
    return std::nullopt;
  }
  forms::Date due = last_visit;
  switch (period.unit) {
    case forms::PeriodUnit::Days:
      due = std::chrono::sys_days(last_visit) + std::chrono::days(period.number);
      break;
    case forms::PeriodUnit::Months:
      due = last_visit + std::chrono::months(period.number);
      break;
    case forms::PeriodUnit::Years:
      due = last_visit + std::chrono::years(period.number);
      break;
  }
  if (due.year() > kLastYear) {
    return std::nullopt;
  }
  return due.ok() ? due : due.year() / due.month() / std::chrono::last;
}

RefreshedRecall RefreshRecall(OfficeDatabase& office, std::int32_t recall) {
  if (recall <= 0) {
    return {};  // rows with such a number belong to no recall
  }
  const data::Statements statements(office);
  session::Transaction transaction(office.Connection());
  const auto master =
      statements.Select("SELECT RCRecPer FROM RSTable WHERE RCRecNum=" + Literal(recall) + statements.Office());
  RefreshedRecall refreshed{.there = !master->Eof()};
  const auto period = refreshed.there ? forms::PeriodCode::Parse(session::ToText(master->Get(0))) : std::nullopt;
  const std::vector<Tracked> patients = PatientsOf(statements, recall);
  refreshed.patients = static_cast<int>(patients.size());
  if (!refreshed.there) {
    statements.Execute("DELETE * FROM RecTable WHERE rRCRecNum=" + Literal(recall) + statements.Office());
    refreshed.moved = refreshed.patients;
  }
  for (const Tracked& patient : patients) {
    const auto due = period && patient.last_visit ? DueDate(forms::DateOf(*patient.last_visit), *period) : std::nullopt;
    if (due && patient.due != forms::AtMidnight(*due)) {
      statements.Update("RecTable", {{"rDueDat", Literal(*due)}}, "rRecNum", patient.row);
      ++refreshed.moved;
    }
  }
  transaction.Commit();
  return refreshed;
}

}  // namespace host
