#pragma once

#include "lookup/list_catalogue.h"

// The lists that the suite's programs share, of persons and of records, as our own list window shows them.
namespace lookup {

// Of providers, physicians, referral sources and family heads.
ListDefinition PersonList(session::LookUpListTypes type, const data::Statements& statements,
                          const session::ListOptions& options);
ListDefinition InsuranceCompanyList(const data::Statements& statements, const session::ListOptions& options);
ListDefinition EmployerList(const data::Statements& statements, const session::ListOptions& options);
ListDefinition GroupPlanList(const data::Statements& statements, const session::ListOptions& options);
ListDefinition PharmacyList(const data::Statements& statements, const session::ListOptions& options);

}  // namespace lookup
