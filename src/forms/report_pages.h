#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/report.h"

namespace forms {

// Lengths on paper are in points, from the upper left corner.
struct Paper {
  double width = 612;  // of a letter, upright
  double height = 792;
};

struct Lettering {
  int tenths = 90;  // of a point, between two lines that stand close
  bool bold = false;

  friend bool operator==(const Lettering&, const Lettering&) = default;
};

// How wide text is where it is drawn.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  virtual double Width(std::string_view text, const Lettering& lettering) const = 0;
};

struct PrintedText {
  double x = 0;
  double y = 0;
  std::string text;
  Lettering lettering;
  bool faint = false;
};
// From left to right.
struct PrintedLine {
  double x = 0;
  double y = 0;
  double width = 0;
  bool strong = false;
};
struct ReportPage {
  std::vector<PrintedText> texts;
  std::vector<PrintedLine> lines;
};

// A report as pages: upright or across, and as small, as its columns ask for. What is wider than its column ends in an
// ellipsis. A page is made when it is asked for.
class ReportPages {
 public:
  // `report` and `measure` outlive it. The paper is upright.
  ReportPages(const Report& report, const TextMeasure& measure, const Paper& paper = {});

  bool Across() const { return across_; }
  // As the pages lie.
  Paper Size() const { return across_ ? Paper{paper_.height, paper_.width} : paper_; }
  // At least one.
  int Count() const;
  // From 0 on.
  ReportPage Page(int number) const;

 private:
  // What the columns ask for, by some of their texts each.
  std::vector<double> WidthsWanted(const std::vector<std::vector<std::string>>& samples) const;
  bool Fit(const std::vector<double>& wanted);
  void Narrow(const std::vector<double>& wanted);
  double Inside() const;
  double RowHeight() const;
  double TableTop() const;
  int RowsAPage() const;
  void AddHead(ReportPage& page) const;
  void AddHeadings(ReportPage& page) const;
  void AddRow(ReportPage& page, int row, double y) const;
  void AddFoot(ReportPage& page, int number) const;
  void AddCell(ReportPage& page, std::size_t column, std::string_view text, double y, bool heading) const;
  std::string Cut(std::string text, double width, const Lettering& lettering) const;
  double Right(const std::string& text, double edge, const Lettering& lettering) const;

  const Report& report_;
  const TextMeasure& measure_;
  Paper paper_;
  bool across_ = false;
  Lettering cells_;
  std::vector<double> widths_;  // of the columns, with the gap behind each
};

}  // namespace forms
