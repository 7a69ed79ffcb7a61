#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "data/statements.h"
#include "forms/list_box.h"

// What the coverage editor reads of a patient and of his family. All throw session::DatabaseError.
namespace insurance {

// How a patient stands to the subscriber, by the code that `CovRel` keeps.
const std::vector<forms::ListItem>& Relationships();
inline constexpr std::int32_t kSelf = 1;
// "Spouse"; a code that is none of these as a number, and empty for 0.
std::string RelationshipName(std::int32_t code);
// 0 for a name that is none of these.
std::int32_t RelationshipCode(std::string_view name);

// The places of the columns that `CoverageRows` gives.
enum CoverageField : std::size_t {
  kSubscriberFirst,
  kSubscriberLast,
  kRelationship,
  kCarrierPatientId,
  kSubscriberSsn,
  kEmployerName,
  kCarrierName,
  kGroupNumber,
  kPlanName,
  kEmployerId,
  kCarrierId,
  kPlanId,
  kStart,
  kEnd,
  kLinkId,
  kCoverageId,
  kSubscriberId,
  kHoldingId,
  kOrder,
};
// The statement for a patient's live coverages in their order. What a coverage leads to may be gone: it is empty.
data::Sql CoverageRows(const data::Statements& statements, std::int32_t patient);

struct FamilyMember {
  std::int32_t id = 0;
  std::string name = {};  // "John Smith"
};
// The patient first.
std::vector<FamilyMember> FamilyOf(const data::Statements& statements, std::int32_t patient);

// A plan that one of a family holds.
struct HeldPlan {
  std::int32_t holding = 0;
  std::int32_t subscriber = 0;
  std::int32_t link = 0;
  std::string subscriber_name = {};
  std::string plan = {};  // "Acme, Delta, 4711, Gold"
};
// Live ones through live links, by member and order.
std::vector<HeldPlan> PlansOf(const data::Statements& statements, const std::vector<FamilyMember>& family);
// A text for each that tells it apart from the others, and from a text that stands for something else: the subscriber's
// name alone where that does.
std::vector<std::string> ToldPlans(const std::vector<HeldPlan>& plans, std::string_view taken);

}  // namespace insurance
