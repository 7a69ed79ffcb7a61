#include "forms/report_pages.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>

#include "forms/text.h"

namespace forms {
namespace {

constexpr double kMargin = 40;
constexpr double kGap = 12;         // behind a column
constexpr double kMostSpread = 30;  // that a column of text has more than it asks for
constexpr double kWidest = 30;      // a column alone, in heights of its letters

constexpr Lettering kTitle{.tenths = 170, .bold = true};
constexpr Lettering kOffice{.tenths = 120};
constexpr Lettering kNote{.tenths = 105};
constexpr Lettering kFoot{.tenths = 95};

struct Shape {
  bool across;
  int tenths;
};
// The first that all columns fit in; the last where they never do.
constexpr std::array kShapes = {Shape{false, 115}, Shape{false, 105}, Shape{true, 115}, Shape{true, 105},
                                Shape{true, 95}};

constexpr double Height(const Lettering& lettering) {
  return lettering.tenths / 10.0;
}

Lettering Heading(Lettering cells) {
  cells.bold = true;
  return cells;
}

// Of each column the longest text, and some from rows all over the report.
std::vector<std::vector<std::string>> Samples(const Report& report) {
  constexpr std::int64_t kSamples = 400;
  constexpr std::size_t kEnough = 200;  // characters: wider than any column
  const int count = report.rows->Count();
  const std::int64_t samples = std::min<std::int64_t>(count, kSamples);
  std::vector<std::vector<std::string>> texts;
  for (const GridColumn& column : report.columns) {
    auto& of_column = texts.emplace_back();
    std::string_view longest;
    for (int row = 0; row < count; ++row) {
      const std::string_view text = report.rows->Text(row, column.cell);
      longest = text.size() > longest.size() ? text : longest;
    }
    of_column.push_back(OnOneLine(Left(longest, kEnough)));
    for (std::int64_t i = 0; i < samples; ++i) {
      of_column.push_back(
          OnOneLine(Left(report.rows->Text(static_cast<int>(i * count / samples), column.cell), kEnough)));
    }
  }
  return texts;
}

}  // namespace

ReportPages::ReportPages(const Report& report, const TextMeasure& measure, const Paper& paper)
    : report_(report), measure_(measure), paper_(paper) {
  const auto samples = Samples(report);
  std::vector<double> wanted;
  for (const Shape& shape : kShapes) {
    across_ = shape.across;
    cells_.tenths = shape.tenths;
    wanted = WidthsWanted(samples);
    if (Fit(wanted)) {
      return;
    }
  }
  Narrow(wanted);
}

double ReportPages::Inside() const {
  return Size().width - 2 * kMargin;
}

double ReportPages::RowHeight() const {
  return Height(cells_) * 1.32;
}

std::vector<double> ReportPages::WidthsWanted(const std::vector<std::vector<std::string>>& samples) const {
  std::vector<double> wanted;
  for (std::size_t column = 0; column < samples.size(); ++column) {
    double width = measure_.Width(report_.columns[column].caption, Heading(cells_));
    for (const std::string& text : samples[column]) {
      width = std::max(width, measure_.Width(text, cells_));
    }
    wanted.push_back(std::min(width, kWidest * Height(cells_)) + kGap);
  }
  return wanted;
}

bool ReportPages::Fit(const std::vector<double>& wanted) {
  const double all = std::accumulate(wanted.begin(), wanted.end(), 0.0);
  const double left = Inside() - all;
  if (left < 0) {
    return false;
  }
  widths_ = wanted;
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    if (report_.columns[column].align == GridColumn::Align::Left) {
      widths_[column] += std::min(left / static_cast<double>(widths_.size()), kMostSpread);
    }
  }
  return true;
}

// Columns that ask for little keep it; the others share evenly what these leave.
void ReportPages::Narrow(const std::vector<double>& wanted) {
  widths_ = wanted;
  std::vector<double> ascending = wanted;
  std::ranges::sort(ascending);
  double left = Inside();
  std::size_t sharing = ascending.size();
  for (const double width : ascending) {
    if (width > left / static_cast<double>(sharing)) {
      break;
    }
    left -= width;
    --sharing;
  }
  for (double& width : widths_) {
    width = std::min(width, left / static_cast<double>(sharing));
  }
}

double ReportPages::TableTop() const {
  return kMargin + Height(kTitle) + static_cast<double>(report_.notes.size()) * Height(kNote) * 1.2 + 10;
}

int ReportPages::RowsAPage() const {
  const double foot = Size().height - kMargin - 2 * Height(kFoot);
  return std::max(1, static_cast<int>((foot - TableTop() - RowHeight() * 1.2) / RowHeight()));
}

int ReportPages::Count() const {
  return std::max(1, (report_.rows->Count() + RowsAPage() - 1) / RowsAPage());
}

ReportPage ReportPages::Page(int number) const {
  ReportPage page;
  AddHead(page);
  AddHeadings(page);
  const int first = number * RowsAPage();
  const int behind = std::min(report_.rows->Count(), first + RowsAPage());
  double y = TableTop() + RowHeight() * 1.2;
  for (int row = first; row < behind; ++row) {
    AddRow(page, row, y);
    y += RowHeight();
  }
  AddFoot(page, number);
  return page;
}

double ReportPages::Right(const std::string& text, double edge, const Lettering& lettering) const {
  return edge - measure_.Width(text, lettering);
}

void ReportPages::AddHead(ReportPage& page) const {
  const double edge = Size().width - kMargin;
  const std::string office = Cut(report_.office, Inside() / 2, kOffice);
  const double office_x = Right(office, edge, kOffice);
  const std::string title = Cut(report_.title, office_x - kMargin - kGap, kTitle);
  page.texts.push_back({.x = kMargin, .y = kMargin, .text = title, .lettering = kTitle});
  page.texts.push_back(
      {.x = office_x, .y = kMargin + Height(kTitle) - Height(kOffice) * 1.1, .text = office, .lettering = kOffice});
  double y = kMargin + Height(kTitle) + 2;
  for (const std::string& note : report_.notes) {
    page.texts.push_back({.x = kMargin, .y = y, .text = Cut(note, Inside(), kNote), .lettering = kNote, .faint = true});
    y += Height(kNote) * 1.2;
  }
}

void ReportPages::AddHeadings(ReportPage& page) const {
  const double y = TableTop();
  for (std::size_t column = 0; column < report_.columns.size(); ++column) {
    AddCell(page, column, report_.columns[column].caption, y, true);
  }
  page.lines.push_back({.x = kMargin, .y = y + RowHeight(), .width = Inside(), .strong = true});
}

void ReportPages::AddRow(ReportPage& page, int row, double y) const {
  for (std::size_t column = 0; column < report_.columns.size(); ++column) {
    AddCell(page, column, report_.rows->Text(row, report_.columns[column].cell), y, false);
  }
  page.lines.push_back({.x = kMargin, .y = y + RowHeight() - 1, .width = Inside()});
}

void ReportPages::AddCell(ReportPage& page, std::size_t column, std::string_view text, double y, bool heading) const {
  const Lettering lettering = heading ? Heading(cells_) : cells_;
  const double x = std::accumulate(widths_.begin(), widths_.begin() + static_cast<std::ptrdiff_t>(column), kMargin);
  const double width = widths_[column] - kGap;
  const std::string shown = Cut(OnOneLine(text), width, lettering);
  if (shown.empty()) {
    return;
  }
  const GridColumn::Align align = report_.columns[column].align;
  const double room = align == GridColumn::Align::Left ? 0 : width - measure_.Width(shown, lettering);
  const double indent = align == GridColumn::Align::Center ? room / 2 : room;
  page.texts.push_back(
      {.x = x + indent, .y = y + (RowHeight() - Height(lettering)) / 2, .text = shown, .lettering = lettering});
}

void ReportPages::AddFoot(ReportPage& page, int number) const {
  const double y = Size().height - kMargin - Height(kFoot);
  const std::string place = "page " + std::to_string(number + 1) + " of " + std::to_string(Count());
  page.texts.push_back({.x = kMargin, .y = y, .text = report_.printed, .lettering = kFoot, .faint = true});
  page.texts.push_back(
      {.x = Right(place, Size().width - kMargin, kFoot), .y = y, .text = place, .lettering = kFoot, .faint = true});
}

std::string ReportPages::Cut(std::string text, double width, const Lettering& lettering) const {
  constexpr std::string_view kEllipsis = "\u2026";
  constexpr double kRounding = 0.01;
  if (measure_.Width(text, lettering) <= width + kRounding) {
    return text;
  }
  std::size_t fits = 0;
  std::size_t too_many = CharacterCount(text);
  while (fits + 1 < too_many) {
    const std::size_t tried = (fits + too_many) / 2;
    const bool fit = measure_.Width(Left(text, tried) + std::string(kEllipsis), lettering) <= width;
    (fit ? fits : too_many) = tried;
  }
  return std::string(Trim(Left(text, fits))) + std::string(kEllipsis);
}

}  // namespace forms
