#include "console/server_practice.h"

#include <map>
#include <stdexcept>
#include <string>
#include <tuple>

#include "console/step_failure.h"
#include "database/unix/throwaway_cluster.h"

namespace host {
namespace {

// The database whose copies are practices of the line's kind.
const std::string& TemplateOf(const PracticeLine& line, ThrowawayCluster& cluster) {
  const PracticeOptions& options = line.options;
  static std::map<std::tuple<bool, int, int, int, bool>, std::string> made;
  const auto [found, is_new] =
      made.try_emplace({line.demo, options.kind, options.office, options.offices, options.row_guids});
  if (is_new) {
    try {
      const std::string database = cluster.MakeDatabase("model");
      NewPractice(cluster.Url(database), line);
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
    return {Practice(cluster.Url(database)), std::move(place)};
  } catch (const std::runtime_error& error) {
    Fail(error.what());
  }
}

}  // namespace host
