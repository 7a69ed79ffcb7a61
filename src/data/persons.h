#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/statements.h"

// What screens and lists ask of the table of persons.
namespace data {

// "Smith, John"; without the comma when there is no first name.
std::string LastFirst(const session::Value& last, const session::Value& first);

// As `LastFirst`; empty for 0 and for a person who is not there. Throws session::DatabaseError.
std::string NameOfPerson(const Statements& statements, std::int32_t person);
// The same of a person who is a referral source; empty for another.
std::string NameOfReferral(const Statements& statements, std::int32_t person);

// Name and ID of every person who has the type flag ("pTypRef"), by name. Throws session::DatabaseError.
std::unique_ptr<session::Recordset> PersonsOfType(const Statements& statements, Words type);

}  // namespace data
