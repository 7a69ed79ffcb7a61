#include "data/record_binding.h"

#include <type_traits>

#include "data/literal.h"
#include "forms/check_box.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/text_box.h"
#include "support/practice_host.h"

namespace {

using data::RecordBinding;
using data::Sql;

template <typename Left, typename Right>
concept Joins = requires(Left left, Right right) {
  left + right;
};

static_assert(!std::is_constructible_v<Sql, std::string> && !std::is_constructible_v<data::Words, std::string>);
static_assert(!Joins<Sql, std::string> && !Joins<std::string, Sql> && !Joins<Sql, std::string_view>);

TEST(Literal, IsTheOnlyWayForATextIntoAStatement) {
  const std::string hostile = "'; DROP TABLE PATable; --";
  EXPECT_EQ("SELECT pID FROM PATable WHERE pLASNAM=" + data::Literal(hostile) + " AND pID=" + data::Literal(5),
            "SELECT pID FROM PATable WHERE pLASNAM='''; DROP TABLE PATable; --' AND pID=5");
  EXPECT_EQ(data::Bracketed("a]b"), "[a]]b]");
  EXPECT_EQ(data::LikeBeginningInDoubleQuotes("O'\"%"), "\"O'\"\"[%]%\"");
  EXPECT_EQ(data::NumberLiteral("12.5"), "12.5");
  EXPECT_EQ(data::NumberLiteral("1 OR 1=1"), "'1 OR 1=1'");
}

class Binding : public testing::Test {
 protected:
  Binding() {
    record_.Bind(name_, "pLASNAM");
    record_.Bind(birth_, "pBIRDAT", data::kDate);
    record_.Bind(patient_, "pTypPat");
    record_.Bind(provider_, "pPROIND");
    record_.Bind(phone_, "pHOMPHO", data::kPhone);
    record_.Bind(hidden_, "pREFIND");
    provider_.Items = {{"Reed, Rita", 7}, {"Clark, Dan", 9}};
    provider_.BoundByData = true;
    patient_.ThreeState = true;
    host_.session.hear = [this](const std::string& sql) { statements_.push_back(sql); };
  }

  test_support::PracticeHost host_{host::CreatePractice("sqlite::memory:")};
  std::vector<std::string> statements_;
  RecordBinding record_{host_.session, "PATable", "pID"};
  forms::TextBox name_, birth_, phone_;
  forms::CheckBox patient_;
  forms::ComboBox provider_;
  forms::Label hidden_;
};

TEST_F(Binding, OfAnyFieldIsChangedWhenItDiffersFromTheRow) {
  host_.Value(
      "INSERT INTO PATable (pID, pLASNAM, pBIRDAT, pPROIND, pHOMPHO) VALUES (5, 'Roe', #01/02/1980#, 9, "
      "'555-010-0100')");
  ASSERT_TRUE(record_.Read(5));
  EXPECT_EQ(birth_.Text.get(), "01-02-1980");
  EXPECT_EQ(provider_.Text.get(), "Clark, Dan");
  EXPECT_EQ(patient_.Value, forms::CheckState::Mixed);
  EXPECT_EQ(phone_.Text.get(), "(555) 010-0100");
  EXPECT_FALSE(record_.Changed());

  name_.DoType("Row");
  EXPECT_TRUE(record_.Changed(name_));
  name_.DoType("Roe");
  birth_.DoType("010280");
  EXPECT_FALSE(record_.Changed()) << "put right again, and the same day in other digits";
  patient_.DoCheck(forms::CheckState::On);
  provider_.DoPick(0);
  EXPECT_TRUE(record_.Changed(patient_) && record_.Changed(provider_));
  record_.Update();
  EXPECT_EQ(statements_.back(), "UPDATE PATable SET pTypPat='1', pPROIND=7 WHERE pID=5");
  EXPECT_FALSE(record_.Changed());
  birth_.DoType("");
  record_.Update();
  EXPECT_EQ(statements_.back(), "UPDATE PATable SET pBIRDAT=Null WHERE pID=5");
  const std::size_t count = statements_.size();
  record_.Update();
  EXPECT_EQ(statements_.size(), count) << "nothing has changed";
}

// A value is no conflict when it is the same in other digits, when a field shows it as another one, or when nobody
// touched it.
TEST_F(Binding, TellsWhatSomebodyElseChangedMeanwhile) {
  host_.Value("INSERT INTO PATable (pID, pLASNAM, pBIRDAT, pTypPat, pREFIND) VALUES (5, 'Roe', #01/02/1980#, '3', 7)");
  ASSERT_TRUE(record_.Read(5));
  host_.Value("UPDATE PATable SET pREFIND=8, pBIRDAT=#01/03/1980# WHERE pID=5");
  const std::size_t count = statements_.size();
  EXPECT_TRUE(record_.Conflicts()->empty());
  EXPECT_EQ(statements_.size(), count) << "there is nothing to update";
  patient_.DoCheck(patient_.Value == forms::CheckState::On ? forms::CheckState::Off : forms::CheckState::On);
  birth_.DoType("1/3/80");
  EXPECT_TRUE(record_.Conflicts()->empty());
  EXPECT_EQ(statements_.size(), count + 1);

  record_.Tie(hidden_, name_);
  name_.DoType("Row");
  const auto conflicts = record_.Conflicts();
  ASSERT_EQ(conflicts->size(), 1U);
  EXPECT_EQ(&conflicts->front().field, &hidden_);
  EXPECT_EQ(conflicts->front().stored, "8");
  record_.Overwrite(*conflicts);
  EXPECT_TRUE(record_.Conflicts()->empty()) << "settled";
  record_.Take(*conflicts);
  EXPECT_EQ(hidden_.Caption.get(), "8");
  EXPECT_EQ(name_.Text.get(), "Roe") << "it is tied to what was taken";
  record_.Update();
  EXPECT_EQ(host_.Value("SELECT pLASNAM + ' ' + pREFIND FROM PATable"), "Roe 8");
  name_.DoType("Row");
  host_.Value("DELETE * FROM PATable WHERE pID=5");
  EXPECT_FALSE(record_.Conflicts());
}

TEST_F(Binding, InsertsEveryFieldButEmptyLabelsAndTellsWhatCannotBeRead) {
  ASSERT_TRUE(record_.Read(0));
  name_.DoType("Roe");
  birth_.DoType("13-45-1980");
  const auto unreadable = record_.FirstUnreadable();
  ASSERT_TRUE(unreadable);
  EXPECT_EQ(&unreadable->field, &birth_);
  EXPECT_EQ(unreadable->what, "date");
  birth_.DoType("1/2/1980");
  EXPECT_FALSE(record_.FirstUnreadable());
  const std::string id = std::to_string(record_.Insert());
  EXPECT_EQ(statements_.back(),
            "INSERT INTO PATable (pLASNAM, pBIRDAT, pTypPat, pPROIND, pHOMPHO) VALUES ('Roe', #01/02/1980#, '', Null, "
            "''); SELECT @@IDENTITY");
  EXPECT_EQ(host_.Value("SELECT pBIRDAT FROM PATable WHERE pID=" + id), "1980-01-02");
  EXPECT_FALSE(record_.Changed());
  EXPECT_FALSE(record_.Read(4711));
  EXPECT_EQ(name_.Text.get(), "Roe") << "a row that is not there leaves the fields as they are";
}

TEST(Format, ShowsAndTakesValuesBack) {
  using std::chrono::year;
  const forms::Date today = year(2026) / 11 / 21;
  struct Case {
    const data::Format& format;
    const char* typed;
    const char* shown;  // nullptr when it is refused
  };
  for (const Case& c : {Case{data::kDate, "010280", "01-02-1980"}, Case{data::kDate, "2-30-2000", nullptr},
                        Case{data::kMonthDay, "229", nullptr}, Case{data::kMonthDay, "0229", "02-29"},
                        Case{data::kMonthDay, "1/5", "01-05"}, Case{data::kCurrency, "1234.5", "$1,234.50"},
                        Case{data::kCurrency, "(2)", "($2.00)"}, Case{data::kCurrency, "two", nullptr},
                        Case{data::kPercent, "80", "80.0%"}, Case{data::kPercent, "12.5 %", "12.5%"},
                        Case{data::kPercent, "%", nullptr}, Case{data::kPhone, "5550100100", "(555) 010-0100"},
                        Case{data::kPlain, " as it is ", " as it is "}}) {
    const auto value = c.format.take(c.typed, today);
    EXPECT_EQ(value.has_value(), c.shown != nullptr) << c.typed;
    if (value && c.shown != nullptr) {
      EXPECT_EQ(c.format.show(*value), c.shown);
      EXPECT_EQ(c.format.take(c.shown, today), value) << "what is shown is read back";
    }
  }
}

}  // namespace
