#include "console/control_state.h"

#include <algorithm>

#include "console/color_text.h"
#include "console/step_failure.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text.h"
#include "forms/text_box.h"

namespace host {
namespace {

constexpr int kRowsInState = 8;

PropertyValue Text(std::string text) {
  return {.text = std::move(text)};
}
PropertyValue Caption(std::string text) {
  return {.text = std::move(text), .mnemonic = true};
}
PropertyValue Number(int number) {
  return {.text = std::to_string(number)};
}
PropertyValue Truth(bool truth) {
  return {.text = truth ? "on" : "off", .truth = truth};
}
PropertyValue ColorOf(const std::optional<forms::Color>& color) {
  return Text(color ? ColorText(*color) : "");
}
PropertyValue State(forms::CheckState state) {
  return state == forms::CheckState::Mixed ? Text("mixed") : Truth(state == forms::CheckState::On);
}

bool EnabledWithPanels(const forms::Control& control) {
  return control.Enabled && (control.Container == nullptr || EnabledWithPanels(*control.Container));
}

// The properties of one kind of control. The first of the names is the property's own.
using Names = std::string_view;
std::optional<PropertyValue> ReadOf(const forms::TextBox& box, Names name) {
  if (name.empty() || name == "text") return Text(box.Text);
  if (name == "maxlength") return Number(box.MaxLength);
  if (name == "readonly" || name == "locked") return Truth(box.ReadOnly);
  if (name == "passwordchar") return Text(box.PasswordChar == '\0' ? "" : std::string(1, box.PasswordChar));
  if (name == "multiline") return Truth(box.MultiLine);
  if (name == "mask") return Text(box.Mask);
  return std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::ListBox& list, Names name) {
  const forms::ListItem* current = list.Current();
  if (name.empty() || name == "text") return Text(current == nullptr ? "" : current->text);
  if (name == "count" || name == "listcount") return Number(static_cast<int>(list.Items->size()));
  if (name == "row" || name == "listindex") return Number(list.ListIndex);
  if (name == "itemdata") return Text(current == nullptr ? "" : std::to_string(current->data));
  return std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::ComboBox& combo, Names name) {
  if (name.empty() || name == "text") return Text(combo.Text);
  if (name == "editable") return Truth(combo.Editable);
  return ReadOf(static_cast<const forms::ListBox&>(combo), name);
}

std::optional<PropertyValue> ReadOf(const forms::Label& label, Names name) {
  return name.empty() || name == "caption" || name == "text" ? std::optional(Caption(label.Caption)) : std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::Button& button, Names name) {
  if (name.empty() || name == "caption" || name == "text") return Caption(button.Caption);
  return name == "picture" ? std::optional(Text(button.Picture)) : std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::CheckBox& box, Names name) {
  if (name.empty() || name == "value") return State(box.Value);
  return name == "caption" ? std::optional(Caption(box.Caption)) : std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::OptionButton& option, Names name) {
  if (name.empty() || name == "value") return Truth(option.Value);
  return name == "caption" ? std::optional(Caption(option.Caption)) : std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::Grid& grid, Names name) {
  const bool current = grid.Row >= 0 && grid.Row < grid.RowCount();
  if (name.empty() || name == "text") return Text(current ? RowText(grid, grid.Row) : "");
  if (name == "count") return Number(grid.RowCount());
  if (name == "row") return Number(grid.Row);
  if (name == "filterbar") return Truth(grid.FilterBar);
  if (name == "multiselect") return Truth(grid.MultiSelect);
  if (name == "sortcolumn") {
    return Text(grid.SortColumn < 0 ? "" : grid.Columns.get()[static_cast<std::size_t>(grid.SortColumn.get())].caption);
  }
  return name == "sortdescending" ? std::optional(Truth(grid.SortDescending)) : std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::TabStrip& tabs, Names name) {
  const auto current = static_cast<std::size_t>(tabs.CurrTab.get());
  if (name.empty() || name == "caption" || name == "text") {
    return Caption(current < tabs.Tabs->size() ? tabs.Tabs.get()[current] : "");
  }
  if (name == "count") return Number(static_cast<int>(tabs.Tabs->size()));
  return name == "currtab" || name == "value" || name == "row" ? std::optional(Number(tabs.CurrTab)) : std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::Slider& slider, Names name) {
  if (name.empty() || name == "value") return Number(slider.Value);
  if (name == "min") return Number(slider.Min);
  return name == "max" ? std::optional(Number(slider.Max)) : std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::Timer& timer, Names name) {
  if (name.empty()) return Truth(timer.Enabled);
  return name == "interval" ? std::optional(Number(timer.Interval)) : std::nullopt;
}

std::optional<PropertyValue> ReadOf(const forms::Panel& panel, Names name) {
  return name.empty() || name == "caption" ? std::optional(Caption(panel.Caption)) : std::nullopt;
}

template <typename... Kinds>
std::optional<PropertyValue> ReadAny(const forms::Control& control, Names name) {
  std::optional<PropertyValue> value;
  const auto read = [&]<typename Kind>(const Kind* kind) {
    if (kind != nullptr) {
      value = ReadOf(*kind, name);
    }
    return kind != nullptr;
  };
  (read(dynamic_cast<const Kinds*>(&control)) || ...);
  return value;
}

std::string GridState(const forms::Grid& grid) {
  std::string text = std::to_string(grid.RowCount()) + " rows, row " + std::to_string(grid.Row.get());
  for (int row = 0; row < std::min(grid.RowCount(), kRowsInState); ++row) {
    text += "\n      #" + std::to_string(row) + " = " + Quoted(RowText(grid, row));
  }
  return text;
}

std::string ListState(const forms::ListBox& list) {
  std::string text = std::to_string(list.Items->size()) + " entries, row " + std::to_string(list.ListIndex.get());
  for (std::size_t i = 0; i < std::min<std::size_t>(list.Items->size(), kRowsInState); ++i) {
    text += "\n      #" + std::to_string(i) + " = " + Quoted(list.Items.get()[i].text);
  }
  return text;
}

std::string StateOf(const forms::Control& control) {
  std::string marks;
  marks += control.HasFocus() ? "  focus" : "";
  marks += control.Shown() ? "" : "  hidden";
  marks += EnabledWithPanels(control) ? "" : "  disabled";
  std::string text = "    " + control.Name();
  if (const auto value = ReadProperty(control, "")) {
    text += " = " + (value->truth ? value->text : Quoted(value->text));
  }
  text += marks;
  if (const auto* grid = dynamic_cast<const forms::Grid*>(&control); grid != nullptr) {
    text += "  " + GridState(*grid);
  } else if (const auto* list = dynamic_cast<const forms::ListBox*>(&control); list != nullptr) {
    text += "  " + ListState(*list);
  }
  return text + "\n";
}

}  // namespace

std::string WithoutMnemonic(std::string_view text) {
  std::string seen;
  for (std::size_t i = 0; i < text.size(); ++i) {
    i += text[i] == '&' && i + 1 < text.size() ? 1U : 0U;
    seen += text[i];
  }
  return seen;
}

void PropertyValue::Check(const Expectation& wanted) const {
  const bool holds = wanted.Matches(text) || (truth && wanted.MatchesTruth(*truth)) ||
                     (mnemonic && wanted.Matches(WithoutMnemonic(text)));
  if (!holds) {
    Differ(wanted.Describe(), truth ? text : Quoted(text));
  }
}

std::optional<PropertyValue> ReadProperty(const forms::Control& control, std::string_view property) {
  const std::string name = forms::ToLower(property);
  if (name == "visible") return Truth(control.Shown());
  if (name == "enabled") return Truth(EnabledWithPanels(control));
  if (name == "focus") return Truth(control.HasFocus());
  if (name == "tooltip" || name == "tooltiptext") return Text(control.ToolTip);
  if (name == "tag") return Text(control.Tag);
  if (name == "forecolor") return ColorOf(control.ForeColor);
  if (name == "backcolor") return ColorOf(control.BackColor);
  using namespace forms;
  return ReadAny<TextBox, ComboBox, ListBox, Label, Button, CheckBox, OptionButton, Grid, TabStrip, Slider,
                 forms::Timer, Panel>(control, name);
}

std::string RowText(const forms::Grid& grid, int row) {
  std::string text;
  bool first = true;
  for (const int column : grid.VisibleColumns()) {
    text += (first ? "" : "|") + grid.Cell(row, column);
    first = false;
  }
  return text;
}

std::string StateOf(const forms::Form& form) {
  std::string text = "  " + form.Name() + " " + Quoted(form.Caption.get()) + "\n";
  for (const forms::Control* control : form.Controls()) {
    text += StateOf(*control);
  }
  return text;
}

}  // namespace host
