#include "data/literal.h"
#include "forms/text.h"
#include "host/database/conformance/tested_engine.h"
#include "lookup/list_catalogue.h"
#include "lookup/list_statement.h"

namespace host {
namespace {

using testing::HasSubstr;
using testing::Not;

// The practice as the lists see it.
class FirstOffice : public session::Database {
 public:
  explicit FirstOffice(const PracticeDatabase& practice) : practice_(practice) {}

  std::int32_t DatabaseKind() const override { return practice_.options.kind; }
  std::int32_t CurrentOfficeID() const override { return 1; }
  std::string PrepareSQL(const std::string& sql, int /*flag*/) const override { return practice_.prepare(sql); }
  session::Connection& Connection() override { return *practice_.connection; }
  bool KeepsRowGuids(std::string_view table) const override { return practice_.KeepsRowGuids(table); }

 private:
  const PracticeDatabase& practice_;
};

// What the screens ask for has its index, by the engine's own plans.
class Plans : public OnEngine {
 protected:
  // A thousand records of each kind, four persons of each type.
  void Fill() {
    AddEmployers(1000);
    for (const std::string insert :
         {"PATable (pLASNAM, pFIRNAM, pTypPat) SELECT EmpNam, EmpCIT, '1'",
          "InsCoTable (InsCoNam, epPayID) SELECT EmpNam, EmpInd", "ePayerTable (epNam) SELECT EmpNam",
          "GroPlaTable (GroPlaInsID, GroPlaNam, GroPlaCat) SELECT EmpInd, EmpNam, 'CAPITATION'",
          "PhaTable (PhaNam) SELECT EmpNam", "ELTable (elEmpID, elInsID, elGroID) SELECT EmpInd, EmpInd, EmpInd"}) {
      Run("INSERT INTO " + insert + " FROM EmpTable");
    }
    Run("UPDATE PATable SET pTypDoc='1', pTypPhy='1', pTypRef='1', pTypEmp='1', pEmpID1=pID WHERE pID<5");
    Database().connection->Execute(GetParam().plans_by_indexes);
  }
};

auto Sorts() {
  return testing::ContainsRegex("temp b-tree|sort");
}

// A value as a condition on the column writes it.
std::string Sample(const Column& column) {
  switch (column.type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return "'smith'";
    case ColumnType::DateTime:
      return "#11/21/2026#";
    default:
      return "7";
  }
}

TEST_P(Plans, EveryIndexServes) {
  MakePractice({.kind = 7});
  Database().connection->Execute(GetParam().plans_by_order);
  for (const Table& table : PracticeTables()) {
    std::vector<Index> indexes = table.indexes;
    indexes.push_back({.columns = table.key, .unique = true});
    for (const Index& index : indexes) {
      const std::string columns(index.columns);
      const std::string first = columns.substr(0, columns.find(','));
      const auto column = std::ranges::find(table.columns, first, &Column::name);
      ASSERT_NE(column, table.columns.end());
      const std::string select = "SELECT * FROM " + std::string(table.name) + " WHERE (OfficeID=1)";
      // Another index that begins alike is as good.
      const auto uses = HasSubstr(" " + forms::ToLower(std::string(table.name) + "_" + first));
      if (index.of != Index::Of::Values) {
        EXPECT_THAT(
            Plan(select + " and " + std::string(index.where) + " and " + IndexedExpression(index) + " = '5550100'"),
            uses);
        continue;
      }
      EXPECT_THAT(Plan(select + " and " + first + "=" + Sample(*column)), uses);
      if (column->type == ColumnType::Text) {
        EXPECT_THAT(Plan(select + " and ((" + first + ") Like 'Smi%')"), uses);
      }
      if (index.where.empty()) {
        EXPECT_THAT(Plan(select + " ORDER BY " + columns), testing::AllOf(uses, Not(Sorts())));
      }
    }
  }
}

// What a list reads first, and the ways to the rows that it joins. The big ones come in their index's order, for their
// first page stands there before the others are read.
TEST_P(Plans, ListsGoByIndexes) {
  struct Expected {
    session::LookUpListTypes list;
    std::vector<std::string> indexes;
    bool streams = false;
  };
  MakePractice({.kind = 7});
  Fill();
  FirstOffice office(Database());
  for (const Expected& expected : std::vector<Expected>{
           {session::lulProvider, {"patable_ptypdoc"}},
           {session::lulPhysician1, {"patable_ptypphy"}},
           {session::lulReferInOut, {"patable_ptypphy", "patable_ptypref"}},
           {session::lulReferral, {"patable_ptypref"}},
           {session::lulEmployee, {"patable_ptypemp", "eltable_elid"}},
           {session::lulGroupPlan, {"inscotable_inscoind"}},
           {session::lulInsGroup, {"emptable_empind", "inscotable_inscoind", "groplatable_groplaind"}},
           {session::lulCapPlans, {"inscotable_inscoind", "groplatable_groplaind"}},
           {session::lulFamilyHead, {"patable_plasnam_pfirnam"}, true},
           {session::lulInsuranceCo, {"inscotable_insconam", "epayertable_eppayid"}, true},
           {session::lulEmployer, {"emptable_empnam"}, true},
           {session::lulPharmacy, {"phatable_phanam"}, true},
       }) {
    if (expected.streams) {
      Database().connection->Execute(GetParam().plans_by_order);
    }
    const auto list = lookup::DefinitionOf(expected.list, data::Statements(office));
    const std::string plan = Plan(std::string(lookup::ListStatement(list.sql).With({}, list.sort).Text()));
    for (const std::string& index : expected.indexes) {
      EXPECT_THAT(plan, HasSubstr(index));
    }
    if (expected.streams) {
      EXPECT_THAT(plan, Not(Sorts()));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Conformance, Plans, testing::ValuesIn(EveryEngine()), NameOfEngine);

}  // namespace
}  // namespace host
