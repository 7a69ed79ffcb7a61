#include <algorithm>
#include <array>
#include <fstream>

#include "console/practice_line.h"
#include "console/step_failure.h"
#include "console/steps.h"
#include "practice/accounts.h"
#include "practice/demo_files.h"
#include "session/value.h"

namespace host {
namespace {

void SetPractice(Interpreter& interpreter, StepWords& words) {
  const PracticeLine line = ReadPracticeLine(words, interpreter.Unnamed);
  StagedPractice practice = MakePractice(line);
  interpreter.SetWorld(nullptr);  // the old one goes before the new one takes its place in the component's slots
  interpreter.SetWorld(std::make_unique<Stage>(std::move(practice), FirstClock(), interpreter.Person(),
                                               interpreter.Heard(), interpreter.ToScreens));
  if (line.files) {
    WriteDemoFiles(interpreter.World().Session().DataFolder());
  }
}

void SetOffice(Interpreter& interpreter, StepWords& words) {
  const std::int32_t office = words.TakeNumber("an office");
  words.End();
  interpreter.World().SetOffice(office);
}

void SetUser(Interpreter& interpreter, StepWords& words) {
  const std::string name = words.Take("a name");
  const bool supervisor = words.TakeKeyword("supervisor");
  words.End();
  interpreter.World().SetUser(LoginRights(name, supervisor));
}

void Grant(Interpreter& interpreter, StepWords& words) {
  do {
    interpreter.World().Session().User().Grant(words.Take("a right"));
  } while (!words.AtEnd());
}

void Revoke(Interpreter& interpreter, StepWords& words) {
  do {
    interpreter.World().Session().User().Revoke(words.Take("a right"));
  } while (!words.AtEnd());
}

void SetClock(Interpreter& interpreter, StepWords& words) {
  const std::string text = words.TakeRest("a time");
  const bool without_seconds = text.size() == std::string_view("2026-11-21 14:05").size();
  const auto now = forms::ParseIso(without_seconds ? text + ":00" : text);
  if (!now) {
    Fail(Quoted(text) + " is no time as \"2026-11-21 14:05:00\"");
  }
  interpreter.World().SetClock(*now);
}

void SetSetting(Interpreter& interpreter, StepWords& words) {
  std::string section = words.Take("a section");
  std::string key = words.Take("a key");
  std::string value = words.Take("a value");
  words.End();
  interpreter.World().SetSetting(std::move(section), std::move(key), std::move(value));
}

void WriteTextFile(Interpreter& interpreter, StepWords& words) {
  const auto path = interpreter.World().OwnFile(words.Take("a path"));
  const std::string text = words.Take("a text");
  words.End();
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  if (!file.write(text.data(), static_cast<std::streamsize>(text.size())).flush()) {
    Fail("the file cannot be written: " + path.string());
  }
}

void RunStatement(Interpreter& interpreter, StepWords& words) {
  interpreter.World().Run(words.TakeRest("a statement"));
}

void Let(Interpreter& interpreter, StepWords& words) {
  const std::string name = words.Take("a name");
  if (!words.TakeKeyword("=")) {
    Fail("= is due behind the variable's name");
  }
  const auto rows = interpreter.World().Run(words.TakeRest("a query"));
  if (rows == nullptr || rows->Eof()) {
    Fail("the query gives no row");
  }
  std::string value = session::ToText(rows->Get(0));
  if (value.size() > kLongestText) {
    Fail("the value of " + name + " is longer than " + std::to_string(kLongestText) + " bytes");
  }
  Variables& known = interpreter.Known();
  if (known.size() >= kMostVariables && !known.contains(name)) {
    Fail("there are " + std::to_string(kMostVariables) + " variables already");
  }
  known[name] = std::move(value);
}

void Hold(Interpreter& interpreter, StepWords& words) {
  const std::string table = words.Take("a table");
  const std::int32_t id = words.TakeNumber("an ID");
  const bool silent = words.TakeKeyword("silent");
  words.End();
  interpreter.World().HoldForAnother(table, id, silent);
}

void Refuse(Interpreter& interpreter, StepWords& words) {
  Refusal refusal;
  refusal.change = words.Take("INSERT, UPDATE or DELETE");
  refusal.table = words.Take("a table");
  refusal.text = words.Take("the engine's reason");
  if (words.TakeKeyword("of")) {
    refusal.column = words.Take("a column");
  }
  if (words.TakeKeyword("when")) {
    refusal.when = words.Take("a condition");
  }
  words.End();
  interpreter.World().Refuse(std::move(refusal));
}

void Allow(Interpreter& interpreter, StepWords& words) {
  words.End();
  interpreter.World().AllowAll();
}

void AnswerEvent(Interpreter& interpreter, StepWords& words) {
  const std::string event = words.Take("an event");
  const auto [argument, text] = words.TakeNamed("an argument");
  words.End();
  const auto value = ParseTruth(text);
  if (!value) {
    Fail(Quoted(text) + " is neither True nor False");
  }
  if (!interpreter.World().Answer(event, argument, *value)) {
    Fail("there is no event " + event + " that asks for " + argument);
  }
}

bool TakeWorks(StepWords& words) {
  const std::string how = words.Take("works or fails");
  words.End();
  if (how != "works" && how != "fails") {
    Fail("it works or fails");
  }
  return how == "works";
}

void SetSending(Interpreter& interpreter, StepWords& words) {
  interpreter.World().Session().takes_messages = TakeWorks(words);
}

void SetStarting(Interpreter& interpreter, StepWords& words) {
  interpreter.World().Session().starts_programs = TakeWorks(words);
}

forms::Currency Amount(const std::string& text) {
  const auto amount = forms::Currency::Parse(text);
  if (!amount) {
    Fail(Quoted(text) + " is no amount");
  }
  return *amount;
}

void SetAccount(Interpreter& interpreter, StepWords& words) {
  const std::int32_t person = words.TakeNumber("a person's ID");
  session::AccountFigures figures;
  while (!words.AtEnd()) {
    const auto [name, value] = words.TakeNamed("a figure");
    if (name == "balance") {
      figures.balance = Amount(value);
    } else if (name == "plan-balance") {
      figures.plan_balance = Amount(value);
    } else if (name == "plan" && (value == "own" || value == "family")) {
      figures.plan = value == "own" ? session::BudgetPlan::Own : session::BudgetPlan::Family;
    } else {
      Fail("an account has no " + name + "=" + value);
    }
  }
  WriteAccount(interpreter.World().Session().Office(), person, figures);
}

constexpr std::array kSteps = {
    Step{"practice", StepKind::SetUp, "empty|demo [kind N] [office N] [offices N] [engine E] [row-guids] [files]",
         "a fresh practice", SetPractice},
    Step{"office", StepKind::SetUp, "N", "the office of the session from here on", SetOffice},
    Step{"user", StepKind::SetUp, "NAME [supervisor]", "who is logged in", SetUser},
    Step{"grant", StepKind::SetUp, "RIGHT...", "rights he has from now on", Grant},
    Step{"revoke", StepKind::SetUp, "RIGHT...", "rights he has no longer", Revoke},
    Step{"clock", StepKind::SetUp, "\"YYYY-MM-DD HH:MM:SS\"", "stops the clock there", SetClock},
    Step{"setting", StepKind::SetUp, "SECTION KEY VALUE", "an office setting or user option", SetSetting},
    Step{"file", StepKind::SetUp, "PATH TEXT", "a file under the data folder", WriteTextFile},
    Step{"sql", StepKind::SetUp, "STATEMENT", "runs a statement", RunStatement},
    Step{"let", StepKind::SetUp, "NAME = QUERY", "a variable, used as ${NAME}", Let},
    Step{"held", StepKind::SetUp, "TABLE ID [silent]", "another user holds the record, at work or silent", Hold},
    Step{"refuse", StepKind::SetUp, "INSERT|UPDATE|DELETE TABLE REASON [of COLUMN] [when CONDITION]",
         "the database refuses such changes, as on a full disk", Refuse},
    Step{"allow", StepKind::SetUp, "", "the database refuses nothing more", Allow},
    Step{"handler", StepKind::SetUp, "EVENT NAME=VALUE", "what the host answers to the event from now on", AnswerEvent},
    Step{"sending", StepKind::SetUp, "works|fails", "whether the reminder service takes messages", SetSending},
    Step{"starting", StepKind::SetUp, "works|fails", "whether programs can be started", SetStarting},
    Step{"account", StepKind::SetUp, "PID balance=AMOUNT [plan-balance=AMOUNT] [plan=own|family]",
         "the figures of a person's account", SetAccount},
};

}  // namespace

std::span<const Step> SettingUpSteps() {
  return kSteps;
}

}  // namespace host
