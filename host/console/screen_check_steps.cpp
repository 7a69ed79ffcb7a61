#include <array>

#include "console/control_state.h"
#include "console/step_failure.h"
#include "console/steps.h"
#include "forms/grid.h"
#include "forms/list_box.h"
#include "forms/text.h"

namespace host {
namespace {

void CheckForm(Interpreter& interpreter, StepWords& words) {
  const std::string name = words.Take("a form");
  const auto attributes = words.TakeAttributes({"caption"});
  if (!interpreter.HasForm()) {
    Differ(name, "no screen is open");
  }
  const forms::Form& form = interpreter.Top();
  if (!forms::EqualsIgnoringCase(form.Name(), name)) {
    Differ(name, form.Name());
  }
  for (const auto& [attribute, wanted] : attributes) {
    wanted.Check(form.Caption.get());
  }
}

// The control of a name that may end in a property, and that property; nullptr when the form has none such.
std::pair<const forms::Control*, std::string> FindWithProperty(Interpreter& interpreter, const std::string& name) {
  const auto known = [&](const std::string& part) { return interpreter.Top().Find(part) != nullptr; };
  if (known(name)) {
    return {&interpreter.Find(name), {}};
  }
  const std::size_t point = name.rfind('.');
  if (point == std::string::npos || !known(name.substr(0, point))) {
    return {nullptr, {}};
  }
  return {&interpreter.Find(name.substr(0, point)), name.substr(point + 1)};
}

// A public property of the form itself, or its caption.
void CheckFormProperty(const forms::Form& form, const std::string& name, const Expectation& wanted) {
  if (forms::EqualsIgnoringCase(name, "Caption") || forms::EqualsIgnoringCase(name, form.Name() + ".Caption")) {
    wanted.Check(form.Caption.get());
    return;
  }
  for (const auto& [known, property] : form.Properties) {
    if (forms::EqualsIgnoringCase(known, name) || forms::EqualsIgnoringCase(form.Name() + "." + known, name)) {
      if (!property.get) {
        Fail(form.Name() + "." + known + " is only set");
      }
      const std::string value = property.get();
      const bool truth = value == "True" || value == "False";
      PropertyValue{.text = value, .truth = truth ? ParseTruth(value) : std::nullopt}.Check(wanted);
      return;
    }
  }
  Fail(form.Name() + " has no control " + name);
}

void Expect(Interpreter& interpreter, StepWords& words) {
  const std::string name = words.Take("a control");
  const Expectation wanted = words.TakeExpectation();
  words.End();
  const auto [control, property] = FindWithProperty(interpreter, name);
  if (control == nullptr) {
    CheckFormProperty(interpreter.Top(), name, wanted);
    return;
  }
  const auto value = ReadProperty(*control, property);
  if (!value) {
    Fail(control->Name() + (property.empty() ? " has no default property" : " has no property " + property));
  }
  value->Check(wanted);
}

// The rows of a grid or the entries of a list, tabs between the entry's columns as "|".
std::vector<std::string> Lines(const forms::Control& control) {
  std::vector<std::string> lines;
  if (const auto* grid = dynamic_cast<const forms::Grid*>(&control); grid != nullptr) {
    for (int row = 0; row < grid->RowCount(); ++row) {
      lines.push_back(RowText(*grid, row));
    }
  } else if (const auto* list = dynamic_cast<const forms::ListBox*>(&control); list != nullptr) {
    for (const forms::ListItem& item : list->Items.get()) {
      lines.push_back(item.text);
      std::ranges::replace(lines.back(), '\t', '|');
    }
  } else {
    Fail(control.Name() + " has no rows");
  }
  return lines;
}

void CheckRows(Interpreter& interpreter, StepWords& words) {
  const forms::Control& control = interpreter.Find(words.Take("a grid"));
  const Expectation wanted = words.TakeExpectation();
  words.End();
  wanted.Check(std::to_string(Lines(control).size()));
}

void CheckLine(Interpreter& interpreter, StepWords& words) {
  const forms::Control& control = interpreter.Find(words.Take("a grid"));
  std::string position = words.Take("a position");
  position.erase(0, position.starts_with('#') ? 1 : 0);
  const auto row = ParseNumber(position);
  if (!row) {
    Fail(Quoted(position) + " is no position");
  }
  const Expectation wanted = words.TakeExpectation();
  words.End();
  const auto lines = Lines(control);
  if (*row < 0 || *row >= static_cast<std::int32_t>(lines.size())) {
    Differ(wanted.Describe(), std::to_string(lines.size()) + " rows");
  }
  wanted.Check(lines[static_cast<std::size_t>(*row)]);
}

void CheckColumns(Interpreter& interpreter, StepWords& words) {
  const forms::Control& control = interpreter.Find(words.Take("a grid"));
  const Expectation wanted = words.TakeExpectation();
  words.End();
  const auto* grid = dynamic_cast<const forms::Grid*>(&control);
  if (grid == nullptr) {
    Fail(control.Name() + " has no columns");
  }
  wanted.Check(ColumnCaptions(*grid));
}

void ShowScreen(Interpreter& interpreter, StepWords& words) {
  words.End();
  interpreter.Print(interpreter.HasForm() ? StateOf(interpreter.Top()) : "no screen is open\n");
}

constexpr std::array kSteps = {
    Step{"form", StepKind::Check, "NAME [caption = TEXT]", "the topmost screen", CheckForm},
    Step{"expect", StepKind::Check, "CONTROL[.PROPERTY] = VALUE", "what a control shows", Expect},
    Step{"rows", StepKind::Check, "GRID = N", "how many rows there are", CheckRows},
    Step{"line", StepKind::Check, "GRID #N = \"a|b|c\"", "the visible cells of a row", CheckLine},
    Step{"columns", StepKind::Check, "GRID = \"a|b|c\"", "the captions of the visible columns", CheckColumns},
    Step{"screen", StepKind::Check, "", "prints the topmost screen", ShowScreen},
};

}  // namespace

std::span<const Step> ScreenCheckSteps() {
  return kSteps;
}

}  // namespace host
