#include "editing/grid_layout.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "forms/text.h"

namespace editing {
namespace {

constexpr std::string_view kRowHeight = "ROWHEIGHT=";
constexpr int kMostRowHeight = 400;  // pixels at 100 %

// Of each column, where they stand.
std::vector<std::string> KeysOf(const forms::Grid& grid, ColumnKeys kind) {
  std::vector<std::string> keys;
  for (const forms::ColumnPlace& place : grid.Layout()) {
    keys.push_back(kind == ColumnKeys::Numbers ? std::to_string(place.cell) : grid.Columns.get()[keys.size()].key);
  }
  return keys;
}

std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = std::min(rest.find('\n'), rest.size());
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

using Fields = std::array<std::string_view, 4>;

std::optional<Fields> FieldsOf(std::string_view line) {
  Fields fields;
  if (std::ranges::count(line, ',') + 1 != std::ssize(fields)) {
    return std::nullopt;
  }
  for (std::string_view& field : fields) {
    field = line.substr(0, line.find(','));
    line.remove_prefix(std::min(field.size() + 1, line.size()));
  }
  return fields;
}

// A decimal number, rounded; nothing for what is none, and for what is negative or absurd.
std::optional<int> NumberOf(std::string_view text) {
  constexpr double kMost = 1'000'000;
  text = forms::Trim(text);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && number >= 0 && number <= kMost ? std::optional(static_cast<int>(std::lround(number))) : std::nullopt;
}

// Five characters wide, so that numbers are in order as texts.
std::string RightAligned(std::string_view position) {
  const std::string padded = "     " + std::string(position);
  return padded.substr(padded.size() - 5);
}

// What a line tells of its column. A column that is shown in one split and hidden in others is shown.
struct Line {
  bool hidden = false;
  int split = 0;
  std::string position;
  std::optional<int> width;

  std::pair<int, std::string_view> Order() const { return {split, position}; }
  bool IsBefore(const Line& other) const { return std::pair(hidden, Order()) < std::pair(other.hidden, other.Order()); }
};

Line LineOf(const Fields& fields) {
  const std::optional<int> width = NumberOf(fields[2]);
  return {.hidden = width == 0,
          .split = NumberOf(fields[3]).value_or(0),
          .position = RightAligned(fields[1]),
          .width = width};
}

// The lines of these columns, by key in lower case: a statement has no names that differ in nothing else.
using Lines = std::unordered_map<std::string, std::optional<Line>>;

Lines ReadLines(std::string_view text, const std::vector<std::string>& keys) {
  Lines lines;
  for (const std::string& key : keys) {
    lines[forms::ToLower(key)];
  }
  while (!text.empty()) {
    const std::optional<Fields> fields = FieldsOf(TakeLine(text));
    const auto found = fields ? lines.find(forms::ToLower((*fields)[0])) : lines.end();
    if (found != lines.end()) {
      Line line = LineOf(*fields);
      if (!found->second || line.IsBefore(*found->second)) {
        found->second = std::move(line);
      }
    }
  }
  return lines;
}

void Arrange(forms::Grid& grid, const std::vector<std::string>& keys, const Lines& lines) {
  using Column = std::pair<forms::ColumnPlace, const Line*>;
  std::vector<Column> columns;
  const std::vector<forms::ColumnPlace> before = grid.Layout();
  for (std::size_t i = 0; i < before.size(); ++i) {
    const std::optional<Line>& line = lines.at(forms::ToLower(keys[i]));
    forms::ColumnPlace place = before[i];
    if (line && line->width) {
      place.visible = !line->hidden;
      place.width = line->hidden ? place.width : *line->width;
    }
    columns.emplace_back(place, line ? &*line : nullptr);
  }
  std::ranges::stable_sort(columns, [](const Column& left, const Column& right) {
    return left.second != nullptr && (right.second == nullptr || left.second->Order() < right.second->Order());
  });
  std::vector<forms::ColumnPlace> places;
  std::ranges::transform(columns, std::back_inserter(places), &Column::first);
  if (std::ranges::any_of(places, &forms::ColumnPlace::visible)) {
    grid.Arrange(places);
  }
}

void CaptionComments(std::string_view layout_key, forms::Grid& grid) {
  constexpr std::string_view kComments = "//CCO//CCN//CCL//CCC//CCQ//CCT//";
  if (kComments.find(layout_key.substr(0, 3)) == std::string_view::npos) {
    return;
  }
  auto columns = grid.Columns.get();
  for (forms::GridColumn& column : columns) {
    if (column.caption.empty() && column.long_text) {
      column.caption = "Comments";
    }
  }
  grid.Columns = std::move(columns);
}

}  // namespace

std::string WriteLayout(const forms::Grid& grid, ColumnKeys kind, bool with_row_height) {
  const std::vector<forms::ColumnPlace> places = grid.Layout();
  const std::vector<std::string> keys = KeysOf(grid, kind);
  std::map<int, std::string> lines;  // by the columns as they were built
  for (std::size_t i = 0; i < places.size(); ++i) {
    const forms::ColumnPlace& place = places[i];
    lines[place.cell] =
        keys[i] + "," + std::to_string(i) + "," + std::to_string(place.visible ? place.width : 0) + ",0\n";
  }
  std::string text = with_row_height ? std::string(kRowHeight) + std::to_string(grid.RowHeight.get()) + "\n" : "";
  for (const auto& [cell, line] : lines) {
    text += line;
  }
  return text;
}

void ReadLayout(std::string_view text, std::string_view layout_key, forms::Grid& grid, ColumnKeys kind) {
  std::string_view behind_first = text;
  const std::string_view first = TakeLine(behind_first);
  if (first.starts_with(kRowHeight)) {
    text = behind_first;
    const int height = NumberOf(first.substr(kRowHeight.size())).value_or(0);
    grid.RowHeight = std::min(height, kMostRowHeight);
  }
  const std::vector<std::string> keys = KeysOf(grid, kind);
  Arrange(grid, keys, ReadLines(text, keys));
  CaptionComments(layout_key, grid);
}

}  // namespace editing
