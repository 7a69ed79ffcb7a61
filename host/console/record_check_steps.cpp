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

// Where the first that matches stands, from `from` on; fails when there is none.
std::size_t FindAny(const std::vector<std::string>& texts, const Expectation& wanted, const std::string& what,
                    std::size_t from = 0) {
  const auto first = texts.begin() + static_cast<std::ptrdiff_t>(from);
  const auto found = std::find_if(first, texts.end(), [&](const std::string& text) { return wanted.Matches(text); });
  if (found == texts.end()) {
    Differ(what + " " + wanted.Describe(), Listed({first, texts.end()}));
  }
  return static_cast<std::size_t>(found - texts.begin());
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
  FindAny(interpreter.Heard().said, wanted, "said");
}

void CheckStatement(Interpreter& interpreter, StepWords& words) {
  const Expectation wanted = words.TakeExpectation();
  words.End();
  if (!interpreter.ChecksStatements) {
    return;
  }
  Recordings& heard = interpreter.Heard();
  heard.behind_found = FindAny(heard.statements, wanted, "statement") + 1;
}

// Before a statement has been found, from the first on.
void CheckNext(Interpreter& interpreter, StepWords& words) {
  if (!words.TakeKeyword("statement")) {
    Fail("the step is `next statement`");
  }
  const Expectation wanted = words.TakeExpectation();
  words.End();
  if (!interpreter.ChecksStatements) {
    return;
  }
  Recordings& heard = interpreter.Heard();
  heard.behind_found = FindAny(heard.statements, wanted, "a later statement", heard.behind_found) + 1;
}

void CheckNoStatement(Interpreter& interpreter, StepWords& words) {
  const Expectation wanted = words.TakeExpectation();
  words.End();
  if (!interpreter.ChecksStatements) {
    return;
  }
  const auto& statements = interpreter.Heard().statements;
  const auto found = std::ranges::find_if(statements, [&](const std::string& text) { return wanted.Matches(text); });
  if (found != statements.end()) {
    Differ("no statement " + wanted.Describe(), Quoted(*found));
  }
}

void CheckStatements(Interpreter& interpreter, StepWords& words) {
  const Expectation wanted = words.TakeExpectation();
  words.End();
  if (!interpreter.ChecksStatements) {
    return;
  }
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
  FindAny(texts, wanted, "an entry of " + category);
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
  FindAny(interpreter.Heard().started, wanted, "started");
}

void CheckTextFile(Interpreter& interpreter, StepWords& words) {
  const auto path = interpreter.World().OwnFile(words.Take("a path"));
  const Expectation wanted = words.TakeExpectation();
  words.End();
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    Differ(wanted.Describe(), "no such file");
  }
  wanted.Check(std::string(std::istreambuf_iterator<char>(file), {}));
}

std::string Joined(const Recordings::Event& event) {
  std::string text = event.name;
  for (const std::string& value : event.values) {
    text += " " + value;
  }
  return text;
}

// The events of that name and with those values, of which there may be more; each as a line.
std::vector<std::string> TakeEvents(Interpreter& interpreter, StepWords& words, Recordings::Event& wanted) {
  wanted.name = words.Take("an event");
  if (!Stage::Raises(wanted.name)) {
    Fail("there is no event " + wanted.name);
  }
  while (!words.AtEnd()) {
    wanted.values.push_back(words.Take("a value"));
  }
  std::vector<std::string> raised;
  for (const Recordings::Event& event : interpreter.Heard().events) {
    if (forms::EqualsIgnoringCase(event.name, wanted.name) && wanted.values.size() <= event.values.size() &&
        std::equal(wanted.values.begin(), wanted.values.end(), event.values.begin())) {
      raised.push_back(Joined(event));
    }
  }
  return raised;
}

void CheckEvent(Interpreter& interpreter, StepWords& words) {
  Recordings::Event wanted;
  if (TakeEvents(interpreter, words, wanted).empty()) {
    std::vector<std::string> all;
    std::ranges::transform(interpreter.Heard().events, std::back_inserter(all), Joined);
    Differ("the event " + Joined(wanted), Listed(all));
  }
}

void CheckNoEvent(Interpreter& interpreter, StepWords& words) {
  Recordings::Event wanted;
  if (const auto raised = TakeEvents(interpreter, words, wanted); !raised.empty()) {
    Differ("no event " + Joined(wanted), Listed(raised));
  }
}

void CheckNoneStarted(Interpreter& interpreter, StepWords& words) {
  words.End();
  if (!interpreter.Heard().started.empty()) {
    Differ("no program started", Listed(interpreter.Heard().started));
  }
}

void CheckNoFile(Interpreter& interpreter, StepWords& words) {
  const std::string path = words.Take("a path");
  words.End();
  if (std::filesystem::exists(interpreter.World().OwnFile(path))) {
    Differ("no file " + path, "it is there");
  }
}

void CheckNone(Interpreter& interpreter, StepWords& words) {
  if (words.TakeKeyword("statement")) {
    CheckNoStatement(interpreter, words);
  } else if (words.TakeKeyword("event")) {
    CheckNoEvent(interpreter, words);
  } else if (words.TakeKeyword("started")) {
    CheckNoneStarted(interpreter, words);
  } else if (words.TakeKeyword("file")) {
    CheckNoFile(interpreter, words);
  } else {
    Fail("the step is `no statement`, `no event`, `no started` or `no file`");
  }
}

// "e-mail", "e-Mail" and "EMAIL" are one kind; so are "text", "text message" and "SMS".
std::string KindOfMessage(std::string_view kind) {
  std::string letters = forms::ToLower(kind);
  std::erase_if(letters, [](char c) { return c == ' ' || c == '-'; });
  return letters == "textmessage" || letters == "sms" ? "text" : letters;
}

void CheckSent(Interpreter& interpreter, StepWords& words) {
  const std::string kind = words.Take("a kind");
  const Expectation wanted = words.TakeExpectation();
  words.End();
  std::vector<std::string> texts;
  for (const Recordings::Sent& message : interpreter.Heard().sent) {
    if (KindOfMessage(message.kind) == KindOfMessage(kind)) {
      texts.push_back(message.text);
    }
  }
  FindAny(texts, wanted, "sent " + kind);
}

void CheckPersonType(Interpreter& interpreter, StepWords& words) {
  const std::string wanted = words.Take("a person type");
  words.End();
  const std::string& told = interpreter.World().Session().CurrentPersonType();
  if (!forms::EqualsIgnoringCase(told, wanted)) {
    Differ(wanted, told.empty() ? "none" : told);
  }
}

void Forget(Interpreter& interpreter, StepWords& words) {
  words.End();
  interpreter.Heard().Forget();
}

void CheckCopied(Interpreter& interpreter, StepWords& words) {
  const Expectation wanted = words.TakeExpectation();
  words.End();
  wanted.Check(interpreter.Heard().copied);
}

void CheckPrinted(Interpreter& interpreter, StepWords& words) {
  const Expectation wanted = words.TakeExpectation();
  words.End();
  FindAny(interpreter.Heard().printed, wanted, "a printed page");
}

constexpr std::array kSteps = {
    Step{"query", StepKind::Check, R"(SQL = "a|b" ["c|d"]... or SQL = none)", "the rows of a statement", CheckQuery},
    Step{"said", StepKind::Check, "TEXT or ~ PATTERN", "a wait or status text was shown", CheckSaid},
    Step{"statement", StepKind::Check, "~ PATTERN", "the screens issued such a statement", CheckStatement},
    Step{"next", StepKind::Check, "statement ~ PATTERN", "such a statement behind the one found last", CheckNext},
    Step{"no", StepKind::Check, "statement ~ PATTERN, event NAME [VALUE]..., started, file PATH", "there is none such",
         CheckNone},
    Step{"statements", StepKind::Check, "= N", "how many statements the screens issued", CheckStatements},
    Step{"person-type", StepKind::Check, "KEY", "the person type that the session was told last", CheckPersonType},
    Step{"log", StepKind::Check, "CATEGORY ~ PATTERN", "an entry of a log", CheckLog},
    Step{"handed", StepKind::Check, "COLUMN TABLE ID", "a record was handed off", CheckHanded},
    Step{"started", StepKind::Check, "~ PATTERN", "a program was started", CheckStarted},
    Step{"text-file", StepKind::Check, "PATH = TEXT", "a file under the data folder", CheckTextFile},
    Step{"event", StepKind::Check, "NAME [VALUE]...", "an event was raised", CheckEvent},
    Step{"sent", StepKind::Check, "KIND ~ PATTERN", "the reminder service took such a message", CheckSent},
    Step{"copied", StepKind::Check, "= TEXT", "what stands on the clipboard", CheckCopied},
    Step{"printed", StepKind::Check, "~ PATTERN", "a page was printed, its cells parted by |", CheckPrinted},
    Step{"forget", StepKind::Check, "", "empties the recordings", Forget},
};

}  // namespace

std::span<const Step> RecordCheckSteps() {
  return kSteps;
}

}  // namespace host
