#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/statements.h"
#include "forms/dates.h"

namespace host {

// The columns of a found patient, in their order.
enum PatientColumn : std::uint8_t {
  kPatientId,
  kPatientLast,
  kPatientFirst,
  kPatientBirth,
  kPatientPhone,
  kPatientCell,
  kPatientCity,
  kPatientSsn,
  kProviderLast,
  kProviderFirst,
};

// The statements that find patients by what was typed, the likeliest first: digits as an ID, a birth date and the
// beginning of a phone number with or without its area code, whatever stands between them; words as the beginnings of
// last and first name in either order, or of the last name before a comma. Each is a search in one index, whose rows
// come in its order. None for a text that nothing is looked for by.
std::vector<data::Sql> PatientSearch(const data::Statements& statements, std::string_view typed, forms::Date today);
// The patients with these IDs, in any order. Not for no ID.
data::Sql PatientsById(const data::Statements& statements, const std::vector<std::int32_t>& ids);

// What a text is searched as may also be a new patient's name: the text; empty for a number or a date.
std::string TypedName(std::string_view typed);

// The rows of several statements with equal columns one behind the other, without those whose first column, an ID,
// was there before. Each runs when the rows before it have been read. Throws session::DatabaseError.
std::unique_ptr<session::Recordset> InTurn(const data::Statements& statements, std::vector<data::Sql> searches);

}  // namespace host
