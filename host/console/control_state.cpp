#include "console/control_state.h"

#include <algorithm>
#include <array>
#include <utility>

#include "console/step_failure.h"
#include "forms/button.h"
#include "forms/check_box.h"
#include "forms/check_list_box.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/rich_text_box.h"
#include "forms/text.h"
#include "forms/text_box.h"
#include "recall/ExcludedContact.h"
#include "recall/SelectionList.h"

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
// "0,2"
PropertyValue Numbers(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) {
    text += (text.empty() ? "" : ",") + std::to_string(number);
  }
  return Text(std::move(text));
}
PropertyValue Truth(bool truth) {
  return {.text = truth ? "on" : "off", .truth = truth};
}
PropertyValue ColorOf(const std::optional<forms::Color>& color) {
  return Text(color ? forms::ColorText(*color) : "");
}
PropertyValue State(forms::CheckState state) {
  return state == forms::CheckState::Mixed ? Text("mixed") : Truth(state == forms::CheckState::On);
}

bool EnabledWithPanels(const forms::Control& control) {
  return control.Enabled && (control.Container == nullptr || EnabledWithPanels(*control.Container));
}

// A property of one kind of control; the first of a kind is its default property.
template <typename Kind>
struct Reader {
  std::string_view name;
  PropertyValue (*read)(const Kind&);
};

template <typename Kind, std::size_t N>
std::optional<PropertyValue> ReadWith(const std::array<Reader<Kind>, N>& readers, const forms::Control& control,
                                      std::string_view name) {
  const auto* kind = dynamic_cast<const Kind*>(&control);
  if (kind == nullptr) {
    return std::nullopt;
  }
  const auto found = name.empty() ? readers.begin() : std::ranges::find(readers, name, &Reader<Kind>::name);
  return found == readers.end() ? std::nullopt : std::optional(found->read(*kind));
}

using forms::Control;
constexpr std::array kOfEveryControl = {
    Reader<Control>{"visible", [](const Control& c) { return Truth(c.Shown()); }},
    Reader<Control>{"enabled", [](const Control& c) { return Truth(EnabledWithPanels(c)); }},
    Reader<Control>{"focus", [](const Control& c) { return Truth(c.HasFocus()); }},
    Reader<Control>{"tooltip", [](const Control& c) { return Text(c.ToolTip); }},
    Reader<Control>{"tag", [](const Control& c) { return Text(c.Tag); }},
    Reader<Control>{"forecolor", [](const Control& c) { return ColorOf(c.ForeColor); }},
    Reader<Control>{"backcolor", [](const Control& c) { return ColorOf(c.BackColor); }},
};

using forms::TextBox;
constexpr std::array kOfTextBox = {
    Reader<TextBox>{"text", [](const TextBox& box) { return Text(box.Text); }},
    Reader<TextBox>{"maxlength", [](const TextBox& box) { return Number(box.MaxLength); }},
    Reader<TextBox>{"readonly", [](const TextBox& box) { return Truth(box.ReadOnly); }},
    Reader<TextBox>{"multiline", [](const TextBox& box) { return Truth(box.MultiLine); }},
    Reader<TextBox>{"mask", [](const TextBox& box) { return Text(box.Mask); }},
    Reader<TextBox>{
        "passwordchar",
        [](const TextBox& box) { return Text(box.PasswordChar == '\0' ? "" : std::string(1, box.PasswordChar)); }},
};

using forms::RichTextBox;
constexpr std::array kOfRichTextBox = {
    Reader<RichTextBox>{"text", [](const RichTextBox& box) { return Text(box.Text()); }},
    Reader<RichTextBox>{"html", [](const RichTextBox& box) { return Text(box.Html); }},
    Reader<RichTextBox>{"readonly", [](const RichTextBox& box) { return Truth(box.ReadOnly); }},
};

using forms::ComboBox;
constexpr std::array kOfComboBox = {
    Reader<ComboBox>{"text", [](const ComboBox& combo) { return Text(combo.Text); }},
    Reader<ComboBox>{"editable", [](const ComboBox& combo) { return Truth(combo.Editable); }},
};

using forms::ListBox;
constexpr std::array kOfListBox = {
    Reader<ListBox>{"text",
                    [](const ListBox& list) { return Text(list.Current() == nullptr ? "" : list.Current()->text); }},
    Reader<ListBox>{"count", [](const ListBox& list) { return Number(static_cast<int>(list.Items->size())); }},
    Reader<ListBox>{"row", [](const ListBox& list) { return Number(list.ListIndex); }},
    Reader<ListBox>{"listindex", [](const ListBox& list) { return Number(list.ListIndex); }},
};

// The positions of those that are on: "0,2".
constexpr std::array kOfCheckListBox = {
    Reader<forms::CheckListBox>{"checked",
                                [](const forms::CheckListBox& list) { return Numbers(list.CheckedItems()); }},
};

constexpr std::array kOfLabel = {
    Reader<forms::Label>{"caption", [](const forms::Label& label) { return Caption(label.Caption); }},
};

using forms::Button;
constexpr std::array kOfButton = {
    Reader<Button>{"caption", [](const Button& button) { return Caption(button.Caption); }},
    Reader<Button>{"picture", [](const Button& button) { return Text(button.Picture); }},
};

using forms::CheckBox;
constexpr std::array kOfCheckBox = {
    Reader<CheckBox>{"value", [](const CheckBox& box) { return State(box.Value); }},
    Reader<CheckBox>{"caption", [](const CheckBox& box) { return Caption(box.Caption); }},
};

using forms::OptionButton;
constexpr std::array kOfOptionButton = {
    Reader<OptionButton>{"value", [](const OptionButton& option) { return Truth(option.Value); }},
    Reader<OptionButton>{"caption", [](const OptionButton& option) { return Caption(option.Caption); }},
};

using forms::Grid;
constexpr std::array kOfGrid = {
    Reader<Grid>{"text",
                 [](const Grid& grid) {
                   const bool current = grid.Row >= 0 && grid.Row < grid.RowCount();
                   return Text(current ? RowText(grid, grid.Row) : "");
                 }},
    Reader<Grid>{"count", [](const Grid& grid) { return Number(grid.RowCount()); }},
    Reader<Grid>{"row", [](const Grid& grid) { return Number(grid.Row); }},
    Reader<Grid>{"col",
                 [](const Grid& grid) {
                   const bool current = grid.Col >= 0 && grid.Col < static_cast<int>(grid.Columns->size());
                   return Text(current ? grid.Columns.get()[static_cast<std::size_t>(grid.Col.get())].caption : "");
                 }},
    Reader<Grid>{"selected", [](const Grid& grid) { return Numbers(grid.Selected()); }},
    Reader<Grid>{"emptytext", [](const Grid& grid) { return Text(grid.EmptyText); }},
    Reader<Grid>{"multiselect", [](const Grid& grid) { return Truth(grid.MultiSelect); }},
    Reader<Grid>{"sortcolumn",
                 [](const Grid& grid) {
                   return Text(grid.SortColumn < 0
                                   ? ""
                                   : grid.Columns.get()[static_cast<std::size_t>(grid.SortColumn.get())].caption);
                 }},
    Reader<Grid>{"sortdescending", [](const Grid& grid) { return Truth(grid.SortDescending); }},
};

using forms::TabStrip;
constexpr std::array kOfTabStrip = {
    Reader<TabStrip>{"caption",
                     [](const TabStrip& tabs) {
                       const auto current = static_cast<std::size_t>(tabs.CurrTab.get());
                       return Caption(current < tabs.Tabs->size() ? tabs.Tabs.get()[current] : "");
                     }},
    Reader<TabStrip>{"count",
                     [](const TabStrip& tabs) {
                       int seen = 0;
                       for (int i = 0; i < static_cast<int>(tabs.Tabs->size()); ++i) {
                         seen += tabs.HasTab(i) ? 1 : 0;
                       }
                       return Number(seen);
                     }},
    Reader<TabStrip>{"currtab", [](const TabStrip& tabs) { return Number(tabs.CurrTab); }},
};

using forms::Slider;
constexpr std::array kOfSlider = {
    Reader<Slider>{"value", [](const Slider& slider) { return Number(slider.Value); }},
    Reader<Slider>{"min", [](const Slider& slider) { return Number(slider.Min); }},
    Reader<Slider>{"max", [](const Slider& slider) { return Number(slider.Max); }},
};

constexpr std::array kOfTimer = {
    Reader<forms::Timer>{"running", [](const forms::Timer& timer) { return Truth(timer.Enabled); }},
    Reader<forms::Timer>{"interval", [](const forms::Timer& timer) { return Number(timer.Interval); }},
};

constexpr std::array kOfPanel = {
    Reader<forms::Panel>{"caption", [](const forms::Panel& panel) { return Caption(panel.Caption); }},
};

using recall::ExcludedContact;
constexpr std::array kOfExcludedContact = {
    Reader<ExcludedContact>{"remindertype",
                            [](const ExcludedContact& kind) { return Number(static_cast<int>(kind.ReminderType)); }},
    Reader<ExcludedContact>{"modified", [](const ExcludedContact& kind) { return Truth(kind.Modified); }},
    Reader<ExcludedContact>{"selected", [](const ExcludedContact& kind) { return Truth(kind.Selected()); }},
};

using recall::cltContactSlection;
constexpr std::array kOfContactSelection = {
    Reader<cltContactSlection>{"modified", [](const cltContactSlection& lists) { return Truth(lists.Modified); }},
    Reader<cltContactSlection>{
        "selectcount", [](const cltContactSlection& lists) { return Number(static_cast<int>(lists.SelectCount())); }},
};

using recall::SelectionList;
constexpr std::array kOfSelectionList = {
    Reader<SelectionList>{"text", [](const SelectionList& list) { return Caption(list.Text); }},
    Reader<SelectionList>{"active", [](const SelectionList& list) { return Truth(list.Active); }},
    Reader<SelectionList>{"contactselection", [](const SelectionList& list) { return Truth(list.ContactSelection); }},
    Reader<SelectionList>{"modified", [](const SelectionList& list) { return Truth(list.Modified); }},
    Reader<SelectionList>{"selectcount", [](const SelectionList& list) { return Number(list.SelectCount()); }},
};

// The first that is there.
template <typename... Readers>
std::optional<PropertyValue> ReadFirst(const Control& control, std::string_view name, const Readers&... readers) {
  std::optional<PropertyValue> value;
  static_cast<void>(((value = ReadWith(readers, control, name)).has_value() || ...));
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

std::string StateOf(const Control& control) {
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

void PropertyValue::Check(const Expectation& wanted) const {
  const bool holds = wanted.Matches(text) || (truth && wanted.MatchesTruth(*truth)) ||
                     (mnemonic && wanted.Matches(forms::WithoutMnemonic(text)));
  if (!holds) {
    Differ(wanted.Describe(), truth ? text : Quoted(text));
  }
}

std::optional<PropertyValue> ReadProperty(const forms::Control& control, std::string_view property) {
  const std::string name = forms::ToLower(property);
  const auto value = ReadFirst(control, name, kOfTextBox, kOfRichTextBox, kOfComboBox, kOfListBox, kOfLabel, kOfButton,
                               kOfCheckBox, kOfOptionButton, kOfGrid, kOfTabStrip, kOfSlider, kOfTimer, kOfPanel);
  return value || name.empty() ? value
                               : ReadFirst(control, name, kOfCheckListBox, kOfExcludedContact, kOfContactSelection,
                                           kOfSelectionList, kOfEveryControl);
}

std::string RowText(const forms::Grid& grid, int row) {
  std::string text;
  bool first = true;
  for (const int column : grid.VisibleColumns()) {
    text += std::exchange(first, false) ? "" : "|";
    text += grid.Cell(row, column);
  }
  return text;
}

std::string ColumnCaptions(const forms::Grid& grid) {
  std::string captions;
  bool first = true;
  for (const int column : grid.VisibleColumns()) {
    captions += (first ? "" : "|") + grid.Columns.get()[static_cast<std::size_t>(column)].caption;
    first = false;
  }
  return captions;
}

std::string StateOf(const forms::Form& form, const std::vector<const forms::Control*>& controls) {
  std::string text = "  " + form.Name() + " " + Quoted(form.Caption.get()) + "\n";
  for (const forms::Control* control : controls) {
    text += StateOf(*control);
  }
  return text;
}

std::string StateOf(const forms::Form& form) {
  return StateOf(form, {form.Controls().begin(), form.Controls().end()});
}

}  // namespace host
