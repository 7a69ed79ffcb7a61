#include "insurance/plan_detail_columns.h"

#include <array>
#include <charconv>

#include "data/format.h"
#include "forms/text.h"
#include "insurance/amounts.h"

namespace insurance {
namespace {

using data::PlanDetail;
using forms::GridColumn;
using session::Value;

enum class Holds { Text, Amount, Percent, Flag, Times, Date };

struct Shape {
  const char* caption = nullptr;
  int width = 0;
  Holds holds = Holds::Text;
};
// In the order of `PlanDetail::Column`.
constexpr std::array<Shape, PlanDetail::kColumns> kShapes = {{{"Code", 70},
                                                              {"Mod", 45},
                                                              {"Description", 190},
                                                              {"Elig.Fee", 85, Holds::Amount},
                                                              {"P.Cov %", 60, Holds::Percent},
                                                              {"Pln.Fee", 85, Holds::Amount},
                                                              {"P.Ded", 50, Holds::Flag},
                                                              {"P.UCR %", 60, Holds::Percent},
                                                              {"P.Per", 50},
                                                              {"P.#/Per", 55, Holds::Times},
                                                              {"S.Fee", 85, Holds::Amount},
                                                              {"S.Cov %", 60, Holds::Percent},
                                                              {"S.Max", 85, Holds::Amount},
                                                              {"S.Ded", 50, Holds::Flag},
                                                              {"S.UCR %", 60, Holds::Percent},
                                                              {"S.Per", 50},
                                                              {"S.#/Per", 55, Holds::Times},
                                                              {"St.Date", 85, Holds::Date},
                                                              {"Category", 130}}};

bool IsNumber(Holds holds) {
  return holds == Holds::Amount || holds == Holds::Percent || holds == Holds::Times;
}

void Refuse(forms::User& user, std::string_view text, const std::string& what) {
  user.Tell("[ " + forms::Left(text, 40) + " ] " + what + " It was not changed.", std::string(forms::kSuiteTitle),
            forms::Icon::Exclamation);
}

std::optional<Value> ReadText(forms::User& user, const std::string& caption, std::string_view text, int room) {
  if (forms::Fitting(text, room) != text) {
    Refuse(user, text, "is too long for " + caption + ": there is room for " + std::to_string(room) + " characters.");
    return std::nullopt;
  }
  Value value;
  value.emplace<std::string>(text);
  return value;
}

std::optional<Value> ReadTimes(forms::User& user, const std::string& caption, std::string_view text) {
  constexpr int kMost = 999;
  int times = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), times);
  if (error != std::errc() || end != text.data() + text.size() || times < 0 || times > kMost) {
    Refuse(user, text, "is no whole number of 0 to " + std::to_string(kMost) + ", as " + caption + " takes.");
    return std::nullopt;
  }
  return Value(std::int64_t{times});
}

std::optional<Value> ReadCents(forms::User& user, const std::string& caption, std::string_view text) {
  const auto amount = ReadAmount(user, caption, text);
  return amount ? std::optional<Value>(amount->RoundedToCents()) : std::nullopt;
}

// "80", "+80", "80 %" and "%80". Nothing is made of another one: what a plan pays is not guessed.
std::optional<Value> ReadPercentage(forms::User& user, const std::string& caption, std::string_view text) {
  std::string_view number = text;
  if (number.ends_with('%')) {
    number.remove_suffix(1);
  } else if (number.starts_with('%')) {
    number.remove_prefix(1);
  }
  number = forms::Trim(number);
  if (number.starts_with('+')) {
    number.remove_prefix(1);
  }
  double percent = 0;
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), percent, std::chars_format::fixed);
  const bool read = error == std::errc() && end == number.data() + number.size() && !number.starts_with('-');
  if (read && percent >= 0 && percent <= 100) {
    return Value(percent);
  }
  if (ReadPercent(user, caption, text)) {
    Refuse(user, text, "is no percentage of 0 to 100, as " + caption + " takes.");
  }
  return std::nullopt;
}

}  // namespace

std::vector<GridColumn> PlanDetailColumns(bool editable) {
  std::vector<GridColumn> columns;
  for (std::size_t column = 0; column < kShapes.size(); ++column) {
    const Shape& shape = kShapes.at(column);
    GridColumn& made = columns.emplace_back(
        GridColumn{.key = std::string(data::DetailColumn(static_cast<PlanDetail::Column>(column)).Text()),
                   .caption = shape.caption,
                   .width = shape.width,
                   .align = IsNumber(shape.holds) ? GridColumn::Align::Right : GridColumn::Align::Left,
                   .editable = editable});
    if (shape.holds == Holds::Flag) {
      made.kind = GridColumn::Kind::DropDown;
      made.align = GridColumn::Align::Center;
      made.choices = {"", "Y", "N"};
    }
  }
  columns.push_back({.key = "IPInsCoID", .caption = "Ins Co.", .width = 130});
  columns.push_back({.key = "IPGroNum", .caption = "Group", .width = 80});
  columns.push_back({.key = "IPPlaNam", .caption = "Plan", .width = 110});
  columns.push_back({.key = "IPRecNum", .caption = "Rec Num", .width = 70, .align = GridColumn::Align::Right});
  for (std::size_t cell = 0; cell < columns.size(); ++cell) {
    columns[cell].cell = static_cast<int>(cell);
  }
  return columns;
}

std::string ShownDetail(const PlanDetail& detail, PlanDetail::Column column) {
  const Value& value = detail.values.at(column);
  switch (kShapes.at(column).holds) {
    case Holds::Amount:
      return data::kCurrency.show(value);
    case Holds::Date:
      return data::kDate.show(value);
    default:
      return session::ToText(value);
  }
}

std::optional<Value> ReadDetail(forms::User& user, PlanDetail::Column column, const std::string& caption,
                                std::string_view text, int room, forms::Date today) {
  text = forms::Trim(text);
  if (text.empty()) {
    return Value();
  }
  switch (kShapes.at(column).holds) {
    case Holds::Amount:
      return ReadCents(user, caption, text);
    case Holds::Percent:
      return ReadPercentage(user, caption, text);
    case Holds::Times:
      return ReadTimes(user, caption, text);
    case Holds::Date: {
      auto date = data::kComingDate.take(text, today);
      if (!date) {
        Refuse(user, text, "is not a valid date.");
      }
      return date;
    }
    default:
      return ReadText(user, caption, text, room);
  }
}

}  // namespace insurance
