#include <algorithm>
#include <array>
#include <optional>

#include "console/acting.h"
#include "console/step_failure.h"
#include "console/steps.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/grid.h"
#include "forms/grid_text.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/rich_text_box.h"
#include "forms/text.h"
#include "forms/text_box.h"

namespace host {
namespace {

using forms::Key;

// Into a text box, or the box of a combo that takes typing, behind what `kept` leaves of its text.
void TypeInto(Interpreter& interpreter, forms::Control& control, const std::string& text, bool append) {
  if (!Focus(interpreter, control)) {
    return;
  }
  if (auto* box = dynamic_cast<forms::TextBox*>(&control); box != nullptr) {
    append ? box->DoAppend(text) : box->DoType(text);
    return;
  }
  if (auto* box = dynamic_cast<forms::RichTextBox*>(&control); box != nullptr) {
    append ? box->DoAppend(text) : box->DoType(text);
    return;
  }
  auto* combo = dynamic_cast<forms::ComboBox*>(&control);
  if (combo == nullptr || !combo->Editable) {
    Fail(control.Name() + " takes no typing");
  }
  std::u32string typed = append ? forms::ToUtf32(combo->Text.get()) : std::u32string();
  if (text.empty() && !append) {
    combo->DoEdit({});
  }
  for (const char32_t character : forms::ToUtf32(text)) {
    typed.push_back(character);
    combo->DoEdit(forms::ToUtf8(typed));
  }
}

void Type(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = TakeUsable(interpreter, words);
  const std::string text = words.Take("a text");
  words.End();
  TypeInto(interpreter, control, text, false);
}

void Add(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = TakeUsable(interpreter, words);
  const std::string text = words.Take("a text");
  words.End();
  TypeInto(interpreter, control, text, true);
}

void Enter(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = TakeUsable(interpreter, words);
  words.End();
  if (!control.TakesFocus()) {
    Fail(control.Name() + " takes no focus");
  }
  Focus(interpreter, control);
}

// A rule may have passed the focus on from there.
void Leave(Interpreter& interpreter, StepWords& words) {
  const forms::Control& control = interpreter.Find(words.Take("a control"));
  words.End();
  if (control.HasFocus() || interpreter.ActedOn() == &control) {
    interpreter.SetActedOn(control);
    interpreter.Top().DoLeave();
  }
}

std::optional<Key> ParseKey(std::string_view name) {
  struct Named {
    std::string_view name;
    Key key;
  };
  constexpr std::array kKeys = {
      Named{"Enter", Key::Enter},
      Named{"Esc", Key::Esc},
      Named{"Tab", Key::Tab},
      Named{"F9", Key::F9},
      Named{"Delete", Key::Delete},
      Named{"Insert", Key::Insert},
      Named{"Up", Key::Up},
      Named{"Down", Key::Down},
      Named{"PageUp", Key::PageUp},
      Named{"PageDown", Key::PageDown},
      Named{"Ctrl+Enter", Key::CtrlEnter},
      Named{"Ctrl+S", Key::CtrlS},
      Named{"Ctrl+F", Key::CtrlF},
      Named{"Ctrl+Shift+F", Key::CtrlShiftF},
  };
  const auto found =
      std::ranges::find_if(kKeys, [&](const Named& named) { return forms::EqualsIgnoringCase(named.name, name); });
  return found == kKeys.end() ? std::nullopt : std::optional(found->key);
}

void ClickOn(forms::Control& control) {
  if (auto* button = dynamic_cast<forms::Button*>(&control); button != nullptr) {
    button->DoClick();
  } else if (auto* label = dynamic_cast<forms::Label*>(&control); label != nullptr) {
    label->DoClick();
  } else if (auto* option = dynamic_cast<forms::OptionButton*>(&control); option != nullptr) {
    option->DoChoose();
  } else if (auto* box = dynamic_cast<forms::CheckBox*>(&control); box != nullptr) {
    box->DoCheck(box->Value == forms::CheckState::On ? forms::CheckState::Off : forms::CheckState::On);
  } else if (!control.TakesFocus()) {
    FailKind(control, "control to click on");
  }
}

// Of those that the space bar presses.
bool IsPressed(const forms::Control& control) {
  return dynamic_cast<const forms::Button*>(&control) != nullptr ||
         dynamic_cast<const forms::CheckBox*>(&control) != nullptr ||
         dynamic_cast<const forms::OptionButton*>(&control) != nullptr;
}

void PressCharacter(Interpreter& interpreter, forms::Control& control, const std::string& text) {
  if (forms::CharacterCount(text) != 1) {
    Fail("there is no key " + Quoted(text));
  }
  if (auto* list = dynamic_cast<forms::ListBox*>(&control); list != nullptr && list->KeyPress) {
    if (Focus(interpreter, control)) {
      list->KeyPress(forms::ToUtf32(text).front());
    }
    return;
  }
  if (auto* grid = dynamic_cast<forms::Grid*>(&control); grid != nullptr) {
    if (Focus(interpreter, control) && !grid->DoTypeFilter(text)) {
      Fail(control.Name() + " has no filter cells");
    }
    return;
  }
  if (text == " " && IsPressed(control)) {
    if (Focus(interpreter, control)) {
      ClickOn(control);
    }
    return;
  }
  TypeInto(interpreter, control, text, true);
}

void GoOn(Interpreter& interpreter, forms::Control* next) {
  if (next != nullptr) {
    interpreter.SetActedOn(*next);
    Focus(interpreter, *next);
  }
}

int RowStep(Key key) {
  constexpr int kPage = 10;
  switch (key) {
    case Key::Up:
      return -1;
    case Key::Down:
      return 1;
    case Key::PageUp:
      return -kPage;
    case Key::PageDown:
      return kPage;
    default:
      return 0;
  }
}

void MoveRow(forms::Control& control, int step) {
  if (auto* grid = dynamic_cast<forms::Grid*>(&control); grid != nullptr && grid->RowCount() > 0) {
    grid->DoRow(std::clamp(grid->Row + step, 0, grid->RowCount() - 1));
  } else if (auto* list = dynamic_cast<forms::ListBox*>(&control); list != nullptr) {
    list->DoStep(step);
  }
}

// What a window does with a key that no rule used up.
void ActByKey(Interpreter& interpreter, forms::Control& control, Key key) {
  auto* box = dynamic_cast<forms::TextBox*>(&control);
  auto* rich = dynamic_cast<forms::RichTextBox*>(&control);
  if (const int step = RowStep(key); step != 0) {
    MoveRow(control, step);
  } else if (auto* button = dynamic_cast<forms::Button*>(&control); key == Key::Enter && button != nullptr) {
    button->DoClick();
  } else if (key == Key::Enter && box != nullptr && box->MultiLine) {
    box->DoAppend("\r\n");
  } else if (key == Key::Enter && rich != nullptr) {
    rich->DoAppend("\r\n");
  } else if (key == Key::Tab) {
    GoOn(interpreter, interpreter.Top().NextStop(&control));
  } else if (key == Key::Enter) {
    GoOn(interpreter, interpreter.Top().NextField(&control));
  } else if (key == Key::Delete && box != nullptr && !box->ReadOnly) {
    box->DoType("");
  } else if (key == Key::Delete && rich != nullptr) {
    rich->DoType("");
  }
}

void CopyRows(Interpreter& interpreter, forms::Control& control) {
  const auto* grid = dynamic_cast<forms::Grid*>(&control);
  if (grid == nullptr) {
    FailKind(control, "grid");
  }
  if (Focus(interpreter, control)) {
    interpreter.Person().Copy(forms::CopiedRows(*grid));
  }
}

void Press(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = TakeKeyTarget(interpreter, words);
  const std::string name = words.Take("a key");
  words.End();
  if (forms::EqualsIgnoringCase(name, "Ctrl+C")) {
    CopyRows(interpreter, control);
    return;
  }
  const auto key = ParseKey(name);
  if (!key) {
    PressCharacter(interpreter, control, name);
  } else if (Focus(interpreter, control) && !control.DoKey(*key) && !interpreter.Top().Closed()) {
    ActByKey(interpreter, control, *key);
  }
}

void Click(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = TakeUsable(interpreter, words);
  words.End();
  if (!control.TakesFocus() || Focus(interpreter, control)) {
    ClickOn(control);
  }
}

void ClickMenu(Interpreter& interpreter, StepWords& words) {
  auto& item = TakeUsable<forms::MenuItem>(interpreter, words, "menu command");
  words.End();
  item.DoClick();
}

void FireTimer(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = interpreter.Find(words.Take("a timer"));
  words.End();
  auto* timer = dynamic_cast<forms::Timer*>(&control);
  if (timer == nullptr) {
    FailKind(control, "timer");
  }
  if (!timer->Enabled) {
    Fail(timer->Name() + " is not running");
  }
  timer->DoElapse();
}

void CloseForm(Interpreter& interpreter, StepWords& words) {
  words.End();
  interpreter.Top().DoClose();
}

constexpr std::array kSteps = {
    Step{"type", StepKind::Act, "CONTROL TEXT", "types over what is there", Type},
    Step{"add", StepKind::Act, "CONTROL TEXT", "types at the end of what is there", Add},
    Step{"enter", StepKind::Act, "CONTROL", "moves the focus in", Enter},
    Step{"leave", StepKind::Act, "CONTROL", "moves the focus out", Leave},
    Step{"press", StepKind::Act, "CONTROL KEY",
         "Enter Esc Tab F9 Delete Insert Up Down PageUp PageDown Ctrl+Enter Ctrl+S Ctrl+F Ctrl+Shift+F "
         "Ctrl+C, or a character",
         Press},
    Step{"click", StepKind::Act, "CONTROL", "a button, label or picture; BAR.KEY", Click},
    Step{"menu", StepKind::Act, "NAME", "a menu command", ClickMenu},
    Step{"fire", StepKind::Act, "TIMER", "lets a timer's time pass", FireTimer},
    Step{"close", StepKind::Act, "", "the window's close box", CloseForm},
};

}  // namespace

std::span<const Step> ActingSteps() {
  return kSteps;
}

}  // namespace host
