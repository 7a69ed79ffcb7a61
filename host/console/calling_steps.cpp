#include <algorithm>
#include <array>
#include <stdexcept>

#include "console/control_state.h"
#include "console/step_failure.h"
#include "console/steps.h"
#include "forms/text.h"
#include "gallery/frmGallery.h"

namespace host {
namespace {

// The owner of CLASS.MEMBER or NAME.MEMBER, and the member.
std::pair<entry::Dispatch*, std::string> TakeMember(Interpreter& interpreter, StepWords& words) {
  const std::string text = words.Take("CLASS.MEMBER");
  const std::size_t point = text.find('.');
  entry::Dispatch* owner = interpreter.World().Find(text.substr(0, point));
  if (owner == nullptr) {
    Fail("there is no public class " + text.substr(0, point) + " and no instance of that name");
  }
  if (point == std::string::npos) {
    Fail("a member of " + text + " is due, as " + text + ".MEMBER");
  }
  return {owner, text.substr(point + 1)};
}

// Beside the names that are known already.
void MakeInstance(Interpreter& interpreter, StepWords& words) {
  const std::string class_name = words.Take("a public class");
  const std::string name = words.Take("a name");
  words.End();
  if (name.empty() || name.find('.') != std::string::npos) {
    Fail(Quoted(name) + " is no name of an instance");
  }
  if (interpreter.World().Find(name) != nullptr) {
    Fail("there is " + name + " already");
  }
  if (!interpreter.World().New(class_name, name)) {
    Fail("there is no public class " + class_name);
  }
}

// NAME=VALUE, or values in the order of the parameters.
entry::Arguments TakeArguments(const entry::Method& method, StepWords& words) {
  entry::Arguments arguments;
  for (std::size_t position = 0; !words.AtEnd(); ++position) {
    const std::string word = words.Take("an argument");
    const std::size_t sign = word.find('=');
    if (sign == std::string::npos && position < method.parameters.size()) {
      arguments[method.parameters[position].name] = word;
      continue;
    }
    const std::string name = word.substr(0, sign);
    const auto same = [&](const entry::Parameter& parameter) {
      return forms::EqualsIgnoringCase(parameter.name, name);
    };
    if (sign == std::string::npos || std::ranges::none_of(method.parameters, same)) {
      Fail(method.name + " has no argument " + name);
    }
    arguments[name] = word.substr(sign + 1);
  }
  return arguments;
}

std::optional<std::string> ReadMember(const entry::Dispatch& owner, const std::string& name) {
  const auto property = owner.properties.find(name);
  return property == owner.properties.end() ? std::nullopt : std::optional(property->second.get());
}

void Call(Interpreter& interpreter, StepWords& words) {
  const auto [owner, name] = TakeMember(interpreter, words);
  const entry::Method* method = owner->Find(name);
  if (method == nullptr) {
    Fail(owner->class_name + " has no method " + name);
  }
  entry::Arguments arguments = TakeArguments(*method, words);
  arguments.insert_or_assign("return", method->invoke(arguments));
  interpreter.ReadResult = [called = owner, arguments](const std::string& wanted) {
    const auto argument = arguments.find(wanted);
    return argument != arguments.end() ? std::optional(argument->second) : ReadMember(*called, wanted);
  };
}

void Set(Interpreter& interpreter, StepWords& words) {
  const auto [owner, name] = TakeMember(interpreter, words);
  const auto property = owner->properties.find(name);
  if (property == owner->properties.end()) {
    Fail(owner->class_name + " has no property " + name);
  }
  words.TakeKeyword("=");
  const std::string value = words.Take("a value");
  words.End();
  try {
    property->second.set(value);
  } catch (const std::invalid_argument& problem) {
    Fail(owner->class_name + "." + name + ": " + problem.what());
  }
  // What has been called before is read still.
  interpreter.ReadResult = [changed = owner, before = std::move(interpreter.ReadResult)](const std::string& wanted) {
    auto read = ReadMember(*changed, wanted);
    return read || !before ? read : before(wanted);
  };
}

const forms::Form::NamedProperty* FindProperty(const forms::Form& form, std::string_view name) {
  for (const auto& [known, property] : form.Properties) {
    if (forms::EqualsIgnoringCase(known, name)) {
      return &property;
    }
  }
  return nullptr;
}

void OpenForm(Interpreter& interpreter, StepWords& words) {
  const std::string name = words.Take("a form");
  auto made = entry::MakeForm(name, interpreter.World().Context());
  if (made == nullptr) {
    made = MakeGallery(name, interpreter.Person());
  }
  if (made == nullptr) {
    Fail("there is no form " + name);
  }
  while (!words.AtEnd()) {
    const auto [property_name, value] = words.TakeNamed("a property");
    const auto* property = FindProperty(*made, property_name);
    if (property == nullptr) {
      Fail(made->Name() + " has no public property " + property_name);
    }
    if (!property->set) {
      Fail(made->Name() + "." + property_name + " is only read");
    }
    property->set(value);
  }
  forms::Form& form = *made;
  interpreter.Keep(std::move(made));
  interpreter.Person().Show(form);
  interpreter.ReadResult = [&form](const std::string& wanted) -> std::optional<std::string> {
    const auto* property = FindProperty(form, wanted);
    return property == nullptr || !property->get ? std::nullopt : std::optional(property->get());
  };
}

// Texts of truth values are truth values.
void CheckResult(Interpreter& interpreter, StepWords& words) {
  const std::string name = words.Take("a name");
  const Expectation wanted = words.TakeExpectation();
  words.End();
  const std::size_t point = name.find('.');
  const entry::Dispatch* owner = point == std::string::npos ? nullptr : interpreter.World().Find(name.substr(0, point));
  if (owner == nullptr && !interpreter.ReadResult) {
    Fail("nothing has been called");
  }
  const auto value = owner != nullptr ? ReadMember(*owner, name.substr(point + 1)) : interpreter.ReadResult(name);
  if (!value) {
    Fail("there is no result " + name);
  }
  const bool truth = *value == "True" || *value == "False";
  PropertyValue{.text = *value, .truth = truth ? ParseTruth(*value) : std::nullopt}.Check(wanted);
}

void CheckDone(Interpreter& interpreter, StepWords& words) {
  words.End();
  if (interpreter.HasQuestion()) {
    Differ("nothing is open", Describe(interpreter.Open()));
  }
  if (interpreter.HasForm()) {
    Differ("nothing is open", interpreter.Top().Name() + " " + Quoted(interpreter.Top().Caption.get()));
  }
}

constexpr std::array kSteps = {
    Step{"call", StepKind::Call, "CLASS.METHOD [NAME=VALUE]...", "calls a public method", Call},
    Step{"new", StepKind::SetUp, "CLASS NAME", "a further instance, called as NAME.METHOD", MakeInstance},
    Step{"set", StepKind::SetUp, "CLASS.PROPERTY VALUE", "sets a public property", Set},
    Step{"open", StepKind::Call, "FORM [PROPERTY=VALUE]...", "opens a form by its class name", OpenForm},
    Step{"result", StepKind::Check, "NAME = VALUE", "an argument, a property, or the call's value: return",
         CheckResult},
    Step{"done", StepKind::Check, "", "nothing is open", CheckDone},
};

}  // namespace

std::span<const Step> CallingSteps() {
  return kSteps;
}

}  // namespace host
