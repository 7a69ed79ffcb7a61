#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>

#include "console/step_failure.h"
#include "console/steps.h"
#include "forms/text.h"
#include "practice/practice_log.h"

namespace host {
namespace {

// The recorded texts, one a line, for a failure.
std::string Listed(const std::vector<std::string>& texts) {
  if (texts.empty()) {
    return "none";
  }
  std::string listed = std::to_string(texts.size());
  for (const std::string& text : texts) {
    listed += "\n    " + Quoted(text);
  }
  return listed;
}

void CheckAny(const std::vector<std::string>& texts, const Expectation& wanted, const std::string& what) {
  if (std::ranges::none_of(texts, [&](const std::string& text) { return wanted.Matches(text); })) {
    Differ(what + " " + wanted.Describe(), Listed(texts));
  }
}

void CheckQuery(Interpreter& interpreter, StepWords& words) {
  const std::string sql = words.TakeUpToSign("a query");
  std::vector<std::string> rows;
  for (const auto recordset = interpreter.World().Run(sql); !recordset->Eof(); recordset->MoveNext()) {
    std::string row;
    for (std::size_t field = 0; field < recordset->Fields().size(); ++field) {
      const session::Value value = recordset->Get(field);
      row += (field == 0 ? "" : "|") + (session::IsNull(value) ? "(null)" : session::ToText(value));
    }
    rows.push_back(std::move(row));
  }
  std::vector<Expectation> wanted;
  if (words.TakeNone()) {
    words.End();
  } else {
    wanted = words.TakeExpectations();
  }
  const auto matches = [](const std::string& row, const Expectation& expectation) { return expectation.Matches(row); };
  if (!std::equal(rows.begin(), rows.end(), wanted.begin(), wanted.end(), matches)) {
    std::string expected = wanted.empty() ? "none" : std::to_string(wanted.size());
    for (const Expectation& expectation : wanted) {
      expected += "\n    " + expectation.Describe();
    }
    Differ(expected, Listed(rows));
  }
}

void CheckSaid(Interpreter& interpreter, StepWords& words) {
  const Expectation wanted = words.TakeLooseExpectation();
  words.End();
  CheckAny(interpreter.Heard().said, wanted, "said");
}

void CheckStatement(Interpreter& interpreter, StepWords& words) {
  const Expectation wanted = words.TakeExpectation();
  words.End();
  CheckAny(interpreter.Heard().statements, wanted, "statement");
}

void CheckNoStatement(Interpreter& interpreter, StepWords& words) {
  if (!words.TakeKeyword("statement")) {
    Fail("the step is `no statement`");
  }
  const Expectation wanted = words.TakeExpectation();
  words.End();
  const auto& statements = interpreter.Heard().statements;
  const auto found = std::ranges::find_if(statements, [&](const std::string& text) { return wanted.Matches(text); });
  if (found != statements.end()) {
    Differ("no statement " + wanted.Describe(), Quoted(*found));
  }
}

void CheckStatements(Interpreter& interpreter, StepWords& words) {
  const Expectation wanted = words.TakeExpectation();
  words.End();
  const auto& statements = interpreter.Heard().statements;
  if (!wanted.Matches(std::to_string(statements.size()))) {
    Differ(wanted.Describe(), Listed(statements));
  }
}

void CheckLog(Interpreter& interpreter, StepWords& words) {
  const std::string category = words.Take("a category");
  const Expectation wanted = words.TakeExpectation();
  words.End();
  std::vector<std::string> texts;
  for (const session::LogEntry& entry : interpreter.Heard().logged) {
    if (LoggedEntry{.entry = entry, .user = {}, .when = {}}.IsOf(category)) {
      texts.push_back(entry.text);
    }
  }
  CheckAny(texts, wanted, "an entry of " + category);
}

void CheckHanded(Interpreter& interpreter, StepWords& words) {
  std::string wanted = words.Take("a column");
  wanted += " " + words.Take("a table");
  wanted += " " + words.Take("an ID");
  words.End();
  std::vector<std::string> handed;
  for (const HandOff& record : interpreter.Heard().handed) {
    handed.push_back(record.id_column + " " + record.table + " " + std::to_string(record.id));
  }
  const auto same = [&](const std::string& text) { return forms::EqualsIgnoringCase(text, wanted); };
  if (std::ranges::none_of(handed, same)) {
    Differ(wanted, Listed(handed));
  }
}

void CheckStarted(Interpreter& interpreter, StepWords& words) {
  const Expectation wanted = words.TakeExpectation();
  words.End();
  CheckAny(interpreter.Heard().started, wanted, "started");
}

void CheckTextFile(Interpreter& interpreter, StepWords& words) {
  const auto path = interpreter.World().File(words.Take("a path"));
  const Expectation wanted = words.TakeExpectation();
  words.End();
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    Differ(wanted.Describe(), "no such file");
  }
  wanted.Check(std::string(std::istreambuf_iterator<char>(file), {}));
}

void CheckEvent(Interpreter& interpreter, StepWords& words) {
  const std::string name = words.Take("an event");
  std::vector<std::string> values;
  while (!words.AtEnd()) {
    values.push_back(words.Take("a value"));
  }
  const auto same = [&](const Recordings::Event& event) {
    return forms::EqualsIgnoringCase(event.name, name) && values.size() <= event.values.size() &&
           std::equal(values.begin(), values.end(), event.values.begin());
  };
  const auto& events = interpreter.Heard().events;
  if (std::ranges::none_of(events, same)) {
    std::vector<std::string> raised;
    for (const auto& event : events) {
      raised.push_back(event.name);
      for (const std::string& value : event.values) {
        raised.back() += " " + value;
      }
    }
    Differ("the event " + name, Listed(raised));
  }
}

void Forget(Interpreter& interpreter, StepWords& words) {
  words.End();
  interpreter.Heard().Forget();
}

constexpr std::array kSteps = {
    Step{"query", StepKind::Check, R"(SQL = "a|b" ["c|d"]... or SQL = none)", "the rows of a statement", CheckQuery},
    Step{"said", StepKind::Check, "TEXT or ~ PATTERN", "a wait or status text was shown", CheckSaid},
    Step{"statement", StepKind::Check, "~ PATTERN", "the screens issued such a statement", CheckStatement},
    Step{"no", StepKind::Check, "statement ~ PATTERN", "the screens issued no such statement", CheckNoStatement},
    Step{"statements", StepKind::Check, "= N", "how many statements the screens issued", CheckStatements},
    Step{"log", StepKind::Check, "CATEGORY ~ PATTERN", "an entry of a log", CheckLog},
    Step{"handed", StepKind::Check, "COLUMN TABLE ID", "a record was handed off", CheckHanded},
    Step{"started", StepKind::Check, "~ PATTERN", "a program was started", CheckStarted},
    Step{"text-file", StepKind::Check, "PATH = TEXT", "a file under the data folder", CheckTextFile},
    Step{"event", StepKind::Check, "NAME [VALUE]...", "an event was raised", CheckEvent},
    Step{"forget", StepKind::Check, "", "empties the recordings", Forget},
};

}  // namespace

std::span<const Step> RecordCheckSteps() {
  return kSteps;
}

}  // namespace host
