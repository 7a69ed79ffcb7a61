#include "entry/record_id.h"

#include "entry/form_catalog.h"
#include "support/fake_host.h"

namespace {

using session::Opening;
using session::Outcome;
using session::RecordKind;

Opening Read(std::string_view id) {
  auto opening = Opening::Existing(RecordKind::Patient, 3);
  EXPECT_TRUE(entry::ReadId(id, opening)) << id;
  return opening;
}

TEST(RecordId, IsANumberOrAWordForWhatIsOpened) {
  EXPECT_EQ(Read("new").mode, Opening::Mode::New);
  EXPECT_EQ(Read("EMERGENCY").mode, Opening::Mode::Emergency);
  EXPECT_TRUE(Read(" ").IsNew());
  EXPECT_EQ(Read(" 12").id, 12);
  EXPECT_FALSE(Read("12").IsNew());
  Opening opening{.kind = RecordKind::GroupPlan};
  for (const char* none : {"somebody", "EMERGENCY", "12x", "12.5", "99999999999"}) {
    EXPECT_FALSE(entry::ReadId(none, opening)) << none;
  }
  for (const std::string id : {"NEW", "EMERGENCY", "12"}) {
    EXPECT_EQ(entry::IdText(Read(id)), id);
  }
}

TEST(RecordId, TellsHowAScreenWasLeft) {
  EXPECT_EQ(entry::IdText(Outcome{.end = Outcome::End::Saved, .id = 7}), "7");
  EXPECT_EQ(entry::IdText(Outcome{}), "CANCEL_AND_CLOSE");
  EXPECT_EQ(entry::IdText(Outcome{.end = Outcome::End::AlreadyOpen}), "ALREADY_OPEN");
  EXPECT_EQ(entry::IdText(Outcome{.end = Outcome::End::NotBuilt}), std::nullopt);
  EXPECT_EQ(entry::IdText(Outcome{.end = Outcome::End::Deleted, .id = 5}), "CANCEL_AND_CLOSE");
  EXPECT_EQ(entry::ReadOutcome("7").id, 7);
  EXPECT_TRUE(entry::ReadOutcome("7").Saved());
  EXPECT_EQ(entry::ReadOutcome("ALREADY_OPEN").end, Outcome::End::AlreadyOpen);
  EXPECT_EQ(entry::ReadOutcome("CANCEL_AND_CLOSE").end, Outcome::End::Cancelled);
  EXPECT_EQ(entry::ReadOutcome("NEW").end, Outcome::End::Cancelled);
}

TEST(RecordId, HasAKeyForEveryTypeOfPerson) {
  for (const char* key : {"PTYPPAT", "PTYPDOC", "PTYPPHY1", "PTYPPHY2", "PTYPPHYREFOUT", "PTYPREF", "PTYPEMP"}) {
    const auto kind = entry::PersonKind(key);
    ASSERT_TRUE(kind) << key;
    EXPECT_EQ(entry::PersonKey(*kind), key);
  }
  EXPECT_EQ(entry::PersonKind("pTypEmp"), RecordKind::Employee);
  EXPECT_FALSE(entry::PersonKind("PTYPX"));
  EXPECT_EQ(entry::PersonKey(RecordKind::Carrier), "");
}

TEST(FormCatalog, KnowsAScreenForEveryKindOfRecord) {
  test_support::FakeHost host;
  for (int kind = 0; kind <= static_cast<int>(RecordKind::RecallMaster); ++kind) {
    const std::size_t told = host.user.told.size();
    const auto outcome = entry::EditRecord(host.Context(), Opening::Existing(static_cast<RecordKind>(kind), 5));
    EXPECT_FALSE(outcome.Saved()) << kind;
    EXPECT_GT(host.user.told.size(), told) << kind << ": not there, or no record 5";
  }
}

}  // namespace
