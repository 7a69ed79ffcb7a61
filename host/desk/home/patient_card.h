#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "data/statements.h"
#include "forms/dates.h"

namespace host {

// What the front desk wants to see of a patient at a glance. Lines end in '\n' but for the last.
struct PatientCard {
  std::string name;    // "Reed, Rita"
  std::string facts;   // "Ms., female, 41 years 3 months", "Born 01-02-1980, ID 7"
  std::string alert;   // empty for none
  std::string phones;  // "Home  (555) 123-4567"
  std::string address;
  std::string family;    // the other members, with their ages
  std::string coverage;  // "Primary: Northern Dental, Group 1 (12345)"
};

// Nothing when there is no such patient. Throws session::DatabaseError.
std::optional<PatientCard> ReadPatientCard(const data::Statements& statements, std::int32_t patient, forms::Date today);

}  // namespace host
