#include "practice/practice.h"

#include <array>
#include <set>
#include <utility>

#include "data/literal.h"
#include "data/statements.h"
#include "database/migration.h"
#include "practice/advisory_locks.h"
#include "practice/lock_rows.h"
#include "practice/office_locks.h"
#include "practice/settings.h"

namespace host {
namespace {

// What an office starts with; providers are nobody's until one is chosen.
constexpr std::array<std::pair<std::string_view, std::string_view>, 12> kDefaults = {{{"PAT_AC_TYP", "1"},
                                                                                      {"PAT_MED_ALT", ""},
                                                                                      {"INS_ANN_COV", "1000.00"},
                                                                                      {"INS_ANN_DED", "50.00"},
                                                                                      {"INS_REN_DAT", "01-01"},
                                                                                      {"INS_DED_PCT", "0"},
                                                                                      {"INS_DED_LAST", "0"},
                                                                                      {"NON_US_ZIP_CODE", "0"},
                                                                                      {"POPUP_HELP_FLAG", "0"},
                                                                                      {"DUP_PERSON_CHECK", "TRUE"},
                                                                                      {"OFF_PRA_PRO", "0"},
                                                                                      {kDefaultProvider, "0"}}};

struct PickEntry {
  std::string_view list;
  std::string_view code;
  std::string_view text;
};
constexpr std::array kPickEntries = {
    PickEntry{"SEXTITLE", "F", "Mrs."},
    PickEntry{"SEXTITLE", "F", "Ms."},
    PickEntry{"SEXTITLE", "F", "Miss"},
    PickEntry{"SEXTITLE", "F", "Dr."},
    PickEntry{"SEXTITLE", "M", "Mr."},
    PickEntry{"SEXTITLE", "M", "Master"},
    PickEntry{"SEXTITLE", "M", "Dr."},
    PickEntry{"FEESCHED", "1", "Office fees"},
    PickEntry{"FEESCHED", "2", "Network fees"},
    PickEntry{"FEESCHED", "3", "Managed care fees"},
    PickEntry{"FEESCHED", "4", "Courtesy fees"},
    PickEntry{"MEDALERT", "1", "Allergic to latex"},
    PickEntry{"MEDALERT", "2", "Allergic to penicillin"},
    PickEntry{"MEDALERT", "3", "Asthma"},
    PickEntry{"MEDALERT", "4", "Blood thinner"},
    PickEntry{"MEDALERT", "5", "Diabetes"},
    PickEntry{"MEDALERT", "6", "Heart murmur"},
    PickEntry{"MEDALERT", "7", "High blood pressure"},
    PickEntry{"MEDALERT", "8", "Pacemaker"},
    PickEntry{"MEDALERT", "9", "Premedication required"},
    PickEntry{"MEDSPEC", "1", "General Practice"},
    PickEntry{"MEDSPEC", "2", "Endodontics"},
    PickEntry{"MEDSPEC", "3", "Oral Surgery"},
    PickEntry{"MEDSPEC", "4", "Orthodontics"},
    PickEntry{"MEDSPEC", "5", "Pediatric Dentistry"},
    PickEntry{"MEDSPEC", "6", "Periodontics"},
    PickEntry{"MEDSPEC", "7", "Prosthodontics"},
    PickEntry{"MEDSPEC", "8", "Family Medicine"},
    PickEntry{"MEDSPEC", "9", "Cardiology"},
    PickEntry{"BILTTL", "1", "Mr."},
    PickEntry{"BILTTL", "2", "Mrs."},
    PickEntry{"BILTTL", "3", "Ms."},
    PickEntry{"BILTTL", "4", "Mr. and Mrs."},
    PickEntry{"BILTTL", "5", "The family of"},
    PickEntry{"PROTITLE", "1", "DDS"},
    PickEntry{"PROTITLE", "2", "DMD"},
    PickEntry{"PROTITLE", "3", "MD"},
    PickEntry{"PROTITLE", "4", "RDH"},
    PickEntry{"PROTITLE", "5", "CDA"},
};

void FillOffice(Practice& practice, std::int32_t office) {
  using data::Literal;
  OfficeDatabase database(practice, office);
  const data::Statements statements(database);
  for (const auto& [key, value] : kDefaults) {
    WriteOfficeSetting(database, kOfficeDefaults, key, value);
  }
  for (const auto& entry : kPickEntries) {
    statements.Insert(
        "PickListTable",
        {{"PLKind", Literal(entry.list)}, {"PLCode", Literal(entry.code)}, {"PLDes", Literal(entry.text)}});
  }
  statements.Insert("OffLocTable", {{"OffLocNam", Literal("Main Office")}});
}

}  // namespace

Practice::Practice(PracticeDatabase database) : database_(std::move(database)) {
  if (database_.connect_in) {
    locks_ = std::make_unique<OfficeLocks>(database_.connect_in);
  } else if (database_.connect) {
    locks_ = std::make_unique<AdvisoryLocks>(database_.connect);
  } else {
    locks_ = std::make_unique<LockRows>(std::move(database_.locks));
  }
}

session::Connection& Practice::ConnectionIn(std::int32_t office) const {
  if (database_.enter_office) {
    database_.enter_office(office);
  }
  return *database_.connection;
}

std::vector<std::int32_t> Practice::Offices() const {
  ConnectionIn(0);  // of every office
  std::vector<std::int32_t> offices;
  if (database_.offices) {
    return database_.offices();
  }
  for (const auto rows = database_.Run("SELECT DISTINCT OfficeID FROM OffLocTable ORDER BY OfficeID"); !rows->Eof();
       rows->MoveNext()) {
    offices.push_back(session::ToId(rows->Get(0)));
  }
  return offices;
}

Practice CreatePractice(const std::string& url, const PracticeOptions& options,
                        const std::function<void(Practice& practice)>& fill) {
  Practice practice(OpenNewDatabase(url, options));
  std::set<std::int32_t> offices{options.office};
  for (std::int32_t office = 1; options.kind == session::kOfficeScoped && office <= options.offices; ++office) {
    offices.insert(office);
  }
  session::Transaction transaction(*practice.database_.connection);
  CreateSchema(*practice.database_.connection, *practice.database_.schema, options);
  for (const std::int32_t office : offices) {
    FillOffice(practice, office);
  }
  if (fill) {
    fill(practice);
  }
  transaction.Commit();
  return practice;
}

Practice OpenOrCreatePractice(const std::string& url) {
  if (IsVacant(url)) {
    try {
      return CreatePractice(url);
    } catch (const session::DatabaseError&) {
      if (IsVacant(url)) {
        throw;
      }
      // Another program was first.
    }
  }
  return Practice(url);
}

}  // namespace host
