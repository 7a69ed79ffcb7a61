#include "data/literal.h"

namespace {

TEST(Literal, WritesEveryTypeAsTheDialectReadsIt) {
  using std::chrono::year;
  EXPECT_EQ(data::Literal(std::string_view("O'Brien'; DROP TABLE PATable; --")),
            "'O''Brien''; DROP TABLE PATable; --'");
  EXPECT_EQ(data::Literal(forms::Currency::FromTenThousandths(-12345)), "-1.2345");
  EXPECT_EQ(data::Literal(forms::Date(year(1980) / 1 / 2)), "#01/02/1980#");
  EXPECT_EQ(data::Literal(forms::AtMidnight(year(1980) / 1 / 2)), "#01/02/1980#");
  EXPECT_EQ(data::Literal(forms::AtMidnight(year(1980) / 1 / 2) + std::chrono::hours(14)), "#01/02/1980 14:00:00#");
  EXPECT_EQ(data::ValueLiteral(session::Value()), "Null");
}

TEST(Literal, TakesTypedWildcardsAsText) {
  EXPECT_EQ(data::LikeBeginning("50%_[x"), "'50[%][_][[]x%'");
  EXPECT_EQ(data::LikeContaining("a'b"), "'%a''b%'");
}

}  // namespace
