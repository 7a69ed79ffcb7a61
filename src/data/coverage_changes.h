#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "data/coverage_log.h"
#include "data/holdings.h"

namespace data {

// A patient's coverages as a person changes them. Each change is one transaction; what changes through whom the patient
// is covered has its entry in his comment log. The caller has asked before, and holds whom it concerns. What has ended
// meanwhile is left alone: false then. All throw session::DatabaseError.
class CoverageChanges {
 public:
  explicit CoverageChanges(session::Session& session) : session_(session), coverages_(session), holdings_(session) {}

  // Behind the patient's other coverages.
  bool Add(std::int32_t patient, std::int32_t holding, std::int32_t relationship) const;
  // The same through what the subscriber holds of the link from now on, where he does not hold it already.
  bool AddThroughLink(std::int32_t patient, std::int32_t subscriber, std::int32_t link,
                      std::int32_t relationship) const;
  bool Change(std::int32_t coverage, std::int32_t holding) const;
  bool Remove(std::int32_t coverage) const;
  // Two of a patient's change places. The entry tells of the earlier place, and of both where a non-family member is
  // the subscriber.
  bool Exchange(std::int32_t one, std::int32_t other) const;
  bool SetRelationship(std::int32_t coverage, std::int32_t relationship) const;
  // The patient's ID at the carrier; an empty one is none.
  bool SetCarrierId(std::int32_t coverage, std::string_view id) const;

 private:
  // The coverage, with its patient's orders in step; nothing when it has ended.
  std::optional<Coverage> Ordered(std::int32_t coverage) const;
  // The holding, if it and its link are live.
  std::optional<Holding> Usable(std::int32_t holding) const;
  static CoveredThrough Through(const Holding& holding) { return {holding.subscriber, holding.link}; }
  // Of a holding that may have ended as well.
  CoveredThrough Through(const Coverage& coverage) const;
  void AddLogged(std::int32_t patient, const Holding& holding, std::int32_t relationship) const;
  void Log(const Coverage& coverage, const std::optional<CoveredThrough>& original,
           const std::optional<CoveredThrough>& now) const;

  session::Session& session_;
  Coverages coverages_;
  Holdings holdings_;
};

}  // namespace data
