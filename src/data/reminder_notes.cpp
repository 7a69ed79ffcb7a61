#include "data/reminder_notes.h"

#include "data/literal.h"

namespace data {
namespace {

constexpr std::string_view kReminderNote = "ERM";  // `pNotTyp`

}  // namespace

std::string ReminderNotes::Read(std::int32_t patient) const {
  return Find(patient).html;
}

void ReminderNotes::Write(std::int32_t patient, std::string_view html) const {
  const Note note = Find(patient);
  if (note.html == html) {
    return;
  }
  if (note.id == 0) {
    Insert(patient, html);
  } else if (html.empty()) {
    Delete(note.id);
  } else {
    Replace(note.id, html);
  }
}

ReminderNotes::Note ReminderNotes::Find(std::int32_t patient) const {
  const auto row = statements_.Select(
      Sql("SELECT pNoteTable.pNotID AS cmID, dbo.NoteTable.nNote AS cmDoc FROM pNoteTable INNER JOIN dbo.NoteTable ON "
          "(pNoteTable.pNotNID=dbo.NoteTable.nID)") +
      statements_.OfficeJoin(" AND (pNoteTable.OfficeID=dbo.NoteTable.OfficeID)") + " WHERE (pNoteTable.pNotTyp=" +
      Literal(kReminderNote) + ") AND (pNoteTable.pNotTraLinID=0) AND (pNoteTable.pNotPid=" + Literal(patient) + ")" +
      statements_.Office(" AND (pNoteTable.OfficeID=", ")") + " ORDER BY pNoteTable.pNotID");
  return row->Eof() ? Note() : Note{session::ToId(row->Get(0)), session::ToText(row->Get(1))};
}

void ReminderNotes::Insert(std::int32_t patient, std::string_view html) const {
  const std::int32_t text = statements_.Insert("NoteTable", {{"nNote", Literal(html)}});
  statements_.Insert("pNoteTable", {{"pNotPid", Literal(patient)},
                                    {"pNotNID", Literal(text)},
                                    {"pNotTyp", Literal(kReminderNote)},
                                    {"pNotTraLinID", "0"},
                                    {"pNotDat", Literal(session_.Now())}});
}

void ReminderNotes::Replace(std::int32_t id, std::string_view html) const {
  std::int32_t text = TextOf(id);
  if (IsShared(text)) {
    text = statements_.Insert("NoteTable", {{"nNote", Literal(html)}});
  } else {
    statements_.Update("NoteTable", {{"nNote", Literal(html)}}, "nID", text);
  }
  statements_.Update("pNoteTable", {{"pNotNID", Literal(text)}, {"pNotDat", Literal(session_.Now())}}, "pNotID", id);
}

void ReminderNotes::Delete(std::int32_t id) const {
  const std::int32_t text = TextOf(id);
  const bool stays = IsShared(text);
  statements_.Execute("DELETE FROM pNoteTable WHERE pNotID=" + Literal(id) + statements_.Office());
  if (!stays) {
    statements_.Execute("DELETE FROM NoteTable WHERE nID=" + Literal(text) + statements_.Office());
  }
}

bool ReminderNotes::IsShared(std::int32_t text) const {
  return session::ToId(statements_.SelectValue("SELECT Count(*) FROM pNoteTable WHERE pNotNID=" + Literal(text) +
                                               statements_.Office())) > 1;
}

std::int32_t ReminderNotes::TextOf(std::int32_t id) const {
  return session::ToId(
      statements_.SelectValue("SELECT pNotNID FROM pNoteTable WHERE pNotID=" + Literal(id) + statements_.Office()));
}

}  // namespace data
