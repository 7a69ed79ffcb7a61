#include "screens/trying.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "forms/check_box.h"
#include "forms/check_list_box.h"
#include "forms/dialog_buttons.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/rich_text_box.h"
#include "forms/text.h"

namespace screens_test {
namespace {

using forms::Control;
using forms::Form;
using forms::Key;

using Acts = std::vector<std::pair<std::string, std::function<void()>>>;

// Turns to the pages that the control lies on; false when a person cannot act on it there either.
bool Reach(Control& control) {
  if (control.Container != nullptr && !control.Usable()) {
    Reach(*control.Container);
    if (auto* tabs = dynamic_cast<forms::TabStrip*>(control.Container)) {
      const auto page = std::ranges::find(tabs->Pages(), &control);
      tabs->DoTab(static_cast<int>(page - tabs->Pages().begin()));
    }
  }
  return control.Usable();
}

// Shown when its page is in front.
bool OnAPage(const Control& control) {
  return control.Visible && (control.Container == nullptr || OnAPage(*control.Container));
}

template <typename Kind, typename Function>
void For(Control& control, Function&& function) {
  if (auto* kind = dynamic_cast<Kind*>(&control)) {
    function(*kind);
  }
}

void AddGridActs(forms::Grid& grid, Acts& acts) {
  acts.emplace_back("row", [&] { grid.DoRow(0); });
  for (const int column : grid.VisibleColumns()) {
    const std::string caption = grid.Columns.get()[static_cast<std::size_t>(column)].caption;
    acts.emplace_back("filter " + caption, [&grid, column] { grid.DoFilter(column, "a"); });
    acts.emplace_back("no filter " + caption, [&grid, column] { grid.DoFilter(column, ""); });
    acts.emplace_back("sort " + caption, [&grid, column] { grid.DoSort(column); });
    acts.emplace_back("pick " + caption, [&grid, column] {
      grid.DoRow(0);
      grid.DoPick(column);
    });
    acts.emplace_back("cell " + caption, [&grid, column] {
      grid.DoRow(0);
      grid.DoCell(column, "1");
    });
  }
  acts.emplace_back("open row", [&] {
    grid.DoRow(0);
    grid.DoOpenRow();
  });
}

Acts ActsOn(Control& control) {
  Acts acts;
  For<forms::TextBox>(control, [&](auto& box) {
    acts.emplace_back("type", [&box] { box.DoType("Reed, Ann"); });
    acts.emplace_back("fill and type", [&box] {
      TypeInto(box, "Springfield IL 62701");
      box.DoType("Spr");
    });
  });
  For<forms::Button>(control, [&](auto& button) { acts.emplace_back("click", [&button] { button.DoClick(); }); });
  For<forms::Label>(control, [&](auto& label) { acts.emplace_back("click", [&label] { label.DoClick(); }); });
  For<forms::CheckBox>(control, [&](auto& box) {
    acts.emplace_back("check", [&box] { box.DoCheck(forms::CheckState::On); });
    acts.emplace_back("uncheck", [&box] { box.DoCheck(forms::CheckState::Off); });
  });
  For<forms::OptionButton>(control,
                           [&](auto& option) { acts.emplace_back("choose", [&option] { option.DoChoose(); }); });
  For<forms::ListBox>(control, [&](auto& list) {
    acts.emplace_back("highlight", [&list] { list.DoHighlight(0); });
    acts.emplace_back("pick", [&list] { list.DoPick(0); });
    acts.emplace_back("open", [&list] { list.DoOpen(); });
  });
  For<forms::CheckListBox>(control, [&](auto& list) {
    acts.emplace_back("tick", [&list] { list.DoTick(0, true); });
    acts.emplace_back("untick", [&list] { list.DoTick(0, false); });
  });
  For<forms::RichTextBox>(control, [&](auto& box) { acts.emplace_back("write", [&box] { box.DoType("Reed"); }); });
  For<forms::ComboBox>(control, [&](auto& combo) {
    acts.emplace_back("edit", [&combo] {
      combo.DoEdit("Reed, Ann");
      combo.DoKey(Key::Enter);
    });
  });
  For<forms::TabStrip>(control, [&](auto& tabs) {
    for (int i = 0; i < static_cast<int>(tabs.Tabs->size()); ++i) {
      acts.emplace_back("tab", [&tabs, i] { tabs.DoTab(i); });
    }
  });
  For<forms::Slider>(control, [&](auto& slider) { acts.emplace_back("slide", [&] { slider.DoSlide(slider.Max); }); });
  For<forms::Timer>(control, [&](auto& timer) { acts.emplace_back("elapse", [&timer] { timer.DoElapse(); }); });
  For<forms::Grid>(control, [&](auto& grid) { AddGridActs(grid, acts); });
  if (control.TakesFocus()) {
    const auto press = [&](const char* name, Key key) {
      acts.emplace_back(name, [&control, key] {
        if (control.DoFocus()) {
          control.DoKey(key);
        }
      });
    };
    press("F9", Key::F9);
    press("Insert", Key::Insert);
    press("Delete", Key::Delete);
    press("Down", Key::Down);
    press("Enter", Key::Enter);
  }
  return acts;
}

// The focus goes elsewhere, with nothing in the box when its rule would rather keep it.
void LetGo(Form& form) {
  if (!form.Closed() && !form.DoLeave()) {
    if (auto* box = dynamic_cast<forms::TextBox*>(form.ActiveControl())) {
      box->DoType({});
    }
    form.DoLeave();
  }
}

// A screen without a button bar has buttons of these names.
template <forms::Button forms::DialogButtons::*button>
bool Press(Form& form, std::initializer_list<const char*> otherwise) {
  for (Control* control : form.Controls()) {
    if (auto* bar = dynamic_cast<forms::DialogButtons*>(control)) {
      (bar->*button).DoClick();
      return true;
    }
  }
  for (const char* name : otherwise) {
    if (auto* other = dynamic_cast<forms::Button*>(form.Find(name))) {
      other->DoClick();
      return true;
    }
  }
  return false;
}

void Idle(Form& form) {
  for (int i = 0; i < 1000 && !form.Closed() && form.DoIdle(); ++i) {
  }
}

// Goes through the acts on a control. One that is out of reach by then is brought back by `reach`, where there is such
// a way. False when an act closed the form.
bool TryControl(Form& form, Control& control, std::set<std::string>& closers,
                const std::function<void(const std::string&)>& tried, const std::function<void()>& reach = {}) {
  for (std::size_t i = 0;; ++i) {
    if (!Reach(control) && reach) {
      reach();
    }
    const Acts acts = ActsOn(control);  // an act may have changed the columns
    if (i >= acts.size() || form.Closed()) {
      return !form.Closed();
    }
    const std::string what = control.Name() + " " + acts[i].first;
    if (!control.Usable() || closers.contains(what)) {
      continue;
    }
    acts[i].second();
    Idle(form);
    tried(what);
    if (form.Closed()) {
      closers.insert(what);
    }
  }
}

}  // namespace

void TypeInto(forms::TextBox& box, std::string_view text) {
  Form& form = *box.Owner();
  for (const std::string_view candidate :
       {text, std::string_view("01021980"), std::string_view("M"), std::string_view("12")}) {
    box.DoType(candidate);
    if (form.Closed() || box.ReadOnly || (!box.Text->empty() && form.DoLeave())) {
      return;
    }
    box.DoType({});
  }
  LetGo(form);
}

void FillIn(Form& form, std::string_view text) {
  for (Control* control : form.Controls()) {
    if (!Reach(*control)) {
      continue;
    }
    For<forms::TextBox>(*control, [&](auto& box) { box.ReadOnly ? void() : TypeInto(box, text); });
    For<forms::RichTextBox>(*control, [&](auto& box) { box.DoType(text); });
  }
}

std::map<std::string, std::string> Texts(const Form& form) {
  std::map<std::string, std::string> texts;
  for (const Control* control : form.Controls()) {
    const bool follows = control->Name() == "txtLetter";  // typed by nobody, the letter of the stage that is shown
    if (const auto* box = dynamic_cast<const forms::TextBox*>(control);
        box != nullptr && !follows && OnAPage(*control)) {
      texts[box->Name()] = forms::Trim(box->Text.get());
    } else if (const auto* rich = dynamic_cast<const forms::RichTextBox*>(control);
               rich != nullptr && !rich->ReadOnly && OnAPage(*control)) {
      texts[rich->Name()] = rich->Html;
    }
  }
  return texts;
}

std::map<std::string, std::string> BoundTexts(const Form& form) {
  std::map<std::string, std::string> texts;
  for (const Control* control : form.Controls()) {
    const auto* field = dynamic_cast<const forms::Field*>(control);
    if (field != nullptr && !field->DataField.empty()) {
      texts[field->Name()] = field->FieldText();
    }
  }
  return texts;
}

// Where it saves and stays, the button that leaves says by then that nothing is lost.
bool PressOK(Form& form) {
  const bool pressed = Press<&forms::DialogButtons::OK>(form, {"cmdOK", "TB.CLOSE", "ucEditCoverage1.TB.OKAY"});
  auto* leaves = dynamic_cast<forms::Button*>(form.Find("db.Cancel"));
  if (!form.Closed() && leaves != nullptr && leaves->Caption == "Close") {
    leaves->DoClick();
  }
  return pressed;
}

bool PressCancel(Form& form) {
  return Press<&forms::DialogButtons::Cancel>(
      form, {"cmdCancel", "cmdClose", "TB.CLOSE", "ucEditCoverage1.TB.CLOSE", "ucPlanDetails1.TB.CLOSE"});
}

void PressEsc(Form& form) {
  for (int i = 0; i < 3 && !form.Closed(); ++i) {
    if (Control* active = form.ActiveControl()) {
      active->DoKey(Key::Esc);
    } else {
      form.DoKey(Key::Esc);
    }
  }
}

bool TryEverything(Form& form, std::set<std::string>& closers, const std::function<void(const std::string&)>& tried) {
  Idle(form);
  for (Control* control : form.Controls()) {
    if (dynamic_cast<const forms::DialogButtons*>(control->Container) != nullptr || !Reach(*control)) {
      continue;
    }
    if (!TryControl(form, *control, closers, tried)) {
      return false;
    }
    const auto first_act = [&] {
      const Acts acts = ActsOn(*control);
      const std::string what = acts.empty() ? "" : control->Name() + " " + acts[0].first;
      if (acts.empty() || closers.contains(what)) {
        return;
      }
      acts[0].second();
      if (form.Closed()) {  // it did not when it was refused before
        closers.insert(what);
      }
    };
    first_act();
    for (Control* dropped : form.Controls()) {
      if (!form.Closed() && dropped->Usable() && forms::DropPanelUnder(*dropped) != nullptr &&
          !TryControl(form, *dropped, closers, tried, first_act)) {
        return false;
      }
    }
    LetGo(form);
  }
  return true;
}

void Accept(Form& form, int window) {
  Idle(form);
  for (Control* control : form.Controls()) {
    if (!form.Closed() && Reach(*control)) {
      For<forms::TextBox>(*control, [](auto& box) { TypeInto(box, "Reed, Ann"); });
      For<forms::Grid>(*control, [window](auto& grid) {
        if (grid.RowCount() > 0) {
          grid.DoRow(grid.RowCount() - 1 - window % grid.RowCount());
        }
      });
    }
  }
  if (!form.Closed()) {
    PressOK(form);
  }
}

}  // namespace screens_test
