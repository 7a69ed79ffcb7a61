#include "forms/report_pages.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "forms/text.h"

namespace forms {
namespace {

// Every character is half as wide as a line is high.
class EvenMeasure : public TextMeasure {
 public:
  double Width(std::string_view text, const Lettering& lettering) const override {
    return static_cast<double>(CharacterCount(text)) * lettering.tenths / 20;
  }
};

class Pages : public testing::Test {
 protected:
  // `count` rows of cells of so many characters each.
  void Make(int count, const std::vector<int>& widths) {
    auto rows = std::make_shared<TableRows>();
    report_ = {.title = "List", .notes = {"All"}, .office = "Main", .printed = "Printed today"};
    for (std::size_t i = 0; i < widths.size(); ++i) {
      report_.columns.push_back({.key = {}, .caption = "C" + std::to_string(i), .cell = static_cast<int>(i)});
    }
    for (int row = 0; row < count; ++row) {
      auto& cells = rows->rows.emplace_back().cells;
      for (const int width : widths) {
        cells.emplace_back(static_cast<std::size_t>(width), 'x');
      }
    }
    report_.rows = rows;
  }
  ReportPages Of() const { return {report_, measure_}; }
  // Every text lies wholly on the paper and ends before the next one on its height.
  void ExpectWhole(const ReportPages& pages, const ReportPage& page) const {
    double right = 0;
    double y = -1;
    for (const PrintedText& text : page.texts) {
      EXPECT_GE(text.x, text.y == y ? right : 0) << text.text;
      y = text.y;
      right = text.x + measure_.Width(text.text, text.lettering);
      EXPECT_LE(right, pages.Size().width) << text.text;
      EXPECT_LE(text.y + text.lettering.tenths / 10.0, pages.Size().height) << text.text;
    }
  }
  static auto Texts(const ReportPage& page) {
    std::vector<std::string> texts;
    std::ranges::transform(page.texts, std::back_inserter(texts), &PrintedText::text);
    return texts;
  }

  EvenMeasure measure_;
  Report report_;
};

TEST_F(Pages, LieAcrossAndShrinkOnlyForColumnsThatAskForIt) {
  Make(3, {10, 20});
  EXPECT_FALSE(Of().Across());
  Make(3, {25, 25, 25, 25});
  EXPECT_TRUE(Of().Across());
  ExpectWhole(Of(), Of().Page(0));
  Make(3, {4, 60, 60, 60, 60});
  const ReportPages narrow = Of();
  EXPECT_TRUE(narrow.Across());
  ExpectWhole(narrow, narrow.Page(0));
  EXPECT_THAT(Texts(narrow.Page(0)), testing::Contains("xxxx"));
  EXPECT_THAT(Texts(narrow.Page(0)), testing::Contains(testing::EndsWith("x\u2026")));
}

TEST_F(Pages, HoldEveryRowOnce) {
  Make(1000, {10, 5});
  const ReportPages pages = Of();
  std::ptrdiff_t rows = 0;
  for (int number = 0; number < pages.Count(); ++number) {
    const auto texts = Texts(pages.Page(number));
    rows += std::ranges::count(texts, "xxxxxxxxxx");
    EXPECT_EQ(std::ranges::count(texts, "C0"), 1);
    EXPECT_EQ(texts.back(), "page " + std::to_string(number + 1) + " of " + std::to_string(pages.Count()));
    ExpectWhole(pages, pages.Page(number));
  }
  EXPECT_EQ(rows, 1000);
  Make(0, {});
  EXPECT_EQ(Of().Count(), 1);
  EXPECT_THAT(Texts(Of().Page(0)), testing::ElementsAre("List", "Main", "All", "Printed today", "page 1 of 1"));
}

TEST_F(Pages, TakeHostileCells) {
  Make(1, {3, 3});
  auto& cells = dynamic_cast<TableRows&>(*report_.rows).rows[0].cells;
  cells = {std::string(10000, 'W'), "two\r\nlines \xF0\x9F\xA6\xB7"};
  report_.title = std::string(500, 'T');
  report_.office = std::string(500, 'O');
  ExpectWhole(Of(), Of().Page(0));
  EXPECT_THAT(Texts(Of().Page(0)), testing::Contains("two lines \xF0\x9F\xA6\xB7"));
}

}  // namespace
}  // namespace forms
