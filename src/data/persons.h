#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/statements.h"

// What screens and lists ask of the table of persons.
namespace data {

// "Smith, John"; without the comma when there is no first or no last name.
std::string LastFirst(const session::Value& last, const session::Value& first);

// "John Smith"; without the blank when there is no first or no last name.
std::string FirstLast(const session::Value& first, const session::Value& last);

// "***-**-6789": enough to tell two persons apart; empty for a number of four digits or fewer.
std::string MaskedSsn(const session::Value& ssn);

// As `LastFirst`; empty for 0 and for a person who is not there. Throws session::DatabaseError.
std::string NameOfPerson(const Statements& statements, std::int32_t person);
// The same, but "Person 88" for who has no name or is not there.
std::string ToldPerson(const Statements& statements, std::int32_t person);
std::string PersonByNumber(std::int32_t person);
// As `NameOfPerson` of a person who is a referral source; empty for another.
std::string NameOfReferral(const Statements& statements, std::int32_t person);

// The statement for ID, last and first name of the persons who have the type flag ("pTypRef"), by name; `named` is a
// condition on their names, or empty.
Sql PersonsOfType(const Statements& statements, Words type, const Sql& named);

}  // namespace data
