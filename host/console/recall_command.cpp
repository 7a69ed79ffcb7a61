#include "console/recall_command.h"

#include <algorithm>

#include "practice/host_session.h"
#include "practice/recall_refresh.h"

namespace host {
namespace {

// Who changed what a refresh changes.
constexpr const char* kUtility = "recall utility";

}  // namespace

void RunRecall(const std::string& url, std::optional<std::int32_t> office, std::int32_t recall, std::ostream& output) {
  Practice practice(url);
  const std::int32_t number = office.value_or(practice.Office());
  const auto offices = practice.Offices();
  if (std::ranges::find(offices, number) == offices.end()) {
    throw session::DatabaseError("The practice has no office " + std::to_string(number) + ".", {}, 0);
  }
  HostSession session(practice, number, LoginRights(kUtility, true), ThisMachine({}, {}));
  session.Connection();  // the changes are this session's
  const RefreshedRecall refreshed = RefreshRecall(session.Office(), recall);
  output << "Recall " << recall << (refreshed.there ? ": " : " is not there: ") << refreshed.patients << " patients, "
         << refreshed.moved << (refreshed.there ? " due dates changed.\n" : " taken from it.\n");
}

}  // namespace host
