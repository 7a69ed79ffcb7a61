// Whoever moves to whatever family, in a practice whose old family rows are not whole: everybody else stays where he
// is, and a stop changes nobody's family but as a whole.

#include <algorithm>
#include <map>
#include <span>

#include "data/families.h"
#include "data/person_removal.h"
#include "practice/demo_random.h"
#include "practice/link_check.h"
#include "support/practice_host.h"

namespace {

using Heads = std::map<std::int32_t, std::int32_t>;  // by person

class AnyFamilies : public testing::TestWithParam<std::int32_t> {
 protected:
  bool Scoped() const { return GetParam() == session::kOfficeScoped; }
  std::int32_t Office() const { return Scoped() ? 2 : 1; }
  session::Connection& Practice() const { return *host_.practice.Database().connection; }

  // The same persons in each office. A head may name nobody, and rows may be missing, doubled or old.
  void Fill(host::demo::Random& chance) {
    Practice().Execute("DELETE FROM PATable; DELETE FROM FamTable");
    heads_.clear();
    for (std::int32_t person = 1; person <= 9; ++person) {
      const std::int32_t head = person <= 3 || chance.Percent(20) ? person : chance.Between(1, 3);
      const std::int32_t named = head != person ? head : chance.Percent(50) ? person : 0;
      heads_[person] = head;
      for (const std::int32_t office : host_.practice.Offices()) {
        const std::string scope = ", " + std::to_string(office) + ")";
        Practice().Execute("INSERT INTO PATable (pID, pTypPat, pFAMHEAIND, OfficeID) VALUES (" +
                           std::to_string(person) + ", '1', " +
                           (named == 0 && person % 2 == 0 ? "NULL" : std::to_string(named)) + scope);
        for (int rows = chance.Percent(70) ? 1 : chance.Below(3); rows > 0; --rows) {
          Practice().Execute("INSERT INTO FamTable (fMEMID, fRSPID, OfficeID) VALUES (" + std::to_string(person) +
                             ", " + std::to_string(chance.Percent(70) ? head : chance.Between(1, 9)) + scope);
        }
      }
    }
  }

  Heads Stored() const {
    Heads heads;
    for (const auto row =
             Practice().Execute("SELECT pID, pFAMHEAIND FROM PATable WHERE OfficeID=" + std::to_string(Office()));
         !row->Eof(); row->MoveNext()) {
      const std::int32_t head = session::ToId(row->Get(1));
      heads[session::ToId(row->Get(0))] = head == 0 ? session::ToId(row->Get(0)) : head;
    }
    return heads;
  }

  // "5-4 7-7": members and heads.
  std::string FamilyRows(const std::string& condition) const {
    std::string told;
    for (const auto row =
             Practice().Execute("SELECT fMEMID, fRSPID FROM FamTable WHERE " + condition + " ORDER BY fMEMID, fRSPID");
         !row->Eof(); row->MoveNext()) {
      told += session::ToText(row->Get(0)) + "-" + session::ToText(row->Get(1)) + " ";
    }
    return told;
  }
  std::string FamilyRowOf(std::int32_t person) const {
    return FamilyRows("fMEMID=" + std::to_string(person) + " AND OfficeID=" + std::to_string(Office()));
  }
  std::string ElsewhereRows() const {
    std::string told = FamilyRows("OfficeID<>" + std::to_string(Office()));
    for (const auto row = Practice().Execute("SELECT pFAMHEAIND FROM PATable WHERE OfficeID<>" +
                                             std::to_string(Office()) + " ORDER BY pID");
         !row->Eof(); row->MoveNext()) {
      told += session::ToText(row->Get(0)) + " ";
    }
    return told;
  }

  bool HeadsOthers(std::int32_t person) const {
    return std::ranges::any_of(heads_, [&](const auto& one) { return one.second == person && one.first != person; });
  }

  // The command runs and changes the expected families in `heads_`; nothing when it cannot be given.
  std::function<void()> Command(host::demo::Random& chance) {
    const auto one = [&] { return std::next(heads_.begin(), chance.Below(heads_.size()))->first; };
    const std::int32_t person = one();
    const std::int32_t other = one();
    const data::Families families(host_.session);
    switch (chance.Below(4)) {
      case 0:
        if (HeadsOthers(person)) {
          return {};
        }
        heads_[person] = heads_[other];
        return [=] { families.Make(families.Adding(person, other)); };
      case 1:
        heads_[person] = person;
        return [=] { families.Make(data::Families::HeadingHimself(person)); };
      case 2:
        for (const std::int32_t head = heads_[person]; auto& [member, his] : heads_) {
          his = his == head ? person : his;
        }
        return [=] { families.Make(families.MakingHead(person)); };
      default:
        if (HeadsOthers(person) || heads_.size() < 4) {
          return {};
        }
        heads_.erase(person);
        return [this, person] {
          session::Transaction transaction(host_.session.Connection());
          data::RemovePerson(host_.session, person);
          transaction.Commit();
        };
    }
  }

  // Once it stops before a statement by chance, and is given again.
  void RunStopping(const std::function<void()>& command, const Heads& before, int stop) {
    const std::string rows = FamilyRows("OfficeID=" + std::to_string(Office()));
    host_.session.hear = [&stop](const std::string& sql) {
      if (--stop == 0) {
        throw session::DatabaseError("refused", sql, 1);
      }
    };
    try {
      command();
    } catch (const session::DatabaseError&) {
      EXPECT_EQ(Stored(), before);
      EXPECT_EQ(FamilyRows("OfficeID=" + std::to_string(Office())), rows);
    }
    host_.session.hear = nullptr;
    command();
  }

  void ExpectInStep(const Heads& before) const {
    for (const auto& [person, head] : heads_) {
      if (before.at(person) != head) {
        EXPECT_EQ(FamilyRowOf(person), std::to_string(person) + "-" + std::to_string(head) + " ");
      }
    }
    for (const auto& [person, head] : before) {
      EXPECT_TRUE(heads_.contains(person) || FamilyRowOf(person).empty()) << person << " was deleted";
    }
  }

  std::vector<std::string> Check(bool mend) {
    std::vector<std::string> told;
    host::CheckLinks(host_.session, mend, [&](const std::string& fault) { told.push_back(fault); });
    return told;
  }

  test_support::PracticeHost host_{
      host::CreatePractice("sqlite::memory:", {.kind = GetParam(), .office = Office(), .offices = Scoped() ? 2 : 1})};
  Heads heads_;
};

TEST_P(AnyFamilies, StayWholeWhoeverMovesAndWhereverItStops) {
  for (std::uint64_t seed = 1; seed <= 60 && !HasFailure(); ++seed) {
    host::demo::Random chance(seed);
    Fill(chance);
    ASSERT_EQ(Stored(), heads_);
    const std::string elsewhere = ElsewhereRows();
    for (int i = 0; i < 12 && !HasFailure(); ++i) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", command " << i);
      const Heads before = heads_;
      if (const auto command = Command(chance)) {
        RunStopping(command, before, chance.Between(1, 12));
        EXPECT_EQ(Stored(), heads_);
        ExpectInStep(before);
      }
    }
    // What nobody touched may still be out of step.
    Check(true);
    EXPECT_THAT(Check(false), testing::IsEmpty());
    EXPECT_EQ(Stored(), heads_);
    EXPECT_EQ(ElsewhereRows(), elsewhere);
  }
}

// Whatever other programs left.
TEST_P(AnyFamilies, AreMendedWhateverTheirHeads) {
  for (std::uint64_t seed = 1; seed <= 60 && !HasFailure(); ++seed) {
    host::demo::Random chance(seed);
    Fill(chance);
    for (const auto& [person, head] : heads_) {
      if (chance.Percent(40)) {
        Practice().Execute("UPDATE PATable SET pFAMHEAIND=" + std::to_string(chance.Between(1, 12)) +
                           " WHERE pID=" + std::to_string(person));
      }
    }
    Check(true);
    EXPECT_THAT(Check(false), testing::IsEmpty());
    const Heads mended = Stored();
    for (const auto& [person, head] : mended) {
      EXPECT_EQ(mended.at(head), head) << "seed " << seed << ", person " << person;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Kinds, AnyFamilies, testing::Values(session::kFileDatabase, session::kOfficeScoped));

}  // namespace
