#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/insurance_practice.h"
#include "support/shared_command.h"

// What commands on shared records are to come to, told without a word of how they do it.
namespace data_test {

// Whether the command is about the link.
bool Concerns(const test_support::SharedCommand& command, std::int32_t link, const test_support::Offer& offer);
const char* TableNameOf(data::SharedRecord kind);
std::ptrdiff_t ColumnOf(const char* table, std::string_view name);

// A practice before or after a command.
struct InsuranceTables {
  // As seen from the office; the others' rows are those of office 1.
  InsuranceTables(const host::Practice& practice, std::int32_t office);

  const std::string& Of(const char* table, std::int32_t row, std::size_t column) const {
    return own.at(table).at(row).at(column);
  }
  // "7 CM LogEmp The following employer was ..."
  std::multiset<std::string> Logs() const;

  test_support::InsurancePicture picture;
  std::map<std::string, test_support::TableRows> own;
  std::map<std::string, test_support::TableRows> others;
};

class ExpectedInsurance {
 public:
  // Both outlive it.
  ExpectedInsurance(const InsuranceTables& before, const test_support::SharedCommand& command);

  test_support::InsurancePicture picture;              // rows that are new have the ID 0
  std::map<std::string, test_support::TableRows> own;  // but for the tables of links and the logs
  std::multiset<std::string> logs;

 private:
  using Offer = test_support::Offer;
  using Holding = test_support::Holding;

  bool Deletes() const { return command_.new_id == 0; }
  Offer Replaced(Offer offer) const;
  std::optional<std::int32_t> LiveLink(const Offer& offer) const;
  void PutLinks();
  template <class Entry>
  void Put(std::vector<Entry>& entries, const auto& same);
  void PutHoldings();
  void PutCoverages();
  void PutJobs();
  std::int32_t JobWithout(std::int32_t employer) const;
  void PutRecords();
  void PutCarrier(test_support::TableRows& rows, const std::set<std::string>& numbers) const;
  void PutPharmacies();
  std::string Log(std::int32_t subscriber, const Holding& held) const;
  std::string PlanLines(const Offer& offer) const;

  const InsuranceTables& before_;
  const test_support::SharedCommand& command_;
  std::set<std::int32_t> concerned_;             // links
  std::map<std::int32_t, std::int32_t> target_;  // the link that takes a link's place
};

}  // namespace data_test
