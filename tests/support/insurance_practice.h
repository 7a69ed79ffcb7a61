#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "practice/practice.h"

// Small practices of employers, carriers and plans, and of who is covered through them, by chance.
namespace test_support {

// The tables that hold them, and that commands on them write to.
inline constexpr std::array kInsuranceTables = {"EmpTable", "InsCoTable",  "GroPlaTable", "PhaTable",
                                                "ELTable",  "PatEmpTable", "CovTable",    "IPTable",
                                                "PATable",  "FamTable",    "LogTable"};

// In place of what the practice had: the same rows in each of its offices, with the same IDs. Everything live is whole:
// orders are dense, and what is covered is held. Some rows are ended.
void FillWithInsurance(const host::Practice& practice, std::uint64_t seed);

// What a plan link stands for; without carrier and plan it is "No Insurance Coverage".
struct Offer {
  std::int32_t employer = 0;
  std::int32_t carrier = 0;
  std::int32_t plan = 0;

  friend bool operator==(const Offer&, const Offer&) = default;
};

struct Holding {
  std::int32_t row = 0;
  std::int32_t order = 0;
  std::int32_t link = 0;
  Offer offer = {};
};

struct Coverage {
  std::int32_t row = 0;
  std::int32_t order = 0;
  std::int32_t subscriber = 0;
  std::int32_t link = 0;
  Offer offer = {};
  std::string details = {};  // relationship, patient ID and amounts
};

// What is live in an office.
struct InsurancePicture {
  std::map<std::int32_t, Offer> links;
  std::map<std::int32_t, std::vector<Holding>> holdings;     // by subscriber, in order
  std::map<std::int32_t, std::vector<Coverage>> coverages;   // by patient, in order
  std::map<std::int32_t, std::array<std::int32_t, 4>> jobs;  // the links that a person names

  // Line by line and without the IDs of holdings and coverages, which change when these move.
  std::string Text() const;
  // -1 for a link that is not live.
  Offer OfferOf(std::int32_t link) const;
};
InsurancePicture ReadInsurance(const host::Practice& practice, std::int32_t office);

// A table's rows in an office by their key, each column as text.
using TableRows = std::map<std::int32_t, std::vector<std::string>>;
TableRows ReadRows(const host::Practice& practice, std::string_view table, std::int32_t office);

}  // namespace test_support
