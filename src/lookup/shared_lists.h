#pragma once

#include "lookup/list_catalogue.h"

// The lists that the suite's programs share, of persons and of records, as our own list window shows them.
namespace lookup {

// Of providers, physicians, referral sources and family heads.
ListDefinition PersonList(session::LookUpListTypes type, const data::Statements& statements,
                          const ListNarrowing& narrowing);
ListDefinition InsuranceCompanyList(const data::Statements& statements, const ListNarrowing& narrowing);
ListDefinition EmployerList(const data::Statements& statements, const ListNarrowing& narrowing);
ListDefinition GroupPlanList(const data::Statements& statements, const ListNarrowing& narrowing);
ListDefinition PharmacyList(const data::Statements& statements, const ListNarrowing& narrowing);

}  // namespace lookup
