#include "console/server_practice.h"

#include <map>
#include <stdexcept>
#include <string>
#include <tuple>

#include "console/step_failure.h"
#include "database/postgres/postgres_roles.h"
#include "database/unix/throwaway_cluster.h"

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
  static std::map<std::tuple<bool, bool, int, int, int, bool>, std::string> made;
  const auto [found, is_new] =
      made.try_emplace({line.demo, line.as_desk, options.kind, options.office, options.offices, options.row_guids});
  if (is_new) {
    try {
      const std::string database = cluster.MakeDatabase("model");
      const std::string& owner = LoginsOf(cluster).owner;
      cluster.Run("ALTER DATABASE " + database + " OWNER TO " + owner);
      const Practice practice = NewPractice(cluster.Url(database, owner), line);
      if (line.as_desk) {
        AdmitDeskTo(practice);
      }
      found->second = database;
    } catch (...) {
      made.erase(found);
      throw;
    }
  }
  return found->second;
}

}  // namespace

StagedPractice MakeServerPractice(const PracticeLine& line) {
  try {
    ThrowawayCluster& cluster = SharedCluster();
    const std::string database = cluster.MakeDatabase("block", TemplateOf(line, cluster));
    std::shared_ptr<void> place(nullptr, [&cluster, database](void*) { cluster.DropDatabase(database); });
    const auto& [owner, desk] = LoginsOf(cluster);
    StagedPractice staged(Practice(cluster.Url(database, line.as_desk ? desk : owner)), std::move(place));
    if (line.as_desk) {
      staged.owners = OpenDatabase(cluster.Url(database, owner));
    }
    return staged;
  } catch (const std::runtime_error& error) {
    Fail(error.what());
  }
}

}  // namespace host
