#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/statements.h"

namespace data {

// A plan as its details know it: by carrier and group number.
struct PlanKey {
  std::int32_t carrier = 0;
  std::string group_number{};

  // The office's own plan, from which default coverage is taken.
  static PlanKey Global();
  bool IsGlobal() const;
  // Without a carrier or a number there are no details: those of carrier 0 are the office's own.
  bool IsOfCarrier() const { return carrier != 0 && !group_number.empty(); }
};

// The condition that the column is that group number; null is as good as an empty one.
Sql OrNull(const Sql& is_number, Words column, std::string_view number);

// What a plan covers of one treatment code. Fees and maximums are money, coverages and usual fees (UCR) percentages
// of 0 to 100, deductible flags 'Y' or 'N'.
struct PlanDetail {
  enum Column : std::size_t {
    kCode,
    kModifier,
    kDescription,
    kFee,
    kCoverage,
    kMaximum,
    kDeductible,
    kUcr,
    kPeriod,
    kTimes,
    kSecondaryFee,
    kSecondaryCoverage,
    kSecondaryMaximum,
    kSecondaryDeductible,
    kSecondaryUcr,
    kSecondaryPeriod,
    kSecondaryTimes,
    kStart,
    kCategory,
    kColumns
  };

  std::int32_t id = 0;  // `IPRecNum`; 0 while it is not stored
  std::string plan_name = {};
  std::array<session::Value, kColumns> values = {};

  std::string Text(Column column) const { return session::ToText(values.at(column)); }
};

// By code and modifier, without regard to case.
bool CodeComesBefore(const PlanDetail& left, const PlanDetail& right);

Words DetailColumn(PlanDetail::Column column);

// The details of one plan: `IPTable`. All throw session::DatabaseError.
class PlanDetails {
 public:
  PlanDetails(session::Database& database, PlanKey plan) : statements_(database), plan_(std::move(plan)) {}

  struct Found {
    std::vector<PlanDetail> details;                // by code and modifier
    std::array<int, PlanDetail::kColumns> rooms{};  // characters of a text column; 0 is unlimited
  };
  Found Read() const;

  // The new row's ID.
  std::int32_t Insert(const PlanDetail& detail) const;
  // Writes the columns that differ. False when the row is there no more.
  bool Update(const PlanDetail& before, const PlanDetail& detail) const;
  void Delete(std::int32_t id) const;
  // In every row of the plan of that category.
  void ChangeCategory(std::string_view category, PlanDetail::Column column, const session::Value& value) const;

 private:
  Sql OfPlan() const;

  Statements statements_;
  PlanKey plan_;
};

// What details ask of a group plan; what is not there is empty.
struct GroupPlan {
  PlanKey key = {};
  std::string name = {};
  std::string category = {};  // "PPO", "CAPITATION"
};
// Nothing when there is no such plan. Throws session::DatabaseError.
std::optional<GroupPlan> ReadGroupPlan(session::Database& database, std::int32_t plan);
// The group plans of that carrier and number, which have their details in common, by ID. Throws
// session::DatabaseError.
std::vector<std::int32_t> PlansWithDetails(session::Database& database, const PlanKey& plan);

struct ServiceCode {
  std::int32_t id = 0;
  std::string code;
  std::string description;
};
// What the login's location charges, by code; for a login without one the office's first. Throws
// session::DatabaseError.
std::vector<ServiceCode> ServiceCodesOf(session::Database& database, std::string_view login);
// "FROM SevCodTable WHERE ...": of the same.
Sql FromServiceCodes(const Statements& statements, std::string_view login);

}  // namespace data
