#include "home/patient_search.h"

#include <gmock/gmock.h>

#include "support/practice_host.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class PatientSearch : public testing::Test {
 protected:
  void Add(int id, const std::string& last, const std::string& first, const std::string& more = {},
           const std::string& values = {}) {
    host_.session.Connection().Execute("INSERT INTO PATable (pID, pTypPat, pLASNAM, pFIRNAM" + more + ") VALUES (" +
                                       std::to_string(id) + ", '1', '" + last + "', '" + first + "'" + values + ")");
  }
  // The IDs, in the order in which they are found.
  std::vector<std::int32_t> Found(const std::string& typed) const {
    std::vector<std::int32_t> ids;
    auto searches = host::PatientSearch(statements_, typed, host_.session.Today());
    if (!searches.empty()) {
      for (const auto rows = host::InTurn(statements_, std::move(searches)); !rows->Eof(); rows->MoveNext()) {
        ids.push_back(session::ToId(rows->Get(host::kPatientId)));
      }
    }
    return ids;
  }

  test_support::PracticeHost host_{host::CreatePractice("sqlite::memory:", {.kind = 7, .office = 1, .offices = 2})};
  data::Statements statements_{host_.session};
};

TEST_F(PatientSearch, FindsNamesInEitherOrder) {
  Add(1, "Reed", "Rita");
  Add(2, "Reed", "Adam");
  Add(3, "Ritak", "Reeda");
  Add(4, "van der Berg", "Jan");
  Add(5, "O''Brien", "100%");
  EXPECT_THAT(Found("REE"), ElementsAre(2, 1, 3)) << "last names come first, each by the other name";
  EXPECT_THAT(Found("reed, r"), ElementsAre(1));
  EXPECT_THAT(Found("rita reed"), ElementsAre(1, 3));
  EXPECT_THAT(Found(" , adam "), ElementsAre(2));
  EXPECT_THAT(Found("jan van der"), ElementsAre(4));
  EXPECT_THAT(Found("van der b"), ElementsAre(4));
  EXPECT_THAT(Found("o'b"), ElementsAre(5));
  EXPECT_THAT(Found("%"), IsEmpty());
  EXPECT_THAT(Found("'; DROP TABLE PATable; --"), IsEmpty());
  EXPECT_THAT(Found(" "), IsEmpty());
}

TEST_F(PatientSearch, FindsNamesWithoutRegardToCaseInAnyAlphabet) {
  Add(1, "Núñez", "Zoë");
  Add(2, "Ökmen", "Ada");
  Add(3, "Лебедев", "Иван");
  Add(4, "NÚÑEZ", "adam");
  EXPECT_THAT(Found("núÑ"), ElementsAre(4, 1));
  EXPECT_THAT(Found("zoË"), ElementsAre(1));
  EXPECT_THAT(Found("ö"), ElementsAre(2));
  EXPECT_THAT(Found("ЛЕБ"), ElementsAre(3));
}

TEST_F(PatientSearch, FindsNumbersByWhatTheyMayBe) {
  Add(1, "A", "A", ", pHOMPHO, pBIRDAT", ", '(512) 555-0142', '1980-01-02'");
  Add(2, "B", "B", ", pBUSPHO", ", '512.555.0199 x7'");
  Add(3, "C", "C", ", pHomCell", ", '(555) 014-2000'");
  Add(512, "D", "D");
  Add(10280, "E", "E");
  EXPECT_THAT(Found("512"), ElementsAre(512, 1, 2));
  EXPECT_THAT(Found("(512) 555-01"), ElementsAre(1, 2));
  EXPECT_THAT(Found("5550142"), ElementsAre(3, 1)) << "with and without the area code";
  EXPECT_THAT(Found("+1 512 555 0199"), ElementsAre(2));
  EXPECT_THAT(Found("010280"), ElementsAre(10280, 1)) << "an ID and a birth date";
  EXPECT_THAT(Found("1/2/80"), ElementsAre(1));
  EXPECT_THAT(Found("01-02-1980"), ElementsAre(1));
  EXPECT_THAT(Found("1/2"), IsEmpty());
  EXPECT_THAT(Found("99999999999999999999"), IsEmpty());
}

TEST_F(PatientSearch, FindsPatientsOfTheOfficeAlone) {
  Add(1, "Reed", "Rita", ", OfficeID", ", 2");
  Add(2, "Reed", "Paul", ", pTypRef", ", '1'");
  host_.session.Connection().Execute("INSERT INTO PATable (pID, pLASNAM, pTypRef) VALUES (3, 'Reed', '1')");
  EXPECT_THAT(Found("reed"), ElementsAre(2));
  EXPECT_THAT(Found("1"), IsEmpty());
}

TEST_F(PatientSearch, LooksIntoAnIndexInEachWay) {
  for (const char* typed :
       {"reed", "núñez", "rita reed", "reed, rita", "512", "5550142", "(512) 555-0142", "1/2/1980"}) {
    for (const data::Sql& search : host::PatientSearch(statements_, typed, host_.session.Today())) {
      const std::string sql = host_.session.PrepareSQL(search.Text(), 1);
      for (const auto plan = host_.session.Connection().Execute("EXPLAIN QUERY PLAN " + sql); !plan->Eof();
           plan->MoveNext()) {
        const std::string detail = session::ToText((*plan)["detail"]);
        EXPECT_THAT(detail, Not(HasSubstr("SCAN"))) << typed << ": " << sql;
        if (std::string(typed) != "1/2/1980") {  // a day has few births
          EXPECT_THAT(detail, Not(HasSubstr("TEMP B-TREE"))) << typed << ": " << sql;
        }
      }
    }
  }
}

}  // namespace
