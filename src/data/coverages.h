#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "data/ordered_rows.h"

namespace data {

// A patient's coverage through a subscriber's holding.
struct Coverage {
  std::int32_t id = 0;
  std::int32_t patient = 0;
  std::int32_t holding = 0;
  std::int32_t order = 0;
  std::int32_t relationship = 0;
  bool live = true;           // or ending
  Assignments benefits = {};  // the patient's ID at the carrier, and his benefit amounts
};

// The coverages of patients: `CovTable`. A patient's live ones are ordered 1, 2, 3; a changed or removed one ends. What
// stops half-way is finished when the same is asked for again. All throw session::DatabaseError.
class Coverages {
 public:
  static constexpr OrderedRows::Columns kColumns = {"CovTable",  "CovID",     "CovPatID", "CovOrd",
                                                    "CovEndDat", "CovEndWho", "CovFla"};

  explicit Coverages(session::Session& session);

  // Behind the patient's other coverages; its ID.
  std::int32_t Add(std::int32_t patient, std::int32_t holding, std::int32_t relationship) const;
  // Another holding covers the patient, in the same order and relationship.
  void Change(std::int32_t coverage, std::int32_t holding) const;
  // Two of a patient's take each other's order, with all that they have: both end and are inserted again.
  void Exchange(const Coverage& one, const Coverage& other) const;
  void Remove(std::int32_t coverage) const;
  // Gives a patient's live coverages the orders 1, 2, 3 where older programs left gaps, doubles or none.
  void Renumber(std::int32_t patient) const { rows_.Renumber(patient); }
  void SetRelationship(std::int32_t coverage, std::int32_t relationship) const;
  // The patient's ID at the carrier; without a text there is none.
  void SetCarrierId(std::int32_t coverage, std::string_view id) const;

  // Everybody's coverages through a holding go through another one, and the benefits with them. Of a patient whom both
  // cover the earlier coverage stays.
  void Move(std::int32_t from_holding, std::int32_t to_holding) const;
  void RemoveThrough(std::int32_t holding) const;
  // Everybody's through a holding, live or ending, by patient and order.
  std::vector<Coverage> Through(std::int32_t holding) const;

  // Nothing when it has ended.
  std::optional<Coverage> Live(std::int32_t coverage) const;
  // A patient's coverages, live or ending, in their order; those without one last.
  std::vector<Coverage> Of(std::int32_t patient) const;
  // A patient's coverages whose holding and link are live as well.
  int Count(std::int32_t patient) const;
  // The link of employer and plan behind a coverage; 0 when there is none.
  std::int32_t LinkOf(std::int32_t coverage) const;

 private:
  // Of coverages that are live or ending.
  std::vector<Coverage> Read(const Sql& condition) const;
  static Coverage CoverageIn(const session::Recordset& row);
  std::optional<Coverage> Find(std::int32_t coverage) const;
  void Succeed(const Coverage& old, std::int32_t holding, const Assignments& benefits) const;
  void InsertLike(const Coverage& old, std::int32_t holding, std::int32_t order, const Assignments& benefits) const;

  session::Session& session_;
  Statements statements_;
  OrderedRows rows_;
};

}  // namespace data
