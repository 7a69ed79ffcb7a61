#include "practice/demo_reminders.h"

#include <string_view>
#include <vector>

#include "forms/rich_text.h"
#include "practice/demo_recalls.h"

namespace host::demo {
namespace {

using data::ContactMethod;
using data::ReminderKind;
using data::ReminderLink;

// `pNotTyp` of a note about reminders.
constexpr std::string_view kReminderNote = "ERM";

const std::vector<std::vector<ContactMethod>>& Orders() {
  static const std::vector<std::vector<ContactMethod>> orders = {
      {ContactMethod::TextMessage, ContactMethod::Email},
      {ContactMethod::Email, ContactMethod::TextMessage, ContactMethod::Phone},
      {ContactMethod::Voice, ContactMethod::PostCard},
      {ContactMethod::Letter},
      {ContactMethod::Phone, ContactMethod::Letter, ContactMethod::PostCard}};
  return orders;
}

constexpr std::array<std::string_view, 4> kNotes = {
    "Works nights: no calls before noon.", "Ask for the daughter, who drives.",
    "Wants to hear of free places at short notice.", "Prefers Spanish on the phone."};

// Every so many patients have such rows of their own.
constexpr std::int32_t kOrderEvery = 6;
constexpr std::int32_t kRecallOrderEvery = 10;
constexpr std::int32_t kExcludedEvery = 9;
constexpr std::int32_t kNoteEvery = 14;

std::int32_t Number(ContactMethod method) {
  return static_cast<std::int32_t>(method);
}

}  // namespace

ReminderKinds MakeReminderKinds(DemoOffice& office) {
  auto writer = office.Writer("emmTable", "emmID, emmDes, emmHasCutOff, emmEna, emmAppDefTyp, OffLocID");
  ReminderKinds made{};
  for (std::size_t i = 0; i < made.size(); ++i) {
    const ReminderKind kind = data::kReminderKinds.at(i);
    made.at(i) = writer.Row(data::NameOf(kind), 0, 1, static_cast<std::int32_t>(kind), data::kAllLocations);
  }
  writer.Flush();
  return made;
}

void ReminderMaker::Make(std::int32_t patient, const RecallMaster* recall) {
  if (patient % kOrderEvery == 1) {
    Order(patient, ReminderLink::Kind, kinds_.at(1), 0);
    Order(patient, ReminderLink::Kind, kinds_.at(2), 0);
    if (patient % (2 * kOrderEvery) == 1) {
      Order(patient, ReminderLink::Kind, kinds_.at(3), 0);
    }
  }
  if (recall != nullptr && patient % kRecallOrderEvery == 2) {
    for (const std::int32_t stage : recall->stages) {
      Order(patient, ReminderLink::Recall, recall->number, stage);
    }
  }
  if (patient % kExcludedEvery == 4) {
    Exclude(patient);
  }
  if (patient % kNoteEvery == 6) {
    const std::int32_t note =
        notes_.Row(forms::WriteHtml(forms::FromPlainText(chance_.OneOf(std::span<const std::string_view>(kNotes)))));
    notes_of_patients_.Row(patient, note, kReminderNote, 0, office_.DaysAgo(chance_.Between(1, 400)));
  }
}

void ReminderMaker::Order(std::int32_t patient, ReminderLink link, std::int32_t link_id, std::int32_t stage) {
  std::int32_t place = 0;
  for (const ContactMethod method : chance_.OneOf(std::span<const std::vector<ContactMethod>>(Orders()))) {
    orders_.Row(link_id, static_cast<std::int32_t>(link), patient, ++place, stage, Number(method), nullptr);
  }
}

// A row of each kind that is no part of an order.
void ReminderMaker::Exclude(std::int32_t patient) {
  const std::int32_t methods = chance_.Percent(50) ? Number(ContactMethod::TextMessage) + Number(ContactMethod::Voice)
                                                   : Number(ContactMethod::Letter) + Number(ContactMethod::PostCard);
  for (const ReminderKind kind : {ReminderKind::Recall, ReminderKind::Appointment, ReminderKind::Birthday}) {
    orders_.Row(kinds_.at(static_cast<std::size_t>(kind) - 1), static_cast<std::int32_t>(ReminderLink::Kind), patient,
                0, 0, 0, methods);
  }
}

void ReminderMaker::Flush() {
  for (TableWriter* writer : {&orders_, &notes_, &notes_of_patients_}) {
    writer->Flush();
  }
}

}  // namespace host::demo
