#include "console/practice_line.h"

#include "console/server_practice.h"
#include "console/step_failure.h"

namespace host {
namespace {

constexpr std::int32_t kDemoPatients = 60;
constexpr const char* kInMemory = "sqlite::memory:";

}  // namespace

bool IsEngine(std::string_view name) {
  return name == kSqlite || name == kPostgres || name == kGroup;
}

PracticeLine ReadPracticeLine(StepWords& words, PracticeLine line) {
  line.demo = words.TakeKeyword("demo");
  if (!line.demo && !words.TakeKeyword("empty")) {
    Fail("a practice is empty or demo");
  }
  while (!words.AtEnd()) {
    if (words.TakeKeyword("kind")) {
      line.options.kind = words.TakeNumber("a kind");
    } else if (words.TakeKeyword("office")) {
      line.options.office = words.TakeNumber("an office");
    } else if (words.TakeKeyword("offices")) {
      line.options.offices = words.TakeNumber("a number of offices");
    } else if (words.TakeKeyword("engine")) {
      line.engine = words.Take("an engine");
    } else if (words.TakeKeyword("row-guids")) {
      line.options.row_guids = true;
    } else if (words.TakeKeyword("files")) {
      line.files = true;
    } else {
      Fail("a practice has no " + words.Take("an option"));
    }
  }
  return line;
}

StagedPractice MakePractice(const PracticeLine& line) {
  if (!IsEngine(line.engine)) {
    Fail("there is no engine " + line.engine);
  }
  return line.engine == kSqlite ? NewPractice(kInMemory, line) : MakeServerPractice(line);
}

Practice NewPractice(const std::string& url, const PracticeLine& line) {
  return line.demo ? MakeDemo(url, DemoOf(line)) : CreatePractice(url, line.options);
}

DemoOptions DemoOf(const PracticeLine& line) {
  return {.patients = kDemoPatients, .practice = line.options};
}

}  // namespace host
