#include "console/server_practice.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "console/step_failure.h"
#include "database/dialect/written.h"
#include "database/postgres/office_directory.h"
#include "database/postgres/postgres_roles.h"
#include "database/unix/throwaway_cluster.h"
#include "practice/offices.h"

namespace host {
namespace {

// Who has made the practices, and who works in them where the line wants that. Neither is a superuser.
struct Logins {
  explicit Logins(ThrowawayCluster& cluster) : owner(cluster.MakeLogin("owner")), desk(cluster.MakeLogin("desk")) {}
  std::string owner;
  std::string desk;
};

const Logins& LoginsOf(ThrowawayCluster& cluster) {
  static const Logins logins(cluster);
  return logins;
}

bool IsGroup(const PracticeLine& line) {
  return line.engine == kGroup && line.options.kind == session::kOfficeScoped;
}

void MakeGroup(const std::string& url, const PracticeLine& line) {
  CreateOfficeGroup({"here", url}, {.row_guids = line.options.row_guids});
  const auto group = OpenOfficeGroup(url);
  std::vector<std::int32_t> offices;
  for (std::int32_t office = 1; office <= std::max(line.options.office, line.options.offices); ++office) {
    offices.push_back(office);
    AddOffice(*group, office, "here", [&line](Practice& practice) {
      if (line.demo) {
        FillDemo(practice, DemoOf(line));
      }
    });
  }
  if (line.as_desk) {
    group->AdmitDesk(LoginsOf(SharedCluster()).desk, offices);
  }
}

void AdmitDeskTo(const Practice& practice) {
  const PracticeDatabase& database = practice.Database();
  DeskLogin login{LoginsOf(SharedCluster()).desk};
  if (practice.Kind() == session::kOfficeScoped) {
    login.offices = practice.Offices();
  }
  AdmitDesk(*database.connection, database.options, login);
}

// The database whose copies are practices of the line's kind.
const std::string& TemplateOf(const PracticeLine& line, ThrowawayCluster& cluster) {
  const PracticeOptions& options = line.options;
  static std::map<std::tuple<bool, bool, bool, int, int, int, bool>, std::string> made;
  const auto [found, is_new] = made.try_emplace(
      {IsGroup(line), line.demo, line.as_desk, options.kind, options.office, options.offices, options.row_guids});
  if (is_new) {
    try {
      const std::string database = cluster.MakeDatabase("model");
      const std::string& owner = LoginsOf(cluster).owner;
      cluster.Run("ALTER DATABASE " + database + " OWNER TO " + owner);
      if (IsGroup(line)) {
        cluster.Run("CREATE EXTENSION postgres_fdw", database);
        MakeGroup(cluster.Url(database, owner), line);
      } else {
        const Practice practice = NewPractice(cluster.Url(database, owner), line);
        if (line.as_desk) {
          AdmitDeskTo(practice);
        }
      }
      found->second = database;
    } catch (...) {
      made.erase(found);
      throw;
    }
  }
  return found->second;
}

// In the office that the line names.
PracticeDatabase Opened(const std::string& url, const PracticeLine& line) {
  PracticeDatabase database = OpenDatabase(url);
  if (IsGroup(line)) {
    database.options.office = line.options.office;
    database.enter_office(line.options.office);
  }
  return database;
}

}  // namespace

StagedPractice MakeServerPractice(const PracticeLine& line) {
  try {
    ThrowawayCluster& cluster = SharedCluster();
    const std::string database = cluster.MakeDatabase("block", TemplateOf(line, cluster));
    std::shared_ptr<void> place(nullptr, [&cluster, database](void*) { cluster.DropDatabase(database); });
    const auto& [owner, desk] = LoginsOf(cluster);
    if (IsGroup(line)) {
      // The copy leads to itself.
      cluster.Run("UPDATE practice.officeserver SET url=" +
                      sql::Quoted(WithoutSecrets(ParsePostgresUrl(cluster.Url(database))), '\''),
                  database);
    }
    StagedPractice staged(Practice(Opened(cluster.Url(database, line.as_desk ? desk : owner), line)), std::move(place));
    if (line.as_desk) {
      staged.owners = Opened(cluster.Url(database, owner), line);
    }
    return staged;
  } catch (const std::runtime_error& error) {
    Fail(error.what());
  }
}

}  // namespace host
