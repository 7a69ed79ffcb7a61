#include "lookup/list_commands.h"

#include <array>

#include "lookup/delete_person.h"
#include "lookup/delete_recall.h"
#include "lookup/delete_shared_record.h"
#include "lookup/list_catalogue.h"

namespace lookup {
namespace {

using session::RecordKind;

constexpr bool kPatients = true;
constexpr bool kEnvelopes = true;
constexpr bool kLabels = true;
constexpr bool kPayers = true;

// By kind. Links and managed-care plans are only chosen from; nothing is deleted that other records may name unseen.
constexpr std::array<ListCommands, kListKinds> kCommands = {{
    {"provider", RecordKind::Provider, DeleteProvider, kPatients},
    {"physician", RecordKind::Physician1, nullptr, kPatients},
    {"physician", RecordKind::Physician2, nullptr, kPatients},
    {"referral", RecordKind::ReferInOut, nullptr, kPatients},
    {"referral source", RecordKind::Referral, nullptr, kPatients},
    {"family head", RecordKind::FamilyMember, DeleteFamilyHead, kPatients, !kEnvelopes, !kLabels, !kPayers,
     IsFamilyHead},
    {"employee", RecordKind::Employee, DeleteEmployee, kPatients},
    {"insurance company", RecordKind::Carrier, DeleteCarrier, !kPatients, kEnvelopes, kLabels, kPayers},
    {"employer", RecordKind::Employer, DeleteEmployer, !kPatients, kEnvelopes},
    {"group plan", RecordKind::GroupPlan, DeleteGroupPlan},
    {"insurance group"},
    {"recall", RecordKind::RecallMaster, DeleteRecall},
    {"pharmacy", RecordKind::Pharmacy, DeletePharmacy, !kPatients, kEnvelopes},
    {"managed care plan"},
}};

}  // namespace

const ListCommands& CommandsOf(session::LookUpListTypes type) {
  return kCommands.at(static_cast<std::size_t>(type));
}

}  // namespace lookup
