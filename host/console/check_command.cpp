#include "console/check_command.h"

#include "practice/host_session.h"
#include "practice/link_check.h"

namespace host {
namespace {

// Who ended what a check ends.
constexpr const char* kChecker = "check";

std::string Counted(int faults) {
  return std::to_string(faults) + (faults == 1 ? " fault" : " faults");
}

}  // namespace

bool RunCheck(const std::string& url, bool mend, std::ostream& output) {
  Practice practice(url);
  int found = 0;
  for (const std::int32_t office : practice.Offices()) {
    HostSession session(practice, office, LoginRights(kChecker, true), ThisMachine({}, {}));
    CheckLinks(session, mend, [&](const std::string& fault) {
      ++found;
      output << "Office " << office << ": " << fault << (mend ? " Mended.\n" : "\n");
    });
  }
  if (found == 0) {
    output << "Nothing is wrong.\n";
  } else if (mend) {
    output << Counted(found) << ", mended. What was being replaced or deleted can be commanded again.\n";
  } else {
    output << Counted(found) << "; --mend puts that right.\n";
  }
  return found == 0 || mend;
}

}  // namespace host
