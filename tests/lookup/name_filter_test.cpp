#include "lookup/name_filter.h"

namespace {

using lookup::NameCondition;
using lookup::NameFilter;

const lookup::NameColumns kColumns = {data::Words("PATABLE.pLASNAM"), data::Words("PATABLE.pFIRNAM")};

std::string ByName(const std::string& name) {
  return NameCondition({.name = name}, {data::Words("L"), data::Words("F")}, false).Text();
}

TEST(NameFilter, ReadsLastCommaFirst) {
  EXPECT_EQ(NameCondition({.name = " Smi , J"}, kColumns, false),
            "(((PATABLE.pLASNAM) like 'Smi%') AND ((PATABLE.pFIRNAM) like 'J%'))");
  EXPECT_EQ(NameCondition({.last_name = "Smi", .first_name = "J"}, kColumns, true),
            "(((PATABLE.pLASNAM) like '%Smi%') AND ((PATABLE.pFIRNAM) like '%J%'))");
  EXPECT_EQ(ByName("Smith,"), "(((L) like 'Smith%'))");
  EXPECT_EQ(ByName(", J"), "(((F) like 'J%'))");
  EXPECT_EQ(ByName(" , "), "");
}

TEST(NameFilter, ReadsANameWithoutAComma) {
  EXPECT_EQ(ByName("Smi "), "(((L) like 'Smi%'))");
  EXPECT_EQ(ByName("John Smith"), "((((L) like 'John Smith%')) OR (((L) like 'Smith%') AND ((F) like 'John%')))");
  EXPECT_EQ(ByName("Mary Ann de Vries"),
            "((((L) like 'Mary Ann de Vries%')) OR (((L) like 'Ann de Vries%') AND ((F) like 'Mary%')) OR (((L) like "
            "'Vries%') AND ((F) like 'Mary Ann de%')))");
}

TEST(NameFilter, TakesWildcardsAndQuotesForLetters) {
  EXPECT_EQ(ByName("O'N%_["), "(((L) like 'O''N[%][_][[]%'))");
}

TEST(NameFilter, RefusesTwoWaysAtOnce) {
  EXPECT_TRUE((NameFilter{.name = "S", .first_name = "J"}).Clashes());
  EXPECT_FALSE((NameFilter{.last_name = "S", .first_name = "J"}).Clashes());
}

}  // namespace
