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

bool IsAmount(const session::Value& value) {
  return session::ToText(value).find_first_of("123456789") != std::string::npos;
}

bool HasAmounts(const std::vector<session::Value>& amounts, std::int32_t order) {
  for (std::size_t i = 0; i < amounts.size(); ++i) {
    if (kOldBalances.at(i).order == order && IsAmount(amounts[i])) {
      return true;
    }
  }
  return false;
}

bool Has(const Coverage& coverage, Words column) {
  return std::ranges::any_of(coverage.benefits,
                             [&](const Assignment& benefit) { return benefit.column.Text() == column.Text(); });
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
  return std::ranges::any_of(kOldBalances,
                             [&](const OldBalance& balance) { return IsAmount(patient[balance.old_column.Text()]); });
}

bool CarryOldBalances(session::Session& session, std::int32_t patient) {
  const Statements statements(session);
  session::Transaction transaction(session.Connection());
  const std::vector<session::Value> amounts = AmountsOf(statements, patient);
  std::vector<Coverage> coverages = Coverages(session).Of(patient);
  std::erase_if(coverages, [](const Coverage& coverage) { return !coverage.live; });
  Assignments emptied;
  for (const std::int32_t order : {1, 2}) {
    if (amounts.empty() || coverages.empty() || !HasAmounts(amounts, order)) {
      continue;
    }
    const auto place = static_cast<std::size_t>(order) - 1;
    const Coverage* coverage = place < coverages.size() ? &coverages[place] : nullptr;
    Assignments carried;
    for (std::size_t i = 0; i < amounts.size(); ++i) {
      const OldBalance& balance = kOldBalances.at(i);
      if (balance.order != order || session::IsNull(amounts[i])) {
        continue;
      }
      emptied.emplace_back(balance.old_column, Words("Null"));
      if (coverage != nullptr && !Has(*coverage, balance.column)) {
        carried.emplace_back(balance.column, ValueOf(balance, amounts[i]));
      }
    }
    if (coverage != nullptr) {
      statements.Update("CovTable", carried, "CovID", coverage->id);
    }
  }
  statements.Update("PATable", emptied, "pID", patient);
  transaction.Commit();
  return !emptied.empty();
}

}  // namespace data
