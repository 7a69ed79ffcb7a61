#include "data/reminder_notes.h"

#include "support/practice_host.h"

namespace {

constexpr std::string_view kNoteRows =
    "SELECT p.pNotPid, p.pNotTyp, p.pNotTraLinID, p.OfficeID, n.nNote FROM pNoteTable p JOIN NoteTable n ON "
    "n.nID=p.pNotNID AND n.OfficeID=p.OfficeID ORDER BY p.OfficeID, p.pNotID";

class ReminderNotes : public testing::Test {
 protected:
  session::Connection& Practice() const { return *host_.practice.Database().connection; }

  std::string Told(std::string_view query) const {
    std::string told;
    for (const auto row = Practice().Execute(std::string(query)); !row->Eof(); row->MoveNext()) {
      for (std::size_t i = 0; i < row->Fields().size(); ++i) {
        told += session::ToText(row->Get(i)) + "|";
      }
      told += "\n";
    }
    return told;
  }

  test_support::PracticeHost host_{
      host::CreatePractice("sqlite::memory:", {.kind = session::kOfficeScoped, .office = 2, .offices = 2})};
  data::ReminderNotes notes_{host_.session};
};

TEST_F(ReminderNotes, KeepsOneNoteAPatient) {
  EXPECT_EQ(notes_.Read(5), "");
  notes_.Write(5, "");
  EXPECT_EQ(Told("SELECT * FROM pNoteTable"), "");

  const std::string hostile = "<p>No calls before \"9\" -- '; DROP TABLE NoteTable; 100% \xE2\x98\x8E</p>";
  notes_.Write(5, hostile);
  notes_.Write(6, "<p>Another patient's</p>");
  EXPECT_EQ(notes_.Read(5), hostile);
  const std::string longer = "<p>" + std::string(10'000, 'x') + "</p>";
  notes_.Write(5, longer);
  EXPECT_EQ(Told(kNoteRows), "5|ERM|0|2|" + longer + "|\n6|ERM|0|2|<p>Another patient's</p>|\n");

  notes_.Write(5, "");
  EXPECT_EQ(notes_.Read(5), "");
  EXPECT_EQ(Told("SELECT nNote FROM NoteTable"), "<p>Another patient's</p>|\n");
}

TEST_F(ReminderNotes, LeavesOtherNotesAlone) {
  Practice().Execute("INSERT INTO NoteTable (nID, nNote, OfficeID) VALUES (1, 'shared', 2), (2, 'elsewhere', 1)");
  Practice().Execute(
      "INSERT INTO pNoteTable (pNotPid, pNotNID, pNotTyp, pNotTraLinID, OfficeID) VALUES (5, 1, 'CM', 0, 2), "
      "(5, 1, 'ERM', 77, 2), (5, 2, 'ERM', 0, 1)");
  const std::string before = Told(kNoteRows);
  EXPECT_EQ(notes_.Read(5), "");
  notes_.Write(5, "<p>mine</p>");
  notes_.Write(5, "");
  EXPECT_EQ(Told(kNoteRows), before);

  Practice().Execute(
      "INSERT INTO pNoteTable (pNotPid, pNotNID, pNotTyp, pNotTraLinID, OfficeID) VALUES (5, 1, 'ERM', 0, 2)");
  EXPECT_EQ(notes_.Read(5), "shared");
  notes_.Write(5, "<p>his own now</p>");
  EXPECT_EQ(notes_.Read(5), "<p>his own now</p>");
  notes_.Write(5, "");
  EXPECT_EQ(Told(kNoteRows), before);
}

}  // namespace
