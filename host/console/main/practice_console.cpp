#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "console/check_command.h"
#include "console/cluster_command.h"
#include "console/copy_command.h"
#include "console/demo_command.h"
#include "console/describe_command.h"
#include "console/log_command.h"
#include "console/offices_command.h"
#include "console/recall_command.h"
#include "console/roles_command.h"
#include "console/scenario_runner.h"
#include "console/step_words.h"
#include "console/temporary_folder.h"
#include "console/terminal.h"
#include "practice/machine.h"

namespace {

constexpr const char* kUsage =
    "practice_console                          the scenario language, typed by hand, on an empty practice\n"
    "practice_console --database URL           the same on the practice at sqlite:PATH, postgresql://... or odbc:...\n"
    "practice_console run [--engine sqlite|postgres|group [--as-desk]] [--kind N] [--row-guids] FILE...\n"
    "                                          runs scenario files; a practice is so where its block does not say "
    "otherwise. Of\n"
    "                                          another kind, or with row GUIDs, the texts of statements are not "
    "checked;\n"
    "                                          as a desk the screens work with a login that may do no more than "
    "`roles` grants\n"
    "practice_console cluster                  starts a PostgreSQL server for tests, prints its URL, ends with its "
    "input;\n"
    "                                          the lines stop and start do that\n"
    "practice_console describe [FORM]          a form's controls, or all forms': name, kind, caption, column, tip,\n"
    "                                          container, parted by tabs\n"
    "practice_console demo --database URL [--patients N] [--seed N] [--kind N] [--office N] [--offices N] "
    "[--row-guids] [--group]\n"
    "                                          makes a demo practice; with --group your group may work in it too\n"
    "practice_console copy FROM TO [--office N]\n"
    "                                          copies a practice from URL to URL, which is vacant or holds such a copy "
    "that\n"
    "                                          was broken off, and compares both\n"
    "practice_console log --database URL [--user NAME] [--table NAME] [--record ID]\n"
    "                                          who changed what and when, and who logged in\n"
    "practice_console check --database URL [--mend]\n"
    "                                          what a killed program left half replaced or deleted; takes it back\n"
    "practice_console recall --database URL [--office N] --id N\n"
    "                                          works out the due dates of a recall's patients\n"
    "practice_console roles --database URL --desk LOGIN [--office N]...\n"
    "                                          has a login of a PostgreSQL server work in the practice as a desk, in\n"
    "                                          several offices in those named alone\n"
    "practice_console roles --database URL --remove LOGIN\n"
    "                                          takes that back\n"
    "practice_console offices create --server NAME=URL [--row-guids]\n"
    "practice_console offices add-server --database URL --server NAME=URL\n"
    "practice_console offices add-office N --database URL --server NAME [--demo PATIENTS | --copy FROM]\n"
    "practice_console offices move N --database URL --to NAME\n"
    "practice_console offices migrate --database URL\n"
    "practice_console offices list --database URL\n"
    "                                          a group of practices over several PostgreSQL servers\n";

class UsageError {};

// The words behind the command, taken from the left.
class Words {
 public:
  explicit Words(std::vector<std::string> words) : words_(std::move(words)) {}

  bool AtEnd() const { return at_ == words_.size(); }
  std::string Take() {
    if (AtEnd()) {
      throw UsageError();
    }
    return words_[at_++];
  }
  std::int32_t TakeNumber() {
    const auto number = host::ParseNumber(Take());
    if (!number) {
      throw UsageError();
    }
    return *number;
  }

 private:
  std::vector<std::string> words_;
  std::size_t at_ = 0;
};

int MakeDemoPractice(Words& words) {
  host::DemoOptions options;
  std::string url;
  while (!words.AtEnd()) {
    const std::string option = words.Take();
    if (option == "--patients") {
      options.patients = words.TakeNumber();
    } else if (option == "--seed") {
      options.seed = static_cast<std::uint64_t>(words.TakeNumber());
    } else if (option == "--database") {
      url = words.Take();
    } else if (option == "--kind") {
      options.practice.kind = words.TakeNumber();
    } else if (option == "--office") {
      options.practice.office = words.TakeNumber();
    } else if (option == "--offices") {
      options.practice.offices = words.TakeNumber();
    } else if (option == "--row-guids") {
      options.practice.row_guids = true;
    } else if (option == "--group") {
      options.practice.group = true;
    } else {
      throw UsageError();
    }
  }
  if (url.empty()) {
    throw UsageError();
  }
  host::RunDemo(url, options, std::cout);
  return 0;
}

int ShowLog(Words& words) {
  host::ChangeFilter filter;
  std::string url;
  while (!words.AtEnd()) {
    const std::string option = words.Take();
    if (option == "--database") {
      url = words.Take();
    } else if (option == "--user") {
      filter.who = words.Take();
    } else if (option == "--table") {
      filter.table = words.Take();
    } else if (option == "--record") {
      filter.record = words.TakeNumber();
    } else {
      throw UsageError();
    }
  }
  if (url.empty()) {
    throw UsageError();
  }
  host::PrintChanges(url, filter, std::cout);
  return 0;
}

int CheckPractice(Words& words) {
  std::string url;
  bool mend = false;
  while (!words.AtEnd()) {
    const std::string option = words.Take();
    if (option == "--database") {
      url = words.Take();
    } else if (option == "--mend") {
      mend = true;
    } else {
      throw UsageError();
    }
  }
  if (url.empty()) {
    throw UsageError();
  }
  return host::RunCheck(url, mend, std::cout) ? 0 : 1;
}

int RefreshOneRecall(Words& words) {
  std::string url;
  std::optional<std::int32_t> office;
  std::optional<std::int32_t> recall;
  while (!words.AtEnd()) {
    const std::string option = words.Take();
    if (option == "--database") {
      url = words.Take();
    } else if (option == "--office") {
      office = words.TakeNumber();
    } else if (option == "--id") {
      recall = words.TakeNumber();
    } else {
      throw UsageError();
    }
  }
  if (url.empty() || !recall) {
    throw UsageError();
  }
  host::RunRecall(url, office, *recall, std::cout);
  return 0;
}

int ChangeDesks(Words& words) {
  std::string url;
  std::string removed;
  host::DeskLogin login;
  while (!words.AtEnd()) {
    const std::string option = words.Take();
    if (option == "--database") {
      url = words.Take();
    } else if (option == "--desk") {
      login.name = words.Take();
    } else if (option == "--remove") {
      removed = words.Take();
    } else if (option == "--office") {
      login.offices.push_back(words.TakeNumber());
    } else {
      throw UsageError();
    }
  }
  if (url.empty() || login.name.empty() == removed.empty() || (!removed.empty() && !login.offices.empty())) {
    throw UsageError();
  }
  if (removed.empty()) {
    host::RunRoles(url, login, std::cout);
  } else {
    host::RemoveRoles(url, removed, std::cout);
  }
  return 0;
}

int RunOfficesOrder(Words& words) {
  host::OfficesOrder order;
  order.what = words.Take();
  while (!words.AtEnd()) {
    const std::string option = words.Take();
    if (option == "--database") {
      order.url = words.Take();
    } else if (option == "--server" || option == "--to") {
      const std::string server = words.Take();
      const std::size_t equals = std::min(server.find('='), server.size());
      order.server = {server.substr(0, equals), server.substr(std::min(equals + 1, server.size()))};
    } else if (option == "--row-guids") {
      order.row_guids = true;
    } else if (option == "--demo") {
      order.demo = words.TakeNumber();
    } else if (option == "--copy") {
      order.copy = words.Take();
    } else if (const auto office = host::ParseNumber(option); office && order.office == 0) {
      order.office = *office;
    } else {
      throw UsageError();
    }
  }
  if (!IsWhole(order)) {
    throw UsageError();
  }
  return host::RunOffices(order, std::cout) ? 0 : 1;
}

int RunFiles(Words& words) {
  host::RunOptions options;
  std::vector<std::string> files;
  while (!words.AtEnd()) {
    std::string word = words.Take();
    if (word == "--engine") {
      options.unnamed.engine = words.Take();
      if (!host::IsEngine(options.unnamed.engine)) {
        throw UsageError();
      }
    } else if (word == "--as-desk") {
      options.unnamed.as_desk = true;
    } else if (word == "--kind") {
      options.unnamed.options.kind = words.TakeNumber();
      options.checks_statements = false;
    } else if (word == "--row-guids") {
      options.unnamed.options.row_guids = true;
      options.checks_statements = false;
    } else {
      files.push_back(std::move(word));
    }
  }
  if (files.empty() || (options.unnamed.as_desk && options.unnamed.engine == host::kSqlite)) {
    throw UsageError();
  }
  return host::RunScenarioFiles(files, std::cout, options).failed == 0 ? 0 : 1;
}

int DescribeForms(Words& words) {
  std::optional<std::string> form;
  if (!words.AtEnd()) {
    form = words.Take();
  }
  if (!words.AtEnd()) {
    throw UsageError();
  }
  host::RunDescribe(form, std::cout);
  return 0;
}

int RunCommand(Words& words) {
  if (words.AtEnd()) {
    host::RunTerminal(std::cin, std::cout, std::nullopt);
    return 0;
  }
  const std::string command = words.Take();
  if (command == "run") {
    return RunFiles(words);
  }
  if (command == "describe") {
    return DescribeForms(words);
  }
  if (command == "demo") {
    return MakeDemoPractice(words);
  }
  if (command == "log") {
    return ShowLog(words);
  }
  if (command == "check") {
    return CheckPractice(words);
  }
  if (command == "copy") {
    const std::string from = words.Take();
    const std::string to = words.Take();
    std::optional<std::int32_t> office;
    if (!words.AtEnd()) {
      if (words.Take() != "--office") {
        throw UsageError();
      }
      office = words.TakeNumber();
    }
    if (!words.AtEnd()) {
      throw UsageError();
    }
    return host::RunCopy(from, to, office, std::cout) ? 0 : 1;
  }
  if (command == "cluster" && words.AtEnd()) {
    host::RunCluster(std::cin, std::cout);
    return 0;
  }
  if (command == "recall") {
    return RefreshOneRecall(words);
  }
  if (command == "roles") {
    return ChangeDesks(words);
  }
  if (command == "offices") {
    return RunOfficesOrder(words);
  }
  if (command == "--database") {
    const std::string url = words.Take();
    if (words.AtEnd()) {
      host::RunTerminal(std::cin, std::cout, url);
      return 0;
    }
  }
  if (command == "--help" && words.AtEnd()) {
    std::cout << kUsage;
    return 0;
  }
  throw UsageError();
}

}  // namespace

int main(int argc, char** argv) {
  try {
    host::SpeakUtf8AtConsole();
    host::TemporaryFolder::RemoveLeft();
    Words words(host::ProgramArguments(argc, argv));
    return RunCommand(words);
  } catch (const UsageError&) {
    std::cerr << kUsage;
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "practice_console: " << error.what() << "\n";
    return 1;
  }
}
