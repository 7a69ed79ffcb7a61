#include "data/expected_insurance.h"

#include <algorithm>

#include "database/schema.h"

namespace data_test {
namespace {

using data::SharedRecord;
using test_support::Coverage;
using test_support::Offer;
using test_support::SharedCommand;
using test_support::TableRows;

constexpr const char* kBy = " by user Ann on 11/21/2026 at 12:00 am.";

}  // namespace

// Whether the command is about the link.
bool Concerns(const SharedCommand& command, std::int32_t link, const Offer& offer) {
  switch (command.kind) {
    case SharedRecord::Employer:
      return offer.employer == command.old_id;
    case SharedRecord::Carrier:
      return offer.carrier == command.old_id;
    case SharedRecord::GroupPlan:
      return offer.plan == command.old_id;
    default:
      return link == command.old_id;
  }
}

const char* TableNameOf(SharedRecord kind) {
  constexpr std::array kTables = {"EmpTable", "InsCoTable", "GroPlaTable", "ELTable", "PhaTable"};
  return kTables.at(static_cast<std::size_t>(kind));
}

std::ptrdiff_t ColumnOf(const char* table, std::string_view name) {
  const auto& columns = host::FindTable(table)->columns;
  return std::ranges::find(columns, name, &host::Column::name) - columns.begin();
}

InsuranceTables::InsuranceTables(const host::Practice& practice, std::int32_t office)
    : picture(test_support::ReadInsurance(practice, office)) {
  for (const std::string table : test_support::kInsuranceTables) {
    own[table] = test_support::ReadRows(practice, table, office);
    others[table] = test_support::ReadRows(practice, table, 1);
  }
}

std::multiset<std::string> InsuranceTables::Logs() const {
  std::multiset<std::string> logs;
  for (const auto& [row, columns] : own.at("LogTable")) {
    logs.insert(columns[3] + " " + columns[1] + " " + columns[2] + " " + columns[4]);
  }
  return logs;
}

ExpectedInsurance::ExpectedInsurance(const InsuranceTables& before, const SharedCommand& command)
    : picture(before.picture), own(before.own), logs(before.Logs()), before_(before), command_(command) {
  if (command.kind == SharedRecord::Pharmacy) {
    PutPharmacies();
  } else {
    PutLinks();
    PutHoldings();
    PutCoverages();
    PutJobs();
    PutRecords();
  }
  if (Deletes() && command.kind != SharedRecord::PlanLink) {
    own.at(TableNameOf(command.kind)).erase(command.old_id);
  }
}

test_support::Offer ExpectedInsurance::Replaced(Offer offer) const {
  switch (command_.kind) {
    case SharedRecord::Employer:
      offer.employer = command_.new_id;
      break;
    case SharedRecord::Carrier:
      offer.carrier = command_.new_id;
      break;
    case SharedRecord::GroupPlan:
      offer.plan = command_.new_id;
      offer.carrier = std::stoi(before_.Of("GroPlaTable", command_.new_id, 1));
      break;
    default:
      const Offer& taken = before_.picture.links.at(command_.new_id);
      offer = {offer.employer, taken.carrier, taken.plan};
  }
  return offer;
}

std::optional<std::int32_t> ExpectedInsurance::LiveLink(const Offer& offer) const {
  for (const auto& [link, offered] : picture.links) {
    if (offered == offer) {
      return link;
    }
  }
  return std::nullopt;
}

void ExpectedInsurance::PutLinks() {
  for (const auto& [link, offer] : before_.picture.links) {
    if (Concerns(command_, link, offer)) {
      concerned_.insert(link);
      if (Deletes() || command_.kind != SharedRecord::PlanLink) {
        picture.links.erase(link);
      }
    }
  }
  if (Deletes()) {
    return;
  }
  for (const std::int32_t link : concerned_) {
    const Offer offer = Replaced(before_.picture.links.at(link));
    if (!LiveLink(offer)) {
      picture.links[-1 - static_cast<std::int32_t>(picture.links.size())] = offer;
    }
    target_[link] = *LiveLink(offer);
  }
  // The same plan of another employer takes nobody anywhere.
  std::erase_if(concerned_, [this](std::int32_t link) { return target_.at(link) == link; });
}

// Moves those that are concerned, drops what would be there twice, and counts anew.
template <class Entry>
void ExpectedInsurance::Put(std::vector<Entry>& entries, const auto& same) {
  std::vector<Entry> kept;
  for (Entry entry : entries) {
    const bool moves = concerned_.contains(entry.link);
    if (moves && Deletes()) {
      continue;
    }
    if (moves) {
      entry.row = 0;
      entry.link = target_.at(entry.link);
      entry.offer = picture.links.at(entry.link);
    }
    const auto twin = std::ranges::find_if(kept, [&](const Entry& other) { return same(entry, other); });
    if (twin != kept.end() && (entry.row == 0 || twin->row == 0)) {
      twin->row = 0;
      continue;
    }
    kept.push_back(entry);
    kept.back().order = static_cast<std::int32_t>(kept.size());
  }
  entries = std::move(kept);
}

void ExpectedInsurance::PutHoldings() {
  std::set<std::string> told;
  for (auto& [subscriber, holdings] : picture.holdings) {
    for (const Holding& held : holdings) {
      if (concerned_.contains(held.link)) {
        std::string log = Log(subscriber, held);
        if (told.insert(log).second || Deletes()) {
          logs.insert(std::move(log));
        }
      }
    }
    Put(holdings, [](const Holding& one, const Holding& other) { return one.link == other.link; });
  }
}

void ExpectedInsurance::PutCoverages() {
  for (auto& [patient, coverages] : picture.coverages) {
    Put(coverages, [](const Coverage& one, const Coverage& other) {
      return one.link == other.link && one.subscriber == other.subscriber;
    });
  }
}

void ExpectedInsurance::PutJobs() {
  for (auto& [person, jobs] : picture.jobs) {
    for (std::int32_t& job : jobs) {
      if (concerned_.contains(job)) {
        job = Deletes() ? JobWithout(before_.picture.links.at(job).employer) : target_.at(job);
      }
    }
  }
}

// Who worked where a plan is no longer offered works there without one.
std::int32_t ExpectedInsurance::JobWithout(std::int32_t employer) const {
  return command_.kind == SharedRecord::Employer ? 0 : LiveLink({.employer = employer}).value();
}

void ExpectedInsurance::PutRecords() {
  auto& plans = own.at("GroPlaTable");
  auto& details = own.at("IPTable");
  if (command_.kind == SharedRecord::Carrier) {
    std::set<std::string> numbers;
    for (const auto& [row, columns] : before_.own.at("IPTable")) {
      if (columns[1] == std::to_string(command_.new_id)) {
        numbers.insert(columns[2]);
      }
    }
    PutCarrier(plans, {});
    PutCarrier(details, numbers);
  } else if (command_.kind == SharedRecord::GroupPlan && Deletes()) {
    const std::string carrier = before_.Of("GroPlaTable", command_.old_id, 1);
    const std::string number = before_.Of("GroPlaTable", command_.old_id, 2);
    const auto namesakes = std::ranges::count_if(
        plans, [&](const auto& plan) { return plan.second[1] == carrier && plan.second[2] == number; });
    if (namesakes == 1) {
      std::erase_if(details, [&](const auto& row) { return row.second[1] == carrier && row.second[2] == number; });
    }
  }
}

// Rows of the old carrier go with it, or to the new one unless that has their number.
void ExpectedInsurance::PutCarrier(TableRows& rows, const std::set<std::string>& numbers) const {
  const auto is_old = [&](const auto& row) { return row.second[1] == std::to_string(command_.old_id); };
  if (Deletes()) {
    std::erase_if(rows, is_old);
  }
  for (auto& row : rows) {
    if (is_old(row) && !numbers.contains(row.second[2])) {
      row.second[1] = std::to_string(command_.new_id);
    }
  }
}

void ExpectedInsurance::PutPharmacies() {
  if (Deletes()) {
    return;
  }
  const auto column = static_cast<std::size_t>(ColumnOf("PATable", "pPhaID"));
  for (auto& [row, person] : own.at("PATable")) {
    if (person[column] == std::to_string(command_.old_id)) {
      person[column] = std::to_string(command_.new_id);
    }
  }
}

// What is put down of a subscriber whose holding moves or ends.
std::string ExpectedInsurance::Log(std::int32_t subscriber, const Holding& held) const {
  struct Words {
    const char* category;
    const char* what;
    const char* title;
    const char* name;
    std::array<const char*, 2> deleted;
    std::size_t column;  // of the name
  };
  static constexpr std::array kWords = {
      Words{"LogEmp", "employer", "Employer", "Name : ", {"Employer ID Number : ", "Employer Name : "}, 1},
      Words{
          "LogInsCo", "insurance company", "Insurance Company", "Name : ", {"ID Number : ", "Insurance Company : "}, 1},
      Words{"LogIP", "group plan", "Group Plan", "Group Number : ", {"ID Number : ", "Group Number : "}, 2}};
  const std::string done = std::string(Deletes() ? "deleted" : "replaced") + kBy;
  const std::string to = std::to_string(subscriber) + " CM ";
  if (command_.kind == SharedRecord::PlanLink) {
    const std::string begin = to + "LogEmp Insurance coverage for the following employer was " +
                              (Deletes() ? "removed" : "replaced") + kBy +
                              "\r\nEmployer : " + before_.Of("EmpTable", held.offer.employer, 1);
    return Deletes() ? begin + PlanLines(held.offer)
                     : begin + "\r\n---- Original Plan ----" + PlanLines(held.offer) + "\r\n---- New Plan ----" +
                           PlanLines(before_.picture.links.at(command_.new_id));
  }
  const Words& words = kWords.at(static_cast<std::size_t>(command_.kind));
  const auto lines = [&](std::int32_t id, const char* number, const char* name) {
    return std::string("\r\n") + number + std::to_string(id) + "\r\n" + name +
           before_.Of(TableNameOf(command_.kind), id, words.column);
  };
  const std::string begin = to + words.category + " The following " + words.what + " was " + done;
  return Deletes() ? begin + lines(command_.old_id, words.deleted[0], words.deleted[1])
                   : begin + "\r\n---- Original " + words.title + " ----" +
                         lines(command_.old_id, "ID Number : ", words.name) + "\r\n---- New " + words.title + " ----" +
                         lines(command_.new_id, "ID Number : ", words.name);
}

std::string ExpectedInsurance::PlanLines(const Offer& offer) const {
  const bool none = offer.plan == 0;
  return "\r\nInsurance Company : " + (none ? std::string() : before_.Of("InsCoTable", offer.carrier, 1)) +
         "\r\nGroup Number : " + (none ? std::string() : before_.Of("GroPlaTable", offer.plan, 2));
}

}  // namespace data_test
