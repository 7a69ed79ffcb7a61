#pragma once

#include <array>
#include <cstdint>

#include "data/coverages.h"

// Benefit amounts that older programs of the suite left in the patient's own row. They belong to his first and second
// coverage.
namespace data {

// Where an amount stands in `PATable`, and where it goes in `CovTable`.
struct OldBalance {
  std::int32_t order = 0;  // of the coverage
  Words old_column;
  Words column;
};
inline constexpr std::array kOldBalances = {
    OldBalance{1, "pPriBal", "CovRemBal"}, OldBalance{1, "pPriDed", "CovRemDed"},
    OldBalance{1, "pPriYTD", "CovYTD"},    OldBalance{1, "pPriRenFla", "CovLastRenewalYear"},
    OldBalance{2, "pSecBal", "CovRemBal"}, OldBalance{2, "pSecDed", "CovRemDed"},
    OldBalance{2, "pSecYTD", "CovYTD"},    OldBalance{2, "pSecRenFla", "CovLastRenewalYear"}};

// Whether benefits can have been renewed in the year.
constexpr bool IsBenefitYear(std::int32_t year) {
  return year >= 1900 && year <= 9999;
}

// "pPriBal, pPriDed, ..."
Sql OldBalanceColumns();
// Whether the row, which has these columns of `PATable`, has any amount; one of zero is none.
bool HasOldBalances(const session::Recordset& patient);

// Moves the amounts to the patient's coverages, in one transaction; what a coverage has already stays. Amounts of a
// second coverage that he does not have are given up, so that they do not come to another plan later; without any
// coverage all stay. False when nothing was written. Throws session::DatabaseError.
bool CarryOldBalances(session::Session& session, std::int32_t patient);

}  // namespace data
