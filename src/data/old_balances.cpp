#include "data/old_balances.h"

#include <algorithm>

#include "data/literal.h"

namespace data {
namespace {

// The renewal flag of some programs is no year.
Sql ValueOf(const OldBalance& balance, const session::Value& value) {
  const bool year = balance.column.Text() == "CovLastRenewalYear";
  return year && !IsBenefitYear(session::ToId(value)) ? Sql("Null") : ValueLiteral(value);
}

// In the order of `kOldBalances`; none when the patient is gone.
std::vector<session::Value> AmountsOf(const Statements& statements, std::int32_t patient) {
  const auto row = statements.Select("SELECT " + OldBalanceColumns() + " FROM PATable WHERE pID=" + Literal(patient) +
                                     statements.Office());
  std::vector<session::Value> amounts;
  for (std::size_t i = 0; i < kOldBalances.size() && !row->Eof(); ++i) {
    amounts.push_back(row->Get(i));
  }
  return amounts;
}

}  // namespace

Sql OldBalanceColumns() {
  Sql columns;
  for (const OldBalance& balance : kOldBalances) {
    columns += (columns.Empty() ? Sql() : Sql(", ")) + Sql(balance.old_column);
  }
  return columns;
}

bool HasOldBalances(const session::Recordset& patient) {
  return std::ranges::any_of(
      kOldBalances, [&](const OldBalance& balance) { return !session::IsNull(patient[balance.old_column.Text()]); });
}

bool CarryOldBalances(session::Session& session, std::int32_t patient) {
  const Statements statements(session);
  session::Transaction transaction(session.Connection());
  const std::vector<session::Value> amounts = AmountsOf(statements, patient);
  Assignments emptied;
  for (const Coverage& coverage : Coverages(session).Of(patient)) {
    Assignments carried;
    for (std::size_t i = 0; i < amounts.size(); ++i) {
      const OldBalance& balance = kOldBalances.at(i);
      if (coverage.live && balance.order == coverage.order && !session::IsNull(amounts[i])) {
        carried.emplace_back(balance.column, ValueOf(balance, amounts[i]));
        emptied.emplace_back(balance.old_column, Words("Null"));
      }
    }
    statements.Update("CovTable", carried, "CovID", coverage.id);
  }
  statements.Update("PATable", emptied, "pID", patient);
  transaction.Commit();
  return !emptied.empty();
}

}  // namespace data
