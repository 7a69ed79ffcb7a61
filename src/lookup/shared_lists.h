#pragma once

#include "lookup/list_catalogue.h"

// The lists that the suite's programs share, of persons and of records, as our own list window shows them.
namespace lookup {

// Of providers, physicians, referral sources and family heads.
ListDefinition PersonList(session::LookUpListTypes type, const data::Statements& statements,
                          const session::ListOptions& options);
ListDefinition InsuranceCompanyList(const data::Statements& statements);
ListDefinition EmployerList(const data::Statements& statements, const session::ListOptions& options);
ListDefinition GroupPlanList(const data::Statements& statements, const session::ListOptions& options);
ListDefinition PharmacyList(const data::Statements& statements);

// The last column of a list of persons whose caller wants their insurance: the carrier of the first coverage.
data::Sql InsuranceColumn(const data::Statements& statements, const session::ListOptions& options);
// Whose primary location it is, and who are shown there as well.
data::Sql PersonsAtLocation(const data::Statements& statements, std::int32_t location);

}  // namespace lookup
