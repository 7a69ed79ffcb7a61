#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "data/reminders.h"
#include "practice/demo_office.h"

namespace host::demo {

struct RecallMaster;

// The rows of the kinds of reminders, in their order.
using ReminderKinds = std::array<std::int32_t, data::kReminderKinds.size()>;
ReminderKinds MakeReminderKinds(DemoOffice& office);

// How some patients want to be reminded: orders of their own for a kind of reminder or a stage of their recall, methods
// that they must not be reached by, and a note.
class ReminderMaker {
 public:
  ReminderMaker(DemoOffice& office, const ReminderKinds& kinds)
      : kinds_(kinds), chance_(office.Apart("reminders")), office_(office) {}

  // `recall` is the one that the patient is tracked for, or nullptr.
  void Make(std::int32_t patient, const RecallMaster* recall);
  void Flush();

 private:
  void Order(std::int32_t patient, data::ReminderLink link, std::int32_t link_id, std::int32_t stage);
  void Exclude(std::int32_t patient);

  const ReminderKinds& kinds_;
  Random chance_;  // its own: other rows do not follow from it
  DemoOffice& office_;
  TableWriter orders_ =
      office_.Writer("eBusContactSequence", "ebcID, ebcLinID, ebcLinTyp, ebcpID, ebcSeq, ebcPer, ebcConMet, ebcExc");
  TableWriter notes_ = office_.Writer("NoteTable", "nID, nNote");
  TableWriter notes_of_patients_ =
      office_.Writer("pNoteTable", "pNotID, pNotPid, pNotNID, pNotTyp, pNotTraLinID, pNotDat");
};

}  // namespace host::demo
