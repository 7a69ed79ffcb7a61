#include "people/name_entry.h"

#include "support/fake_host.h"

namespace {

using people::ParseName;
using people::ParseNameOrId;
using people::TypedName;

TEST(NameEntry, ReadsNamesInEitherOrder) {
  EXPECT_EQ(ParseName("Smith, John"), (TypedName{"Smith", "John"}));
  EXPECT_EQ(ParseName(" John  Smith "), (TypedName{"Smith", "John"}));
  EXPECT_EQ(ParseName("Mary Ann Smith"), (TypedName{"Smith", "Mary Ann"}));
  EXPECT_EQ(ParseName("de la Cruz, Ana"), (TypedName{"de la Cruz", "Ana"}));
  EXPECT_EQ(ParseName("Smith"), (TypedName{"Smith", ""}));
}

TEST(NameEntry, TakesWholeNumbersAsIds) {
  EXPECT_EQ(std::get<std::int32_t>(ParseNameOrId(" 3412 ")), 3412);
  EXPECT_EQ(std::get<TypedName>(ParseNameOrId("3412b")), (TypedName{"3412b", ""}));
  EXPECT_EQ(std::get<std::int32_t>(ParseNameOrId("99999999999")), 0);
}

TEST(NameEntry, SearchesByBeginningsWithTheTextAsData) {
  test_support::FakeSession session;
  EXPECT_EQ(people::NameSearch(session, "O'Brien\", 5%", false),
            "Select * from Patable where pLASNAM Like \"O'Brien\"\"%\" and pFIRNAM Like \"5[%]%\""
            " order by pLasNam, pFirNam");
  session.kind = session::kOfficeScoped;
  EXPECT_EQ(people::NameSearch(session, "O'Brien, J", true),
            "Select * from Patable where pLASNAM Like 'O''Brien%' and pFIRNAM Like 'J%'"
            " and ((pFAMHEAIND = pID or pFAMHEAIND is Null or pFAMHEAIND = 0) and pTypPat >= '1')"
            " AND (OfficeID=3) order by pLasNam, pFirNam");
}

TEST(NameEntry, SearchesForEveryReadingOfANameWithoutAComma) {
  test_support::FakeSession session;
  session.kind = session::kOfficeScoped;
  EXPECT_EQ(people::NameSearch(session, "Smith", false, data::Words("pSSN")),
            "Select * from Patable where pLASNAM Like 'Smith%' AND (OfficeID=3)"
            " or pFIRNAM Like 'Smith%' AND (OfficeID=3) order by pSSN");
  std::vector<std::string> found;
  for (const data::Sql& condition : people::NameConditions(session, " Mary  van Dyke")) {
    found.push_back(condition.Text());
  }
  EXPECT_EQ(found, (std::vector<std::string>{
                       "pLASNAM Like 'Dyke%' and pFIRNAM Like 'Mary  van%'",
                       "pLASNAM Like 'van Dyke%' and pFIRNAM Like 'Mary%'", "pLASNAM Like 'Mary  van Dyke%'",
                       "pLASNAM Like 'Mary  van%' and pFIRNAM Like 'Dyke%'",
                       "pLASNAM Like 'Mary%' and pFIRNAM Like 'van Dyke%'", "pFIRNAM Like 'Mary  van Dyke%'"}));
  std::string pasted;
  for (int word = 0; word < 1'000; ++word) {
    pasted += "word ";
  }
  EXPECT_LE(people::NameConditions(session, pasted).size(), 20U) << "the database takes no statement of thousands";
}

}  // namespace
