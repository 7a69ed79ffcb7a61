// Whatever is replaced and deleted in whatever practice: who was covered stays so, in order, and nobody else is
// touched.

#include <algorithm>
#include <span>

#include "data/expected_insurance.h"
#include "database/schema.h"
#include "practice/demo_random.h"
#include "support/practice_host.h"

namespace {

using data::SharedRecord;
using data_test::Concerns;
using data_test::ExpectedInsurance;
using data_test::InsuranceTables;
using data_test::TableNameOf;
using test_support::PracticeHost;
using test_support::SharedCommand;
using test_support::TableRows;

constexpr std::int32_t kOffice = 2;
constexpr const char* kToday = "2026-11-21";

// Rows of links are there for good: an ended one stays as it is, a live one may end or take another place in order.
struct LinkTable {
  const char* name;
  std::size_t order;  // column; 0 for none
  std::size_t ended;  // columns: when, by whom and the flag, behind when it started
};

void ExpectOnlyEnded(const LinkTable& table, const InsuranceTables& before, const InsuranceTables& after) {
  for (const auto& [row, was] : before.own.at(table.name)) {
    SCOPED_TRACE(std::string(table.name) + " " + std::to_string(row));
    const auto found = after.own.at(table.name).find(row);
    ASSERT_NE(found, after.own.at(table.name).end());
    auto allowed = was;
    if (was[table.ended + 2] == "0") {
      if (table.order != 0) {
        allowed[table.order] = found->second[table.order];
      }
      if (found->second[table.ended + 2] != "0") {
        allowed[table.ended] = kToday;
        allowed[table.ended + 1] = "Ann";
        allowed[table.ended + 2] = "1";
      }
    }
    EXPECT_EQ(found->second, allowed);
  }
  for (const auto& [row, columns] : after.own.at(table.name)) {
    if (table.order != 0 && !before.own.at(table.name).contains(row)) {
      EXPECT_EQ(columns[table.ended - 1], kToday) << table.name << " " << row << " started";
    }
  }
}

template <class Entry>
void ExpectSameRows(const std::map<std::int32_t, std::vector<Entry>>& expected,
                    const std::map<std::int32_t, std::vector<Entry>>& found) {
  for (const auto& [person, entries] : expected) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      if (entries[i].row != 0) {
        EXPECT_EQ(found.at(person).at(i).row, entries[i].row) << "person " << person << ", " << i + 1;
      }
    }
  }
}

constexpr std::array kLinkTables = {LinkTable{"ELTable", 0, 5}, LinkTable{"PatEmpTable", 3, 5},
                                    LinkTable{"CovTable", 4, 11}};

class AnyPractice : public testing::Test {
 protected:
  // In one of two offices, or where the database holds one.
  static PracticeHost& HostOf(std::int32_t kind) {
    static std::map<std::int32_t, std::unique_ptr<PracticeHost>> hosts;
    auto& host = hosts[kind];
    if (!host) {
      host = std::make_unique<PracticeHost>(host::CreatePractice(
          "sqlite::memory:",
          {.kind = kind, .office = kOffice, .offices = 2, .row_guids = kind == session::kOfficeScoped}));
      host->session.hear = [kind](const std::string& sql) {
        EXPECT_EQ(sql.find("OfficeID") != std::string::npos, kind == session::kOfficeScoped) << sql;
      };
    }
    return *host;
  }

  static SharedCommand Choose(const InsuranceTables& tables, host::demo::Random& chance) {
    const auto kind = static_cast<SharedRecord>(chance.Below(5));
    std::vector<std::int32_t> ids;
    if (kind == SharedRecord::PlanLink) {
      for (const auto& [link, offer] : tables.picture.links) {
        if (offer.plan != 0) {  // the others cannot be removed
          ids.push_back(link);
        }
      }
    } else {
      for (const auto& [id, columns] : tables.own.at(TableNameOf(kind))) {
        ids.push_back(id);
      }
    }
    if (ids.empty()) {
      return Choose(tables, chance);
    }
    const std::int32_t old_id = chance.OneOf(std::span<const std::int32_t>(ids));
    const std::int32_t new_id = chance.OneOf(std::span<const std::int32_t>(ids));
    return {kind, old_id, new_id == old_id || chance.Percent(25) ? 0 : new_id};
  }

  static void ExpectCounts(PracticeHost& host, const InsuranceTables& tables, const SharedCommand& command) {
    const data::SharedRecords records(host.session);
    const auto concerns = [&](const auto& entry) { return Concerns(command, entry.link, entry.offer); };
    const auto count = [&](const auto& people) {
      std::ptrdiff_t all = 0;
      for (const auto& [person, entries] : people) {
        all += std::ranges::count_if(entries, concerns);
      }
      return all;
    };
    const auto at_pharmacy = [&](const auto& person) {
      return person.second[static_cast<std::size_t>(data_test::ColumnOf("PATable", "pPhaID"))] ==
             std::to_string(command.old_id);
    };
    EXPECT_EQ(records.Uses(command.kind, command.old_id),
              command.kind == SharedRecord::Pharmacy ? std::ranges::count_if(tables.own.at("PATable"), at_pharmacy)
                                                     : count(tables.picture.holdings));
    if (command.kind == SharedRecord::Carrier) {
      EXPECT_EQ(records.CoveragesOfCarrier(command.old_id), count(tables.picture.coverages));
    }
  }

  // The links that persons name are in the picture.
  static TableRows WithoutJobs(const std::string& table, TableRows rows) {
    if (table == "PATable") {
      for (auto& [person, columns] : rows) {
        std::fill_n(columns.begin() + data_test::ColumnOf("PATable", "pEmpID1"), 4, std::string());
      }
    }
    return rows;
  }

  static void ExpectDone(const InsuranceTables& before, const ExpectedInsurance& expected,
                         const InsuranceTables& after) {
    EXPECT_EQ(after.others, before.others) << "rows of another office";
    EXPECT_EQ(after.picture.Text(), expected.picture.Text());
    if (HasFailure()) {
      return;
    }
    ExpectSameRows(expected.picture.holdings, after.picture.holdings);
    ExpectSameRows(expected.picture.coverages, after.picture.coverages);
    for (const LinkTable& table : kLinkTables) {
      ExpectOnlyEnded(table, before, after);
    }
    for (const auto& [table, rows] : expected.own) {
      if (std::ranges::find(kLinkTables, table, &LinkTable::name) == kLinkTables.end() && table != "LogTable") {
        EXPECT_EQ(WithoutJobs(table, after.own.at(table)), WithoutJobs(table, rows)) << table;
      }
    }
    EXPECT_EQ(after.Logs(), expected.logs);
  }
};

TEST_F(AnyPractice, IsWithoutLossWhenSharedRecordsAreReplacedAndDeleted) {
  for (std::uint64_t seed = 1; seed <= 100 && !HasFailure(); ++seed) {
    PracticeHost& host = HostOf(seed % 3 == 0 ? session::kFileDatabase : session::kOfficeScoped);
    test_support::FillWithInsurance(host.practice, seed);
    host::demo::Random chance(seed);
    for (int i = 0; i < 2 && !HasFailure(); ++i) {
      const InsuranceTables before(host.practice, kOffice);
      const SharedCommand command = Choose(before, chance);
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", command " << i + 1 << ": " << command);
      ExpectCounts(host, before, command);
      const ExpectedInsurance expected(before, command);
      command.Run(host.session);
      const InsuranceTables after(host.practice, kOffice);
      ExpectDone(before, expected, after);
      command.Run(host.session);
      const InsuranceTables again(host.practice, kOffice);
      EXPECT_EQ(again.own, after.own) << "the same once more";
    }
  }
}

}  // namespace
