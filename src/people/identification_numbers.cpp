#include "people/identification_numbers.h"

#include <algorithm>
#include <utility>

#include "data/literal.h"
#include "editing/editing_form.h"
#include "forms/text.h"

namespace people {
namespace {

using data::Literal;
using session::ToId;
using session::ToText;

constexpr int kValue = 1;  // the cell

}  // namespace

IdentificationNumbers::IdentificationNumbers(const session::ScreenContext& context, forms::Grid& grid)
    : Rules(context), grid_(grid) {
  grid_.Columns = std::vector<forms::GridColumn>{
      {.key = "IDTypDes", .caption = "Description", .width = 250, .cell = 0},
      {.key = "DrIDVal", .caption = "Value", .width = 210, .editable = true, .cell = kValue}};
  grid_.EmptyText = "The office has no kinds of identification numbers.";
  grid_.CellEdited = [this](int column, const std::string& value) {
    return editing::EditingForm::MayModify(grid_) && Fits(column, value);
  };
}

void IdentificationNumbers::Read(std::int32_t person) {
  if (!context_.session.Connection().ReadOnly()) {
    statements_.Execute(
        "UPDATE IDTypTable SET IDTypTable.IDTypDes='National Provider ID' WHERE IDTypTable.IDTypID = 2" +
        statements_.Office(" and (IDTypTable.OfficeID = ", ")"));
  }
  numbers_ = OfPerson(person);
  const auto kinds = statements_.Select("SELECT * From IDTypTable" + statements_.Office(" WHERE (OfficeID = ", ")") +
                                        " ORDER BY IDTypTable.IDTypAutoID");
  for (; !kinds->Eof(); kinds->MoveNext()) {
    const std::int32_t kind = ToId((*kinds)["IDTypAutoID"]);
    if (std::ranges::find(numbers_, kind, &Number::kind) == numbers_.end()) {
      numbers_.push_back({.kind = kind, .name = ToText((*kinds)["IDTypDes"])});
    }
  }
  std::ranges::sort(numbers_, {}, [](const Number& number) { return std::pair(number.kind, number.id); });
  auto rows = std::make_shared<forms::TableRows>();
  for (const Number& number : numbers_) {
    rows->rows.push_back({.cells = {number.name, number.value}});
  }
  grid_.Rows = std::move(rows);
}

std::vector<IdentificationNumbers::Number> IdentificationNumbers::OfPerson(std::int32_t person) {
  const auto rows = statements_.Select(
      "SELECT IDTypTable.IDTypAutoID, IDTypTable.IDTypDes, IDTypTable.IDTypID, DrIDTable.DrIDTypID, DrIDTable.DrIDVal, "
      "DrIDTable.DrIDID, DrIDTable.DrIDpID FROM IDTypTable LEFT OUTER JOIN DrIDTable ON IDTypTable.IDTypAutoID = "
      "DrIDTable.DrIDTypID" +
      statements_.OfficeJoin(" and (IDTypTable.OfficeID = DrIDTable.OfficeID)") +
      " WHERE (DrIDTable.DrIDpID = " + Literal(person) + ")" + statements_.Office(" and (IDTypTable.OfficeID = ", ")") +
      " ORDER BY IDTypTable.IDTypAutoID");
  const int value = rows->FieldIndex("DrIDVal");
  room_ = value < 0 ? 0 : rows->Fields()[static_cast<std::size_t>(value)].defined_size;
  std::vector<Number> numbers;
  for (; !rows->Eof(); rows->MoveNext()) {
    numbers.push_back({.kind = ToId((*rows)["IDTypAutoID"]),
                       .name = ToText((*rows)["IDTypDes"]),
                       .id = ToId((*rows)["DrIDID"]),
                       .value = ToText((*rows)["DrIDVal"])});
  }
  // Engines give the numbers of one kind in any order.
  std::ranges::sort(numbers, {}, [](const Number& number) { return std::pair(number.kind, number.id); });
  return numbers;
}

bool IdentificationNumbers::Fits(int column, const std::string& value) const {
  if (grid_.CellOf(column) != kValue || forms::Fitting(value, room_) == value) {
    return true;
  }
  Tell("An identification number has room for " + std::to_string(room_) + " characters. It was not changed.",
       forms::Icon::Exclamation);
  return false;
}

// What nobody touched keeps its blanks.
std::string IdentificationNumbers::Shown(std::size_t row) const {
  const std::string_view text = grid_.Rows.get()->Text(static_cast<int>(row), kValue);
  return std::string(text == numbers_[row].value ? text : forms::Trim(text));
}

bool IdentificationNumbers::Changed() const {
  for (std::size_t row = 0; row < numbers_.size(); ++row) {
    if (Shown(row) != numbers_[row].value) {
      return true;
    }
  }
  return false;
}

std::int32_t IdentificationNumbers::RowOf(std::int32_t person, std::int32_t kind) const {
  return ToId(statements_.SelectValue("SELECT DrIDID FROM DrIDTable WHERE DrIDpID=" + Literal(person) +
                                      " AND DrIDTypID=" + Literal(kind) + statements_.Office()));
}

void IdentificationNumbers::Save(std::int32_t person) {
  for (std::size_t row = 0; row < numbers_.size(); ++row) {
    Number& number = numbers_[row];
    const std::string value = Shown(row);
    if (value == number.value) {
      continue;
    }
    if (number.id == 0) {
      number.id = RowOf(person, number.kind);
    }
    if (number.id != 0) {
      statements_.Execute("UPDATE DrIDTable SET DrIDVal=" + Literal(value) + " WHERE Dridid=" + Literal(number.id) +
                          statements_.Office());
    } else {
      number.id = statements_.Insert(
          "DrIDTable",
          {{"DrIDpID", Literal(person)}, {"DrIDTypID", Literal(number.kind)}, {"DrIDVal", Literal(value)}});
    }
    number.value = value;
  }
}

}  // namespace people
