#pragma once

#include <string>
#include <string_view>

#include "data/sql.h"

namespace lookup {

// What a person typed into the filter cells of a list of persons.
struct NameFilter {
  std::string name = {};  // "Last, First", the first letters of the last name, or "First Last"
  std::string last_name = {};
  std::string first_name = {};

  // Filtered in both ways at once, which is refused.
  bool Clashes() const { return !name.empty() && !(last_name.empty() && first_name.empty()); }
};

inline constexpr std::string_view kDifferentNames =
    "You have filtered this list by different types of names. Please enter the Name column's filter in "
    "'Last Name, First Name' format or type the first few characters of the first and last name in the First Name "
    "and Last Name columns.";

// The expressions that the list selects its names from.
struct NameColumns {
  data::Sql last_name;   // "PATABLE.pLASNAM"
  data::Sql first_name;  // "PATABLE.pFIRNAM"
};

// "(((PATABLE.pLASNAM) like 'Smi%') AND ((PATABLE.pFIRNAM) like 'J%'))", with the half that was not typed left out;
// `anywhere` finds the letters inside the names too. A name of several words without a comma matches as the beginning
// of a last name, or as first and last name, parted at its first or its last blank. Empty for an empty filter.
data::Sql NameCondition(const NameFilter& filter, const NameColumns& columns, bool anywhere);

}  // namespace lookup
