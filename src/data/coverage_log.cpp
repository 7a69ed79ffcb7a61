#include "data/coverage_log.h"

#include <algorithm>
#include <array>

#include "data/coverages.h"
#include "data/family_members.h"
#include "data/persons.h"
#include "data/plan_links.h"

namespace data {
namespace {

constexpr std::array kOrders = {"primary", "secondary", "third", "fourth", "fifth", "sixth", "seventh"};

std::string OrderWord(std::int32_t order) {
  return order >= 1 && order <= static_cast<std::int32_t>(kOrders.size())
             ? kOrders.at(static_cast<std::size_t>(order) - 1)
             : std::to_string(order) + "th";
}

// One without an order is behind the patient's others.
std::int32_t PlaceOf(session::Session& session, std::int32_t patient, std::int32_t order) {
  return order > 0 ? order : static_cast<std::int32_t>(Coverages(session).Of(patient).size());
}

std::string Described(session::Session& session, const CoveredThrough& through) {
  const LinkNames link = PlanLinks(session).NamesOf(through.link);
  return "\r\nSubscriber : " + NameOfPerson(Statements(session), through.subscriber) + " - [" +
         std::to_string(through.subscriber) + "]\r\nEmployer : " + link.employer +
         "\r\nInsurance Company : " + link.carrier + "\r\nGroup Number : " + link.group_number;
}

}  // namespace

session::LogEntry CoverageEntry(session::Session& session, std::int32_t patient, std::int32_t order,
                                const std::optional<CoveredThrough>& original,
                                const std::optional<CoveredThrough>& now) {
  const forms::DateTime time = session.Now();
  const std::int32_t place = PlaceOf(session, patient, order);
  std::string text = "The following " + OrderWord(place) + " insurance plan was " +
                     (!original ? "added "
                      : !now    ? "removed "
                                : "changed ") +
                     "by user " + session.UserName() + " on " + forms::FormatShortDate(forms::DateOf(time)) + " at " +
                     forms::FormatTime(time) + ".";
  if (original) {
    text += "\r\n----- Original Coverage -----" + Described(session, *original);
  }
  if (now) {
    text += "\r\n----- New Coverage -----" + Described(session, *now);
  }
  if (now) {
    text += NonFamilyLine(session, patient, place, now->subscriber);
  }
  return {session::LogKind::Comment, "LogInsCov", patient, text};
}

std::string NonFamilyLine(session::Session& session, std::int32_t patient, std::int32_t order,
                          std::int32_t subscriber) {
  const auto family = FamilyMembers(Statements(session), patient);
  return std::ranges::find(family, subscriber) != family.end()
             ? std::string()
             : "\r\nThe " + OrderWord(order) + " insurance plan has been connected to a non-family member ";
}

}  // namespace data
