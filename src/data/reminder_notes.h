#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "data/statements.h"
#include "session/session.h"

namespace data {

// What a patient's note for reminders is called where its kind is named.
inline constexpr std::string_view kReminderNoteKind = "eReminder";

// What the practice notes about a patient's reminders: one note, HTML as a `forms::RichTextBox` keeps it. All throw
// session::DatabaseError.
class ReminderNotes {
 public:
  explicit ReminderNotes(session::Session& session) : session_(session), statements_(session) {}

  // Empty where there is none.
  std::string Read(std::int32_t patient) const;
  // In the caller's transaction. An empty note is deleted.
  void Write(std::int32_t patient, std::string_view html) const;

 private:
  struct Note {
    std::int32_t id = 0;  // of the patient's row; 0 where there is none
    std::string html = {};
  };
  // The first, should other programs have left several.
  Note Find(std::int32_t patient) const;
  void Insert(std::int32_t patient, std::string_view html) const;
  void Replace(std::int32_t id, std::string_view html) const;
  void Delete(std::int32_t id) const;
  std::int32_t TextOf(std::int32_t id) const;
  // Another row points at the text as well: it is neither changed nor deleted.
  bool IsShared(std::int32_t text) const;

  session::Session& session_;
  Statements statements_;
};

}  // namespace data
