#include "data/coverages.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "data/literal.h"
#include "data/plan_links.h"

namespace data {
namespace {

constexpr std::array<Words, 5> kBenefits = {"CovInsCoPatID", "CovYTD", "CovRemBal", "CovRemDed", "CovLastRenewalYear"};

Assignments BenefitsOf(const session::Recordset& row) {
  Assignments benefits;
  for (const Words column : kBenefits) {
    if (const session::Value value = row[column.Text()]; !session::IsNull(value)) {
      benefits.emplace_back(column, ValueLiteral(value));
    }
  }
  return benefits;
}

}  // namespace

Coverages::Coverages(session::Session& session) : session_(session), statements_(session), rows_(session, kColumns) {}

std::int32_t Coverages::Add(std::int32_t patient, std::int32_t holding, std::int32_t relationship) const {
  return statements_.Insert("CovTable", {{"CovPatID", Literal(patient)},
                                         {"CovRel", Literal(relationship)},
                                         {"CovSubPatEmpID", Literal(holding)},
                                         {"CovOrd", Literal(rows_.NextOrder(patient))},
                                         {"CovStaDat", Literal(session_.Today())},
                                         {"CovFla", "0"}});
}

void Coverages::Change(std::int32_t coverage, std::int32_t holding) const {
  if (const auto old = Find(coverage)) {
    Succeed(*old, holding, {});
  }
}

void Coverages::Succeed(const Coverage& old, std::int32_t holding, const Assignments& benefits) const {
  if (old.live) {
    rows_.BeginToEnd(old.id);
  }
  try {
    const bool free = rows_.IsFree(old.patient, old.order);
    InsertLike(old, holding, free ? old.order : rows_.NextOrder(old.patient), benefits);
  } catch (const session::DatabaseError&) {
    rows_.OpenAgain(old.id);
    throw;
  }
  rows_.SetEnded(old.id);
}

void Coverages::InsertLike(const Coverage& old, std::int32_t holding, std::int32_t order,
                           const Assignments& benefits) const {
  Assignments values = {{"CovPatID", Literal(old.patient)},       {"CovRel", Literal(old.relationship)},
                        {"CovSubPatEmpID", Literal(holding)},     {"CovOrd", Literal(order)},
                        {"CovStaDat", Literal(session_.Today())}, {"CovFla", "0"}};
  values.insert(values.end(), benefits.begin(), benefits.end());
  statements_.Insert("CovTable", values);
}

void Coverages::Exchange(const Coverage& one, const Coverage& other) const {
  for (const Coverage* old : {&one, &other}) {
    rows_.BeginToEnd(old->id);
    rows_.SetEnded(old->id);
  }
  InsertLike(one, one.holding, other.order, one.benefits);
  InsertLike(other, other.holding, one.order, other.benefits);
}

void Coverages::Remove(std::int32_t coverage) const {
  if (const auto removed = Find(coverage)) {
    if (removed->live) {
      rows_.BeginToEnd(coverage);
    }
    rows_.CloseGap(removed->patient);
    rows_.SetEnded(coverage);
  }
}

void Coverages::SetRelationship(std::int32_t coverage, std::int32_t relationship) const {
  statements_.Update("CovTable", {{"CovRel", Literal(relationship)}}, "CovID", coverage);
}

void Coverages::SetCarrierId(std::int32_t coverage, std::string_view id) const {
  statements_.Update("CovTable", {{"CovInsCoPatID", id.empty() ? Sql("Null") : Literal(id)}}, "CovID", coverage);
}

// What is removed moves the patient's later coverages up, so each is read again when its turn comes. One that was
// ending already and whose patient the other holding covers has its successor there.
void Coverages::Move(std::int32_t from_holding, std::int32_t to_holding) const {
  for (const Coverage& due : Through(from_holding)) {
    std::vector<Coverage> doubles;
    for (const Coverage& there : Read("(CovTable.CovPatID=" + Literal(due.patient) +
                                      ") AND (CovTable.CovSubPatEmpID=" + Literal(to_holding) + ")")) {
      if (there.live) {
        doubles.push_back(there);
      } else {
        Remove(there.id);
      }
    }
    const auto moved = Find(due.id);
    if (!moved) {  // ended meanwhile
      continue;
    }
    if (!doubles.empty() && (!moved->live || doubles.front().order <= moved->order)) {
      Remove(moved->id);
      continue;
    }
    for (const Coverage& later : doubles) {
      Remove(later.id);
    }
    Succeed(*moved, to_holding, moved->benefits);
  }
}

void Coverages::RemoveThrough(std::int32_t holding) const {
  for (const Coverage& coverage : Through(holding)) {
    Remove(coverage.id);
  }
}

std::optional<Coverage> Coverages::Find(std::int32_t coverage) const {
  const auto found = Read("((CovTable.CovID)=" + Literal(coverage) + ")");
  return found.empty() ? std::nullopt : std::optional(found.front());
}

std::optional<Coverage> Coverages::Live(std::int32_t coverage) const {
  const auto row = statements_.Select("SELECT * FROM CovTable WHERE ((CovTable.CovID)=" + Literal(coverage) +
                                      ") AND ((CovTable.CovFla)=0)" + statements_.Office());
  return row->Eof() ? std::nullopt : std::optional(CoverageIn(*row));
}

std::vector<Coverage> Coverages::Through(std::int32_t holding) const {
  return Read("((CovTable.CovSubPatEmpID)=" + Literal(holding) + ")");
}

std::vector<Coverage> Coverages::Of(std::int32_t patient) const {
  return Read("(CovTable.CovPatID=" + Literal(patient) + ")");
}

std::vector<Coverage> Coverages::Read(const Sql& condition) const {
  std::vector<Coverage> coverages;
  for (const auto row = statements_.Select(
           "SELECT * FROM CovTable WHERE (" + condition + " AND (((CovTable.CovFla)=0) OR ((CovTable.CovFla)=" +
           Literal(OrderedRows::kEnding) + ")))" + statements_.Office() + " ORDER BY CovPatID, CovOrd, CovID");
       !row->Eof(); row->MoveNext()) {
    coverages.push_back(CoverageIn(*row));
  }
  std::ranges::stable_sort(coverages, {}, [](const Coverage& coverage) {
    return std::tuple(coverage.patient, OrderedRows::PlaceOf(coverage.order));
  });
  return coverages;
}

Coverage Coverages::CoverageIn(const session::Recordset& row) {
  const auto number = [&](std::string_view column) { return session::ToId(row[column]); };
  return {number("CovID"),  number("CovPatID"), number("CovSubPatEmpID"),
          number("CovOrd"), number("CovRel"),   number("CovFla") == OrderedRows::kLive,
          BenefitsOf(row)};
}

int Coverages::Count(std::int32_t patient) const {
  return session::ToId(statements_.SelectValue(
      "SELECT Count(CovTable.CovID) FROM (" + HoldingsOnLinks(statements_) +
      ") INNER JOIN CovTable ON PatEmpTable.PatEmpID = CovTable.CovSubPatEmpID" +
      statements_.OfficeJoin(" and (PatEmpTable.OfficeID = CovTable.OfficeID) ") + " WHERE (CovTable.CovPatID=" +
      Literal(patient) + ") AND (CovTable.CovFla=0) AND (PatEmpTable.PatEmpFla=0) AND (ELTable.elFla=0)" +
      statements_.Office(" and (CovTable.OfficeID = ", ") ")));
}

std::int32_t Coverages::LinkOf(std::int32_t coverage) const {
  return session::ToId(statements_.SelectValue(
      Sql("SELECT PatEmpTable.PatEmpElID FROM CovTable INNER JOIN PatEmpTable ON CovTable.CovSubPatEmpID = "
          "PatEmpTable.PatEmpID") +
      statements_.OfficeJoin(" and (CovTable.OfficeID = PatEmpTable.OfficeID) ") +
      " WHERE (CovTable.CovID=" + Literal(coverage) + ")" + statements_.Office(" and (CovTable.OfficeID = ", ") ")));
}

}  // namespace data
