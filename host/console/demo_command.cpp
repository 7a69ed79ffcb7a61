#include "console/demo_command.h"

#include <array>
#include <iomanip>

#include "database/shown_url.h"
#include "practice/data_folder.h"
#include "practice/demo_files.h"
#include "session/value.h"

namespace host {
namespace {

struct Kind {
  const char* name;
  const char* table_and_condition;
};

constexpr std::array kKinds = {
    Kind{"patients", "PATable WHERE pTypPat >= '1'"},
    Kind{"family heads", "PATable WHERE pTypPat >= '1' AND pFAMHEAIND = pID"},
    Kind{"providers", "PATable WHERE pTypDoc >= '1'"},
    Kind{"employees", "PATable WHERE pTypEmp >= '1'"},
    Kind{"referral sources", "PATable WHERE pTypRef >= '1'"},
    Kind{"logins", "PWMTable"},
    Kind{"locations", "OffLocTable"},
    Kind{"employers", "EmpTable"},
    Kind{"carriers", "InsCoTable"},
    Kind{"group plans", "GroPlaTable"},
    Kind{"plan links", "ELTable"},
    Kind{"holdings", "PatEmpTable"},
    Kind{"coverages", "CovTable"},
    Kind{"recall masters", "RSTable"},
    Kind{"recalls", "RecTable"},
    Kind{"contact orders", "eBusContactSequence WHERE ebcSeq = 1"},
    Kind{"appointments", "ApTable"},
    Kind{"transactions", "DTTable"},
    Kind{"places", "ZipCodTable"},
};

// What a practice in memory would have in its data folder goes with it; that of one on a server is the desk's.
void WriteFilesBeside(const std::string& url) {
  if (const std::string folder = DataFolderOf(url, {}); url.starts_with("sqlite:") && !folder.empty()) {
    WriteDemoFiles(folder);
  }
}

}  // namespace

void RunDemo(const std::string& url, const DemoOptions& options, std::ostream& output) {
  Practice practice = MakeDemo(url, options);
  OfficeDatabase office(practice, practice.Office());
  WriteFilesBeside(url);
  output << "A demo practice at " << ShownUrl(url) << "\n";
  for (const Kind& kind : kKinds) {
    const auto count = office.Connection().Execute(
        office.PrepareSQL(std::string("SELECT COUNT(*) FROM ") + kind.table_and_condition, 1));
    output << std::setw(10) << session::ToText(count->Get(0)) << " " << kind.name << "\n";
  }
}

}  // namespace host
