#include "practice/offices.h"

#include <gmock/gmock.h>

#include "data/literal.h"
#include "data/statements.h"
#include "database/unix/throwaway_cluster.h"
#include "host/practice/practice_fixture.h"
#include "practice/change_log.h"
#include "practice/copied_table.h"
#include "practice/demo.h"
#include "practice/settings.h"

namespace host {
namespace {

using testing::ElementsAre;

std::string Name(HostSession& session, std::int32_t person) {
  const data::Statements statements(session);
  const auto row =
      statements.Select("SELECT pLASNAM FROM PATable WHERE pID=" + data::Literal(person) + statements.Office());
  return row->Eof() ? "none" : session::ToText(row->Get(0));
}

// Two desks, each of which came in by another server, work in one office; another office has its own rows.
TEST(Offices, DesksWorkInAnOfficeWhereverItIs) {
  ThrowawayCluster& cluster = SharedCluster();
  const std::string north = cluster.Url(cluster.MakeDatabase("north"));
  const std::string south = cluster.Url(cluster.MakeDatabase("south"));
  CreateOfficeGroup({"north", north}, {.row_guids = true});
  {
    const auto group = OpenOfficeGroup(north);
    group->AddServer({"south", south});
    AddOffice(*group, 1, "north");
    AddOffice(*group, 2, "south");
  }
  Practice by_north(north);
  Practice by_south(south);
  EXPECT_THAT(by_north.Offices(), ElementsAre(1, 2));
  EXPECT_EQ(by_south.Office(), 2);
  HostSession ann(by_north, 2, LoginRights("ann", true), StandingStill());
  HostSession ben(by_south, 2, LoginRights("ben", true), StandingStill());
  HostSession eve(by_south, 1, LoginRights("eve", true), StandingStill());

  EXPECT_EQ(ann.OfficeSetting(kOfficeDefaults, "INS_REN_DAT"), "01-01");
  const data::Statements statements(ann);
  const std::int32_t person = statements.Insert("PATable", {{"pLASNAM", data::Literal("Smith")}});
  EXPECT_EQ(Name(ben, person), "Smith");
  EXPECT_EQ(Name(eve, person), "none");

  EXPECT_FALSE(ann.HoldRecord("PATable", person));
  ASSERT_TRUE(ben.HoldRecord("PATable", person));
  EXPECT_EQ(ben.HoldRecord("PATable", person)->user, "ann");
  EXPECT_FALSE(eve.HoldRecord("PATable", person)) << "of that number in another office";

  OpenOfficeGroup(south)->Move(2, "north");
  EXPECT_TRUE(ann.KeepsRecord("PATable", person));
  ASSERT_TRUE(ben.HoldRecord("PATable", person));
  EXPECT_EQ(ben.HoldRecord("PATable", person)->user, "ann");
  EXPECT_THROW(Name(ann, person), session::DatabaseError) << "told once that the office has moved";
  statements.Update("PATable", {{"pLASNAM", data::Literal("Jones")}}, "pID", person);
  EXPECT_THROW(Name(ben, person), session::DatabaseError);
  EXPECT_EQ(Name(ben, person), "Jones");
  ChangeReader changes(ben.Office(), {.who = "ann"});
  std::string last;
  while (const auto change = changes.Next()) {
    last = change->before + " to " + change->after;
  }
  EXPECT_EQ(last, "Smith to Jones");
  ann.ReleaseRecord("PATable", person);
  EXPECT_FALSE(ben.HoldRecord("PATable", person));
}

// One of a practice's offices becomes one of a group, and a practice of its own again.
TEST(Offices, AnOfficeIsCopiedIntoAGroupAndOut) {
  const auto go_on = [](const CopyProgress&) { return true; };
  const PracticeFile before("before");
  const PracticeFile after("after");
  const PracticeOptions options{.kind = 7, .office = 1, .offices = 2, .row_guids = true};
  {
    const Practice practice =
        MakeDemo(before.Url(), {.patients = 20, .practice = options, .password_cost = HashCost::Least});
    practice.Database().Run("DELETE FROM ZipCodTable WHERE ZipCodID > 100");
  }
  ThrowawayCluster& cluster = SharedCluster();
  const std::string url = cluster.Url(cluster.MakeDatabase("copied"));
  CreateOfficeGroup({"here", url}, {.row_guids = true});
  const auto group = OpenOfficeGroup(url);
  EXPECT_THROW(AddCopiedOffice(*group, 3, "here", before.Url(), go_on), session::DatabaseError);
  EXPECT_FALSE(AddCopiedOffice(*group, 2, "here", before.Url(), [](const CopyProgress&) { return false; }));
  EXPECT_TRUE(AddCopiedOffice(*group, 2, "here", before.Url(), go_on));
  EXPECT_THROW(CopyPractice(url, after.Url(), go_on), session::DatabaseError);
  EXPECT_TRUE(CopyPractice(url, after.Url(), go_on, 2));
  const PracticeDatabase one = OpenDatabase(before.Url());
  const PracticeDatabase other = OpenDatabase(after.Url());
  EXPECT_EQ(other.options.office, 2);
  for (const Table& table : PracticeTables()) {
    const auto compared = Compare(one, other, CopiedTable(table, one.options, 2), [](std::int64_t) { return true; });
    EXPECT_EQ(compared->difference, "") << table.name;
    EXPECT_TRUE(other.Run("SELECT OfficeID FROM " + std::string(table.name) + " WHERE OfficeID<>2")->Eof());
  }
  EXPECT_FALSE(other.Run("SELECT pID FROM PATable")->Eof());
}

}  // namespace
}  // namespace host
