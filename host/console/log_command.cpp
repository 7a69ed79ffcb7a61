#include "console/log_command.h"

#include "practice/practice.h"

namespace host {

void PrintChanges(const std::string& url, const ChangeFilter& filter, std::ostream& output) {
  Practice practice(url);
  OfficeDatabase office(practice, practice.Office());
  ChangeReader changes(office, filter);
  while (const auto change = changes.Next()) {
    output << forms::FormatIso(change->when) << "  " << change->who << "  " << change->what;
    if (!change->column.empty()) {
      output << " " << change->table << " " << change->record << " " << change->column << ": [" << change->before
             << "] -> [" << change->after << "]";
    }
    output << "\n";
  }
}

}  // namespace host
