#include "data/coverages.h"

#include <array>

#include "data/literal.h"
#include "data/revocable.h"

namespace data {
namespace {

constexpr OrderedRows::Columns kColumns = {"CovTable",  "CovID",     "CovPatID", "CovOrd",
                                           "CovEndDat", "CovEndWho", "CovFla"};
constexpr std::array<Words, 5> kCarried = {"CovInsCoPatID", "CovYTD", "CovRemBal", "CovRemDed", "CovLastRenewalYear"};

Assignments Carried(const session::Recordset& row) {
  Assignments carried;
  for (const Words column : kCarried) {
    if (const session::Value value = row[column.Text()]; !session::IsNull(value)) {
      carried.emplace_back(column, ValueLiteral(value));
    }
  }
  return carried;
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

std::int32_t Coverages::Change(std::int32_t coverage, std::int32_t holding) const {
  const auto old = Find(coverage);
  return old ? Succeed(*old, holding, {}) : 0;
}

std::int32_t Coverages::Succeed(const Coverage& old, std::int32_t holding, const Assignments& carried) const {
  Assignments values = {{"CovPatID", Literal(old.patient)},       {"CovRel", Literal(old.relationship)},
                        {"CovSubPatEmpID", Literal(holding)},     {"CovOrd", Literal(old.order)},
                        {"CovStaDat", Literal(session_.Today())}, {"CovFla", "0"}};
  values.insert(values.end(), carried.begin(), carried.end());
  Revocable steps(statements_);
  steps.Run(rows_.End(old.id), rows_.OpenAgain(old.id));
  const std::int32_t successor = statements_.Insert("CovTable", values);
  steps.Keep();
  return successor;
}

void Coverages::Remove(std::int32_t coverage) const {
  if (const auto removed = Find(coverage)) {
    Revocable steps(statements_);
    steps.Run(rows_.End(coverage), rows_.OpenAgain(coverage));
    statements_.Execute(rows_.CloseGap(removed->patient, removed->order));
    steps.Keep();
  }
}

void Coverages::SetRelationship(std::int32_t coverage, std::int32_t relationship) const {
  statements_.Update("CovTable", {{"CovRel", Literal(relationship)}}, "CovID", coverage);
}

// What is removed moves the patient's later coverages up, so each is read again when its turn comes.
void Coverages::Move(std::int32_t from_holding, std::int32_t to_holding) const {
  for (const Coverage& due : Through(from_holding)) {
    const auto doubles = Read("(CovTable.CovPatID=" + Literal(due.patient) +
                              ") AND (CovTable.CovSubPatEmpID=" + Literal(to_holding) + ")");
    const auto moved = Find(due.id);
    if (!doubles.empty() && doubles.front().order <= moved->order) {
      Remove(due.id);
      continue;
    }
    for (const Coverage& later : doubles) {
      Remove(later.id);
    }
    Succeed(*moved, to_holding, moved->carried);
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

std::vector<Coverage> Coverages::Through(std::int32_t holding) const {
  return Read("(CovTable.CovSubPatEmpID=" + Literal(holding) + ")");
}

std::vector<Coverage> Coverages::Of(std::int32_t patient) const {
  return Read("(CovTable.CovPatID=" + Literal(patient) + ")");
}

std::vector<Coverage> Coverages::Read(const Sql& condition) const {
  std::vector<Coverage> coverages;
  for (const auto row =
           statements_.Select("SELECT * FROM CovTable WHERE (" + condition + " AND ((CovTable.CovFla)=0))" +
                              statements_.Office() + " ORDER BY CovPatID, CovOrd, CovID");
       !row->Eof(); row->MoveNext()) {
    const auto id = [&](Words column) { return session::ToId((*row)[column.Text()]); };
    coverages.push_back({id("CovID"), id("CovPatID"), id("CovSubPatEmpID"), id("CovOrd"), id("CovRel"), Carried(*row)});
  }
  return coverages;
}

int Coverages::Count(std::int32_t patient) const {
  return session::ToId(statements_.SelectValue(
      Sql("SELECT Count(CovTable.CovID) FROM (ELTable INNER JOIN PatEmpTable ON ELTable.elID = "
          "PatEmpTable.PatEmpElID") +
      statements_.OfficeJoin(" and (ELTable.OfficeID = PatEmpTable.OfficeID) ") +
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
