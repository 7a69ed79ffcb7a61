#include <algorithm>
#include <array>
#include <numeric>
#include <optional>

#include "console/acting.h"
#include "console/control_state.h"
#include "console/step_failure.h"
#include "console/steps.h"
#include "forms/check_box.h"
#include "forms/check_list_box.h"
#include "forms/grid.h"
#include "forms/grid_text.h"
#include "forms/list_box.h"
#include "forms/panels.h"
#include "forms/text.h"

namespace host {
namespace {

// "#3"; nothing for another text.
std::optional<int> ParsePosition(std::string_view text) {
  return text.starts_with('#') ? ParseNumber(text.substr(1)) : std::nullopt;
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    c == separator ? static_cast<void>(parts.emplace_back()) : parts.back().push_back(c);
  }
  return parts;
}

std::string Joined(const std::vector<std::string>& cells, std::string_view separator) {
  std::string joined;
  for (const std::string& cell : cells) {
    joined += (&cell == &cells.front() ? "" : std::string(separator)) + cell;
  }
  return joined;
}

// The entry with that text, else at that position, else the only one with that text in a cell, else the only one
// whose text differs in blanks and punctuation alone.
int FindEntry(const std::string& owner, const std::vector<std::vector<std::string>>& entries,
              const std::string& wanted) {
  using Cells = std::vector<std::string>;
  const auto is_whole = [&](const Cells& cells) {
    return Joined(cells, "\t") == wanted || Joined(cells, " ") == wanted || Joined(cells, "|") == wanted;
  };
  if (const auto whole = std::ranges::find_if(entries, is_whole); whole != entries.end()) {
    return static_cast<int>(whole - entries.begin());
  }
  if (const auto position = ParsePosition(wanted)) {
    if (*position >= static_cast<int>(entries.size())) {
      Fail(owner + " has " + std::to_string(entries.size()) + " entries, none at " + wanted);
    }
    return *position;
  }
  const auto only = [&](auto matches) {
    const auto found = std::ranges::find_if(entries, matches);
    if (found != entries.end() && std::find_if(found + 1, entries.end(), matches) != entries.end()) {
      Fail(owner + " has several entries with " + Quoted(wanted));
    }
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
  };
  int index = only([&](const Cells& cells) { return std::ranges::find(cells, wanted) != cells.end(); });
  if (index < 0 && !Squeezed(wanted).empty()) {
    index = only([&](const Cells& cells) { return Squeezed(Joined(cells, "")) == Squeezed(wanted); });
  }
  if (index < 0) {
    Fail(owner + " has no entry " + Quoted(wanted));
  }
  return index;
}

int FindEntry(const forms::ListBox& list, const std::string& wanted) {
  std::vector<std::vector<std::string>> entries;
  for (const forms::ListItem& item : list.Items.get()) {
    entries.push_back(Split(item.text, '\t'));
  }
  return FindEntry(list.Name(), entries, wanted);
}

// The first row with that text in one of the columns; -1 for none.
int FindRow(const forms::Grid& grid, const std::vector<int>& columns, const std::string& wanted) {
  for (int row = 0; row < grid.RowCount(); ++row) {
    if (std::ranges::any_of(columns, [&](int column) { return grid.Cell(row, column) == wanted; })) {
      return row;
    }
  }
  return -1;
}

// By a visible cell, else by its position, else by a hidden cell.
int FindRow(const forms::Grid& grid, const std::string& wanted) {
  int row = FindRow(grid, grid.VisibleColumns(), wanted);
  if (row < 0) {
    row = ParsePosition(wanted).value_or(-1);
  }
  if (row < 0) {
    std::vector<int> all(grid.Columns->size());
    std::iota(all.begin(), all.end(), 0);
    row = FindRow(grid, all, wanted);
  }
  if (row < 0 || row >= grid.RowCount()) {
    Fail(grid.Name() + " has no row " + Quoted(wanted) + " among its " + std::to_string(grid.RowCount()));
  }
  return row;
}

void Pick(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = TakeUsable(interpreter, words);
  const std::string wanted = words.Take("an entry");
  words.End();
  if (auto* grid = dynamic_cast<forms::Grid*>(&control); grid != nullptr) {
    const int row = FindRow(*grid, wanted);
    if (Focus(interpreter, *grid)) {
      grid->DoRow(row);
    }
  } else if (auto* list = dynamic_cast<forms::ListBox*>(&control); list != nullptr) {
    const int index = FindEntry(*list, wanted);
    if (Focus(interpreter, *list)) {
      list->DoPick(index);
    }
  } else {
    FailKind(control, "list");
  }
}

void OpenRow(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = TakeUsable(interpreter, words);
  words.End();
  auto* list = dynamic_cast<forms::ListBox*>(&control);
  auto* grid = dynamic_cast<forms::Grid*>(&control);
  if (list == nullptr && grid == nullptr) {
    FailKind(control, "list");
  }
  if (list != nullptr ? list->Current() == nullptr : grid->Row < 0 || grid->Row >= grid->RowCount()) {
    Fail(control.Name() + " has no current row");
  }
  if (Focus(interpreter, control)) {
    list != nullptr ? list->DoOpen() : static_cast<void>(grid->DoOpenRow());
  }
}

int TakeColumn(const forms::Grid& grid, StepWords& words) {
  const std::string caption = words.Take("a column");
  const int column = grid.ColumnIndex(caption);
  if (column < 0) {
    Fail(grid.Name() + " has no column " + Quoted(caption));
  }
  if (!grid.Columns.get()[static_cast<std::size_t>(column)].visible) {
    Fail("the column " + Quoted(caption) + " of " + grid.Name() + " is hidden");
  }
  return column;
}

void EnterCell(Interpreter& interpreter, forms::Grid& grid, int column, const std::string& text) {
  if (grid.Row < 0 || grid.Row >= grid.RowCount()) {
    Fail(grid.Name() + " has no current row");
  }
  if (Focus(interpreter, grid) && !grid.DoCell(column, text)) {
    Fail("the cell does not take " + Quoted(text));
  }
}

// A colour cell without a text lets the person pick.
void EditCell(Interpreter& interpreter, StepWords& words) {
  auto& grid = TakeUsable<forms::Grid>(interpreter, words, "grid");
  const int column = TakeColumn(grid, words);
  if (words.AtEnd()) {
    if (Focus(interpreter, grid) && !grid.DoPick(column)) {
      Fail("there is nothing to pick for the cell");
    }
    return;
  }
  const std::string text = words.Take("a text");
  words.End();
  EnterCell(interpreter, grid, column, text);
}

void TickEntry(Interpreter& interpreter, forms::CheckListBox& list, StepWords& words) {
  const std::string wanted = words.Take("an entry");
  const bool on = words.TakeTruth();
  words.End();
  const int index = FindEntry(list, wanted);
  if (Focus(interpreter, list)) {
    list.DoTick(index, on);
  }
}

void Tick(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = TakeUsable(interpreter, words);
  if (auto* list = dynamic_cast<forms::CheckListBox*>(&control); list != nullptr) {
    TickEntry(interpreter, *list, words);
    return;
  }
  auto* cells = dynamic_cast<forms::Grid*>(&control);
  if (cells == nullptr) {
    FailKind(control, "grid or list with checks");
  }
  forms::Grid& grid = *cells;
  const int column = TakeColumn(grid, words);
  const bool on = words.TakeTruth();
  words.End();
  if (grid.Columns.get()[static_cast<std::size_t>(column)].kind != forms::GridColumn::Kind::Check) {
    Fail("the column holds no check cells");
  }
  EnterCell(interpreter, grid, column, on ? "1" : "0");
}

// A timer that waits for the typing to pause is let pass.
void Filter(Interpreter& interpreter, StepWords& words) {
  auto& grid = TakeUsable<forms::Grid>(interpreter, words, "grid");
  const int column = TakeColumn(grid, words);
  const std::string text = words.Take("a text");
  words.End();
  if (!Focus(interpreter, grid)) {
    return;
  }
  forms::Form& form = interpreter.Top();
  std::vector<forms::Timer*> waiting;
  for (forms::Control* control : form.Controls()) {
    if (auto* timer = dynamic_cast<forms::Timer*>(control); timer != nullptr && !timer->Enabled) {
      waiting.push_back(timer);
    }
  }
  if (!grid.DoFilter(column, text)) {
    Fail(grid.Name() + " has no filter cells");
  }
  for (forms::Timer* timer : waiting) {
    timer->DoElapse();
  }
}

void Sort(Interpreter& interpreter, StepWords& words) {
  auto& grid = TakeUsable<forms::Grid>(interpreter, words, "grid");
  const int column = TakeColumn(grid, words);
  words.End();
  if (Focus(interpreter, grid)) {
    grid.DoSort(column);
  }
}

void CopyCell(Interpreter& interpreter, StepWords& words) {
  auto& grid = TakeUsable<forms::Grid>(interpreter, words, "grid");
  const int column = TakeColumn(grid, words);
  words.End();
  if (Focus(interpreter, grid) && grid.DoGoTo(grid.Row, column)) {
    interpreter.Person().Copy(forms::CopiedCell(grid));
  }
}

int TakePosition(StepWords& words) {
  const std::string text = words.Take("a position");
  const auto position = ParsePosition(text);
  if (!position) {
    Fail(Quoted(text) + " is no position");
  }
  return *position;
}

void RequireSeveral(const forms::Grid& grid) {
  if (!grid.MultiSelect) {
    Fail(grid.Name() + " selects one row alone");
  }
}

void ToggleRow(Interpreter& interpreter, StepWords& words) {
  auto& grid = TakeUsable<forms::Grid>(interpreter, words, "grid");
  const int row = FindRow(grid, words.Take("a row"));
  words.End();
  RequireSeveral(grid);
  if (Focus(interpreter, grid)) {
    grid.DoToggleRow(row);
  }
}

void ExtendRows(Interpreter& interpreter, StepWords& words) {
  auto& grid = TakeUsable<forms::Grid>(interpreter, words, "grid");
  const int row = FindRow(grid, words.Take("a row"));
  words.End();
  RequireSeveral(grid);
  if (Focus(interpreter, grid)) {
    grid.DoExtendTo(row);
  }
}

void MoveEntry(Interpreter& interpreter, StepWords& words, forms::ListBox& list) {
  const int from = TakePosition(words);
  const int to = TakePosition(words);
  words.End();
  if (!list.Moved) {
    Fail("the entries of " + list.Name() + " stay where they are");
  }
  if (Focus(interpreter, list) && !list.DoMove(from, to)) {
    Fail(list.Name() + " has " + std::to_string(list.Items->size()) + " entries");
  }
}

void MoveRow(Interpreter& interpreter, StepWords& words) {
  forms::Control& control = TakeUsable(interpreter, words);
  if (auto* list = dynamic_cast<forms::ListBox*>(&control); list != nullptr) {
    MoveEntry(interpreter, words, *list);
    return;
  }
  auto* grid = dynamic_cast<forms::Grid*>(&control);
  if (grid == nullptr) {
    FailKind(control, "grid");
  }
  const int from = TakePosition(words);
  const int to = TakePosition(words);
  words.End();
  if (!grid->RowsMove) {
    Fail("the rows of " + grid->Name() + " stay where they are");
  }
  if (Focus(interpreter, *grid) && !grid->DoMoveRow(from, to)) {
    Fail(grid->Name() + " has " + std::to_string(grid->RowCount()) + " rows");
  }
}

// The position is one among the columns that are seen.
void MoveColumn(Interpreter& interpreter, StepWords& words) {
  auto& grid = TakeUsable<forms::Grid>(interpreter, words, "grid");
  const int column = TakeColumn(grid, words);
  const int to = TakePosition(words);
  words.End();
  const auto& visible = grid.VisibleColumns();
  if (to < 0 || to >= static_cast<int>(visible.size())) {
    Fail(grid.Name() + " has " + std::to_string(visible.size()) + " columns");
  }
  if (Focus(interpreter, grid)) {
    grid.DoMoveColumn(column, visible[static_cast<std::size_t>(to)]);
  }
}

void SizeColumn(Interpreter& interpreter, StepWords& words) {
  auto& grid = TakeUsable<forms::Grid>(interpreter, words, "grid");
  const int column = TakeColumn(grid, words);
  const int width = words.TakeNumber("a width");
  words.End();
  if (Focus(interpreter, grid) && !grid.DoSizeColumn(column, width)) {
    Fail("no column is that wide");
  }
}

void Check(Interpreter& interpreter, StepWords& words) {
  auto& box = TakeUsable<forms::CheckBox>(interpreter, words, "check box");
  const bool mixed = words.TakeKeyword("mixed");
  const bool on = !mixed && words.TakeTruth();
  words.End();
  const forms::CheckState state = mixed ? forms::CheckState::Mixed
                                  : on  ? forms::CheckState::On
                                        : forms::CheckState::Off;
  if (Focus(interpreter, box) && !box.DoCheck(state)) {
    Fail(box.Name() + " has no third state");
  }
}

void Choose(Interpreter& interpreter, StepWords& words) {
  auto& option = TakeUsable<forms::OptionButton>(interpreter, words, "option button");
  words.End();
  if (Focus(interpreter, option)) {
    option.DoChoose();
  }
}

void ShowTab(Interpreter& interpreter, StepWords& words) {
  auto& tabs = TakeUsable<forms::TabStrip>(interpreter, words, "tab strip");
  const std::string wanted = words.Take("a tab");
  words.End();
  std::vector<std::vector<std::string>> entries;
  std::vector<int> places;  // of the tabs that are seen
  for (int i = 0; i < static_cast<int>(tabs.Tabs->size()); ++i) {
    if (tabs.HasTab(i)) {
      entries.push_back({forms::WithoutMnemonic(tabs.Tabs.get()[static_cast<std::size_t>(i)])});
      places.push_back(i);
    }
  }
  const int index = FindEntry(tabs.Name(), entries, wanted);
  if (Focus(interpreter, tabs)) {
    tabs.DoTab(places[static_cast<std::size_t>(index)]);
  }
}

void Slide(Interpreter& interpreter, StepWords& words) {
  auto& slider = TakeUsable<forms::Slider>(interpreter, words, "slider");
  const int value = words.TakeNumber("a number");
  words.End();
  if (Focus(interpreter, slider) && !slider.DoSlide(value)) {
    Fail(slider.Name() + " goes from " + std::to_string(slider.Min) + " to " + std::to_string(slider.Max));
  }
}

constexpr std::array kSteps = {
    Step{"check", StepKind::Act, "CONTROL on|off|mixed", "a check box", Check},
    Step{"choose", StepKind::Act, "CONTROL", "an option button", Choose},
    Step{"pick", StepKind::Act, "CONTROL TEXT|#N", "an entry of a combo or list", Pick},
    Step{"row", StepKind::Act, "GRID TEXT|#N", "makes a row current", Pick},
    Step{"open-row", StepKind::Act, "GRID", "double click on the current row", OpenRow},
    Step{"toggle-row", StepKind::Act, "GRID TEXT|#N", "a click with Ctrl: takes a row into the selection, or out",
         ToggleRow},
    Step{"extend-rows", StepKind::Act, "GRID TEXT|#N", "a click with Shift: selects up to the row", ExtendRows},
    Step{"move", StepKind::Act, "GRID|LIST #N #M", "drags a row or an entry to another's place", MoveRow},
    Step{"cell", StepKind::Act, "GRID COLUMN [TEXT]", "edits a cell of the current row; picks without a text",
         EditCell},
    Step{"tick", StepKind::Act, "GRID COLUMN on|off", "a check cell of the current row, or an entry of a list", Tick},
    Step{"filter", StepKind::Act, "GRID COLUMN TEXT", "types into the filter cell", Filter},
    Step{"copy-cell", StepKind::Act, "GRID COLUMN", "copies a cell of the current row, by its menu", CopyCell},
    Step{"sort", StepKind::Act, "GRID COLUMN", "clicks the header", Sort},
    Step{"move-column", StepKind::Act, "GRID COLUMN #M", "drags a column to that place", MoveColumn},
    Step{"size-column", StepKind::Act, "GRID COLUMN WIDTH", "drags a column's edge; pixels at 100 %", SizeColumn},
    Step{"tab", StepKind::Act, "TABS TEXT|#N", "brings a page to the front", ShowTab},
    Step{"slide", StepKind::Act, "SLIDER N", "moves a slider", Slide},
};

}  // namespace

std::span<const Step> ChoosingSteps() {
  return kSteps;
}

}  // namespace host
