#pragma once

#include <string_view>

#include "lookup/list_catalogue.h"

// The lists that the suite's programs share, of persons and of records, as our own list window shows them.
namespace lookup {

// Of persons: who heads a family.
inline constexpr data::Words kFamilyHeads =
    "(PATABLE.pFAMHEAIND = PATABLE.pID or PATABLE.pFAMHEAIND is Null or PATABLE.pFAMHEAIND = 0) and "
    "PATABLE.pTypPat >= '1'";
// Of providers, physicians, referral sources and family heads.
ListDefinition PersonList(session::LookUpListTypes type, const data::Statements& statements,
                          const session::ListOptions& options);
// Columns of the list of carriers that the list itself changes.
inline constexpr std::string_view kPayerId = "Payer ID";
inline constexpr std::string_view kElectronicPayer = "Electronic Payer";
ListDefinition InsuranceCompanyList(const data::Statements& statements);
ListDefinition EmployerList(const data::Statements& statements, const session::ListOptions& options);
ListDefinition GroupPlanList(const data::Statements& statements, const session::ListOptions& options);
// Of the electronic payers that carriers are linked to.
ListDefinition PayerList(const data::Statements& statements);
// Of the services that the login's location charges.
ListDefinition ServiceCodeList(const data::Statements& statements, std::string_view login);
ListDefinition PharmacyList(const data::Statements& statements);

// The last column of a list of persons whose caller wants their insurance: the carrier of the first coverage.
data::Sql InsuranceColumn(const data::Statements& statements, const session::ListOptions& options);
// Whose primary location it is, and who are shown there as well.
data::Sql PersonsAtLocation(const data::Statements& statements, std::int32_t location);

}  // namespace lookup
